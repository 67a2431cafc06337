#include "Oakfen/Widgets/Components/RowTicker.h"

#include <QKeyEvent>
#include <utility>

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/TableModel.h"

namespace oakfen {

namespace {

constexpr int tickColumn = 0;

} // namespace

RowTicker::RowTicker(LedgerTable& table, const TableModel& model, Tick tick)
    : QObject(&table), table_(table), model_(model), tick_(std::move(tick)) {
    table.installEventFilter(this);
    connect(&table, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == tickColumn) {
            tick_({model_.id(index.row())}, !isTicked(index.row()));
        }
    });
}

bool RowTicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isPlain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (isPlain && isTickKey(key->key())) {
            // A key that is held down, perhaps since it left a field, ticks once at most.
            if (!key->isAutoRepeat()) {
                tickSelected();
            }
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool RowTicker::isTickKey(int key) const {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        return ticksWithReturn_;
    }
    // While a payee is being typed, a blank is part of it.
    return key == Qt::Key_Space && !table_.isSearching();
}

bool RowTicker::isTicked(int row) const {
    return model_.index(row, tickColumn).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

void RowTicker::tickSelected() {
    if (table_.targetRow() < 0) {
        table_.selectCurrentRow();
    }
    const int target = table_.targetRow();
    if (target < 0) {
        return;
    }
    table_.bringTargetIntoSight();
    std::vector<UUID> ids;
    for (const QModelIndex& index : table_.selectionModel()->selectedRows()) {
        ids.push_back(model_.id(index.row()));
    }
    tick_(ids, !isTicked(target));
}

} // namespace oakfen
