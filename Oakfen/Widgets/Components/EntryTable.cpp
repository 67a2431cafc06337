#include "Oakfen/Widgets/Components/EntryTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStackedLayout>
#include <algorithm>
#include <numeric>
#include <utility>

#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Components/Panes.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

EntryTable::EntryTable(EntryList& list, std::shared_ptr<const TableContent> content,
                       const QString& stateKey, QWidget* parent)
    : QWidget(parent), list_(list), model_(new TableModel(std::move(content), this)),
      table_(new LedgerTable), stack_(new QStackedLayout(this)) {
    setUpTable(stateKey);
    stack_->addWidget(table_);
    makePane(*this);
}

EntryTable::~EntryTable() {
    // The table goes after our own members and must not tell us of its end.
    table_->selectionModel()->disconnect(this);
}

void EntryTable::setUpTable(const QString& stateKey) {
    table_->setAccessibleName(tr("Transactions"));
    table_->setTable(*model_, stateKey);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->installEventFilter(this);
    setUpHeader();
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { takeSelection(); });
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (QGuiApplication::keyboardModifiers() == Qt::NoModifier && isMark(index)) {
            list_.toggleCleared(model_->id(index.row()));
        }
    });
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (!isMark(index)) {
            openSelection();
        }
    });
    connect(table_, &QTableView::customContextMenuRequested, this,
            [this](const QPoint& point) { openContextMenu(point); });
}

void EntryTable::setUpHeader() {
    QHeaderView* header = table_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setFocusPolicy(Qt::TabFocus);
    header->setAccessibleName(tr("Sort by"));
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::sectionClicked, this, [this](int column) {
        list_.sortBy(model_->content().head(static_cast<std::size_t>(column)).id);
        // The header has moved its arrow by itself, also to a column that can't be sorted by.
        showSortIndicator(sortColumn_, isSortedUp_);
    });
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint& point) {
                auto* menu = new QMenu(this);
                menu->setAttribute(Qt::WA_DeleteOnClose);
                fillMenu(*menu, list_.sortMenu());
                menu->popup(header->viewport()->mapToGlobal(point));
            });
}

void EntryTable::openContextMenu(const QPoint& point) {
    if (selection_->empty()) {
        return;
    }
    QPoint place = point;
    const QModelIndex there = table_->indexAt(point);
    if (!there.isValid() || !table_->selectionModel()->isRowSelected(there.row())) {
        // Asked for by keyboard, or beside the rows.
        table_->bringTargetIntoSight();
        place = table_->visualRect(model_->index(table_->targetRow(), 0)).bottomLeft();
    }
    // It ends by itself, since its action may lead to another screen, which ends this one.
    QMenu* menu = makeContextMenu(*selection_).release();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(table_->viewport()->mapToGlobal(place));
}

bool EntryTable::isMark(const QModelIndex& index) const {
    return columnNamed(model_->content(), "cleared") == static_cast<std::size_t>(index.column());
}

std::unique_ptr<QMenu> EntryTable::makeContextMenu(const UUIDSet& ids) {
    auto menu = std::make_unique<CommandMenu>(this);
    fillMenu(*menu, list_.contextMenu(ids));
    return menu;
}

void EntryTable::showSortIndicator(std::string_view column, bool ascending) {
    sortColumn_ = column;
    isSortedUp_ = ascending;
    const auto place = columnNamed(model_->content(), column).value();
    table_->horizontalHeader()->setSortIndicator(
        static_cast<int>(place), ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void EntryTable::showTable(const std::shared_ptr<const TableContent>& content) {
    const QScopedValueRollback showing(isShowing_, true);
    const QModelIndex current = table_->currentIndex();
    const int row = current.row();
    const int column = current.column();
    const auto currentID = current.isValid() ? std::optional(model_->id(row)) : std::nullopt;
    const int scrolled = table_->verticalScrollBar()->value();
    const int scrolledAcross = table_->horizontalScrollBar()->value();
    model_->show(content);
    if (currentID) {
        keepCurrent(*currentID, row, column);
    }
    table_->verticalScrollBar()->setValue(scrolled);
    table_->horizontalScrollBar()->setValue(scrolledAcross);
}

void EntryTable::keepCurrent(const UUID& id, int row, int column) {
    const QModelIndex current = table_->currentIndex();
    if ((current.isValid() && model_->id(current.row()) == id) || model_->rowCount() == 0) {
        return;
    }
    // Once the entry has left the list, whoever goes on by keyboard does so from its place.
    const int present = model_->rowOf(id);
    const int next = present >= 0 ? present : std::min(row, model_->rowCount() - 1);
    table_->selectionModel()->setCurrentIndex(model_->index(next, column),
                                              QItemSelectionModel::NoUpdate);
}

bool EntryTable::isSelectionShown() const {
    std::size_t count = 0;
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (!selection_->contains(model_->id(row))) {
                return false;
            }
            ++count;
        }
    }
    return count == selection_->size();
}

void EntryTable::showSelection(SharedSelection selected) {
    selection_ = std::move(selected);
    // Mostly the table has kept it with its rows.
    if (isSelectionShown()) {
        return;
    }
    QItemSelection selection;
    const auto isSelected = [this](int row) {
        return row < model_->rowCount() && selection_->contains(model_->id(row));
    };
    // One range for neighbours: thousands of single rows would make the table slow.
    for (int row = 0; row < model_->rowCount(); ++row) {
        const int first = row;
        while (isSelected(row)) {
            ++row;
        }
        if (row > first) {
            selection.select(model_->index(first, 0),
                             model_->index(row - 1, model_->columnCount() - 1));
        }
    }
    const QScopedValueRollback showing(isShowing_, true);
    table_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void EntryTable::showEmptyState(const std::optional<EmptyState>& state,
                                const std::function<void(EmptyStateWidget&)>& addButtons) {
    if (emptyState_ != nullptr) {
        stack_->removeWidget(emptyState_);
        emptyState_->deleteLater();
        emptyState_ = nullptr;
    }
    if (!state) {
        stack_->setCurrentWidget(table_);
        return;
    }
    emptyState_ = new EmptyStateWidget(*state);
    addButtons(*emptyState_);
    stack_->addWidget(emptyState_);
    stack_->setCurrentWidget(emptyState_);
}

void EntryTable::reveal(const UUID& id) {
    {
        const QScopedValueRollback showing(isShowing_, true);
        table_->goTo(model_->rowOf(id));
    }
    // It may be one of several that came back.
    showSelection(selection_);
}

void EntryTable::focusShown() {
    focusFirstIn(*stack_->currentWidget());
}

void EntryTable::beginAtTop() {
    if (model_->rowCount() > 0) {
        const int column = std::max(table_->currentIndex().column(), 0);
        table_->selectionModel()->setCurrentIndex(model_->index(0, column),
                                                  QItemSelectionModel::NoUpdate);
        table_->scrollToTop();
    }
}

void EntryTable::takeSelection() {
    if (isShowing_) {
        return;
    }
    const QItemSelection ranges = table_->selectionModel()->selection();
    const int count = std::accumulate(
        ranges.begin(), ranges.end(), 0,
        [](int sum, const QItemSelectionRange& range) { return sum + range.height(); });
    UUIDSet ids;
    ids.reserve(static_cast<std::size_t>(count));
    for (const QItemSelectionRange& range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            ids.insert(model_->id(row));
        }
    }
    list_.select(std::move(ids));
}

bool EntryTable::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Copy)) {
            copySelection();
            return true;
        }
        if (handleTableKey(key->key(), key->modifiers())) {
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void EntryTable::copySelection() {
    if (!selection_->empty()) {
        QGuiApplication::clipboard()->setText(qt(list_.copiedText()));
    }
}

bool EntryTable::handleTableKey(int key, Qt::KeyboardModifiers modifiers) {
    if ((modifiers & ~Qt::KeypadModifier) != Qt::NoModifier) {
        return false;
    }
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        openSelection();
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        deleteSelection();
        return true;
    case Qt::Key_Space:
        if (table_->isSearching()) {
            // The blank is part of the payee that is being typed.
            return false;
        }
        toggleSelection();
        return true;
    default:
        return false;
    }
}

void EntryTable::openSelection() {
    if (const int row = table_->targetRow(); row >= 0) {
        list_.editTransaction(model_->id(row));
    }
}

void EntryTable::toggleSelection() {
    const SharedSelection selection = selection_;
    if (selection->empty()) {
        table_->selectCurrentRow();
        return;
    }
    table_->bringTargetIntoSight();
    list_.toggleCleared(*selection);
    if (selection_->empty()) {
        // The filter hides what was marked; whoever goes on does so with the row at its place.
        table_->selectCurrentRow();
    }
}

void EntryTable::deleteSelection() {
    const SharedSelection selection = selection_;
    table_->bringTargetIntoSight();
    list_.requestDelete(*selection);
}

} // namespace oakfen
