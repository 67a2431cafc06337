#include "Oakfen/Widgets/Register/RegisterWidget.h"

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

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Register/RegisterFooterWidget.h"
#include "Oakfen/Widgets/Register/RegisterHeaderWidget.h"
#include "Oakfen/Widgets/Register/RegisterNoticeWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

RegisterWidget::RegisterWidget(AppEnvironment& environment, const UUID& accountID, QWidget* parent)
    : QWidget(parent), environment_(environment), view_(environment, accountID),
      model_(new TableModel(view_.content()->table, this)),
      header_(new RegisterHeaderWidget(view_)), notice_(new RegisterNoticeWidget),
      table_(new LedgerTable), stack_(new QStackedLayout), footer_(new RegisterFooterWidget) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header_);
    layout->addWidget(notice_);
    // A widget of its own, so that what it shows later still comes before the footer by ear.
    auto* entries = new QWidget;
    entries->setLayout(stack_);
    layout->addWidget(entries, 1);
    layout->addWidget(footer_);
    notice_->wanted = [this] {
        view_.showHidden();
        table_->setFocus(Qt::OtherFocusReason);
    };
    setUpTable();
    stack_->addWidget(table_);
    changed_ = view_.changed.observe([this] { showContent(); });
    showContent();
    setFocusProxy(table_);
}

RegisterWidget::~RegisterWidget() {
    // The table goes after our own members and must not tell us of its end.
    table_->selectionModel()->disconnect(this);
}

void RegisterWidget::setUpTable() {
    table_->setAccessibleName(tr("Transactions"));
    table_->setTable(*model_, QStringLiteral("Register/Columns"));
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->installEventFilter(this);
    QHeaderView* header = table_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    connect(header, &QHeaderView::sectionClicked, this, [this](int column) {
        view_.sortBy(model_->content().head(static_cast<std::size_t>(column)).id);
        // The header has moved its arrow by itself, also to a column that can't be sorted by.
        showSortIndicator();
    });
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { takeSelection(); });
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (QGuiApplication::keyboardModifiers() == Qt::NoModifier && isMark(index)) {
            view_.toggleCleared(model_->id(index.row()));
        }
    });
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (!isMark(index)) {
            openSelection();
        }
    });
    connect(table_, &QTableView::customContextMenuRequested, this, [this](const QPoint& point) {
        if (content_->selection->empty()) {
            return;
        }
        // It ends by itself, since its action may lead to another screen, which ends this one.
        QMenu* menu = makeContextMenu(*content_->selection).release();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(table_->viewport()->mapToGlobal(point));
    });
}

bool RegisterWidget::isMark(const QModelIndex& index) const {
    return index.column() == static_cast<int>(columnNamed(model_->content(), "cleared").value());
}

QLineEdit* RegisterWidget::searchField() const {
    return header_->searchField();
}

RegisterSortButton* RegisterWidget::sortButton() const {
    return header_->sortButton();
}

std::unique_ptr<QMenu> RegisterWidget::makeContextMenu(const UUIDSet& ids) {
    auto menu = std::make_unique<QMenu>(this);
    fillMenu(*menu, view_.contextMenu(ids));
    return menu;
}

void RegisterWidget::showContent() {
    const auto earlier = std::exchange(content_, view_.content());
    const QScopedValueRollback showing(isShowing_, true);
    header_->showContent(*content_);
    showTable();
    showSelection();
    showSortIndicator();
    notice_->showNotice(content_->hiddenNotice);
    if (earlier == nullptr || content_->emptyState() != earlier->emptyState()) {
        showEmptyState();
    }
    footer_->show(content_->footer, environment_.currencyCode());
    if (content_->revealed && (earlier == nullptr || content_->revealed != earlier->revealed)) {
        reveal(content_->revealed->id);
    }
}

void RegisterWidget::showSortIndicator() {
    const auto column = columnNamed(*content_->table, content_->sort.column).value();
    table_->horizontalHeader()->setSortIndicator(static_cast<int>(column),
                                                 content_->sort.ascending ? Qt::AscendingOrder
                                                                          : Qt::DescendingOrder);
}

void RegisterWidget::showTable() {
    const QModelIndex current = table_->currentIndex();
    const int row = current.row();
    const int column = current.column();
    const auto currentID = current.isValid() ? std::optional(model_->id(row)) : std::nullopt;
    const int scrolled = table_->verticalScrollBar()->value();
    const int scrolledAcross = table_->horizontalScrollBar()->value();
    model_->show(content_->table);
    if (currentID) {
        keepCurrent(*currentID, row, column);
    }
    table_->verticalScrollBar()->setValue(scrolled);
    table_->horizontalScrollBar()->setValue(scrolledAcross);
}

void RegisterWidget::keepCurrent(const UUID& id, int row, int column) {
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

bool RegisterWidget::isSelectionShown() const {
    std::size_t count = 0;
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (!content_->selection->contains(model_->id(row))) {
                return false;
            }
            ++count;
        }
    }
    return count == content_->selection->size();
}

void RegisterWidget::showSelection() {
    // Mostly the table has kept it with its rows.
    if (isSelectionShown()) {
        return;
    }
    QItemSelection selection;
    const auto isSelected = [this](int row) {
        return row < model_->rowCount() && content_->selection->contains(model_->id(row));
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
    table_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void RegisterWidget::showEmptyState() {
    if (emptyState_ != nullptr) {
        stack_->removeWidget(emptyState_);
        emptyState_->deleteLater();
        emptyState_ = nullptr;
    }
    const std::optional<EmptyState> state = content_->emptyState();
    if (!state) {
        stack_->setCurrentWidget(table_);
        return;
    }
    emptyState_ = new EmptyStateWidget(*state);
    if (!content_->isNarrowed()) {
        emptyState_->addButton(tr("New Transaction"), true, [this] { view_.newTransaction(); });
        emptyState_->addButton(tr("Import…"), false, [this] { view_.importTransactions(); });
    }
    stack_->addWidget(emptyState_);
    stack_->setCurrentWidget(emptyState_);
}

void RegisterWidget::reveal(const UUID& id) {
    const int row = model_->rowOf(id);
    const int column = std::max(table_->currentIndex().column(), 0);
    table_->selectionModel()->setCurrentIndex(model_->index(row, column),
                                              QItemSelectionModel::NoUpdate);
    table_->scrollTo(table_->currentIndex());
}

void RegisterWidget::takeSelection() {
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
    view_.select(std::move(ids));
}

bool RegisterWidget::eventFilter(QObject* watched, QEvent* event) {
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

void RegisterWidget::copySelection() {
    if (!content_->selection->empty()) {
        QGuiApplication::clipboard()->setText(qt(view_.copiedText()));
    }
}

bool RegisterWidget::handleTableKey(int key, Qt::KeyboardModifiers modifiers) {
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
        view_.requestDelete(*content_->selection);
        return true;
    case Qt::Key_Space:
        if (table_->isSearching()) {
            // The blank is part of the payee that is being typed.
            return false;
        }
        if (table_->currentIndex().isValid()) {
            view_.toggleCleared(model_->id(table_->currentIndex().row()));
        }
        return true;
    default:
        return false;
    }
}

void RegisterWidget::openSelection() {
    if (!content_->selection->empty()) {
        view_.editTransaction(*content_->selection->begin());
    }
}

} // namespace oakfen
