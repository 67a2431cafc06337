#include "Oakfen/Widgets/Components/RowTicker.h"

#include <QKeyEvent>
#include <utility>

#include "Oakfen/Widgets/Components/LedgerTable.h"

namespace oakfen {

RowTicker::RowTicker(LedgerTable& table, int tickColumn, Tick tick)
    : QObject(&table), table_(table), column_(tickColumn), tick_(std::move(tick)) {
    table.installEventFilter(this);
    connect(&table, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == column_) {
            tick_({index.row()}, !isTicked(index.row()));
        }
    });
}

bool RowTicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // While a payee is being typed, a blank is part of it.
        if (key->key() == Qt::Key_Space && !table_.isSearching()) {
            tickSelected();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool RowTicker::isTicked(int row) const {
    return table_.model()->index(row, column_).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

void RowTicker::tickSelected() {
    const QModelIndex current = table_.currentIndex();
    if (!current.isValid()) {
        return;
    }
    std::vector<int> rows{current.row()};
    for (const QModelIndex& index : table_.selectionModel()->selectedRows()) {
        rows.push_back(index.row());
    }
    tick_(rows, !isTicked(current.row()));
}

} // namespace oakfen
