#include "Oakfen/Widgets/RegisterWidget.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QStackedLayout>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/EmptyStateWidget.h"
#include "Oakfen/Widgets/MenuBuilder.h"
#include "Oakfen/Widgets/RegisterFooterWidget.h"
#include "Oakfen/Widgets/RegisterHeaderWidget.h"
#include "Oakfen/Widgets/RegisterModel.h"
#include "Oakfen/Widgets/RegisterNoticeWidget.h"

namespace oakfen {

namespace {

const QList<int> usualColumnWidths{34, 92, 56, 140, 210, 80, 112, 112, 122};

/// Words can be cut short where figures can't; these give away their spare room only.
const QList<LedgerTable::YieldingColumn> yieldingColumns{
    {static_cast<int>(RegisterColumn::number), 44},
    {static_cast<int>(RegisterColumn::payee), 90},
    {static_cast<int>(RegisterColumn::category), 84},
    {static_cast<int>(RegisterColumn::tags), 46},
    {static_cast<int>(RegisterColumn::payment), 78},
    {static_cast<int>(RegisterColumn::deposit), 78},
    {static_cast<int>(RegisterColumn::balance), 78}};

} // namespace

RegisterWidget::RegisterWidget(AppEnvironment& environment, const UUID& accountID, QWidget* parent)
    : QWidget(parent), environment_(environment), view_(environment, accountID),
      model_(new RegisterModel(environment, view_, this)), header_(new RegisterHeaderWidget(view_)),
      notice_(new RegisterNoticeWidget), table_(new LedgerTable), stack_(new QStackedLayout),
      footer_(new RegisterFooterWidget) {
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
    header_->chosen = [this] {
        view_.forgetHiddenIfChanged();
        refresh();
    };
    notice_->wanted = [this] { showHidden(); };
    setUpTable();
    stack_->addWidget(table_);
    libraryChanged_ = environment.store.libraryChanged.observe([this] { refresh(); });
    transactionSaved_ =
        environment.appState.transactionSaved.observe([this](const UUID& id) { reveal(id); });
    refresh();
    setFocusProxy(table_);
}

RegisterWidget::~RegisterWidget() {
    // The table goes after our own members and must not tell us of its end.
    table_->selectionModel()->disconnect(this);
}

void RegisterWidget::setUpTable() {
    table_->setAccessibleName(tr("Transactions"));
    table_->setModel(model_);
    table_->setColumnWidths(QStringLiteral("Register/Columns"), usualColumnWidths,
                            static_cast<int>(RegisterColumn::payee), yieldingColumns);
    table_->setSearchColumn(static_cast<int>(RegisterColumn::payee));
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->installEventFilter(this);
    QHeaderView* header = table_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    connect(header, &QHeaderView::sectionClicked, this, [this](int column) {
        view_.sortBy(allCases<RegisterColumn>[static_cast<std::size_t>(column)]);
        refresh();
    });
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { takeSelection(); });
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        const bool isPlain = QGuiApplication::keyboardModifiers() == Qt::NoModifier;
        if (isPlain && index.column() == static_cast<int>(RegisterColumn::cleared)) {
            view_.toggleCleared(UUID(model_->idAt(index.row())));
        }
    });
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != static_cast<int>(RegisterColumn::cleared)) {
            openSelection();
        }
    });
    connect(table_, &QTableView::customContextMenuRequested, this, [this](const QPoint& point) {
        if (view_.selection.empty()) {
            return;
        }
        // It ends by itself, since its action may lead to another screen, which ends this one.
        QMenu* menu = makeContextMenu(view_.selection).release();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(table_->viewport()->mapToGlobal(point));
    });
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

void RegisterWidget::refresh() {
    isRefreshing_ = true;
    const QModelIndex current = table_->currentIndex();
    const auto currentID =
        current.isValid() ? std::optional(model_->idAt(current.row())) : std::nullopt;
    const int scrolled = table_->verticalScrollBar()->value();
    const int scrolledAcross = table_->horizontalScrollBar()->value();
    header_->refresh();
    model_->reload();
    view_.keepSelectionVisible(model_->shown());
    restoreSelection(currentID, std::max(current.column(), 0));
    if (current.isValid() && !table_->currentIndex().isValid() && model_->rowCount() > 0) {
        // The entry has left the list; whoever goes on by keyboard does so from its place.
        const int row = std::min(current.row(), model_->rowCount() - 1);
        table_->selectionModel()->setCurrentIndex(model_->index(row, current.column()),
                                                  QItemSelectionModel::NoUpdate);
    }
    table_->verticalScrollBar()->setValue(scrolled);
    table_->horizontalScrollBar()->setValue(scrolledAcross);
    table_->horizontalHeader()->setSortIndicator(static_cast<int>(view_.sort.column),
                                                 view_.sort.ascending ? Qt::AscendingOrder
                                                                      : Qt::DescendingOrder);
    isRefreshing_ = false;
    notice_->showNotice(view_.hiddenNotice());
    showEmptyState();
    showFooter();
}

void RegisterWidget::showEmptyState() {
    if (emptyState_ != nullptr) {
        stack_->removeWidget(emptyState_);
        emptyState_->deleteLater();
        emptyState_ = nullptr;
    }
    if (!model_->shown().empty()) {
        stack_->setCurrentWidget(table_);
        return;
    }
    emptyState_ = new EmptyStateWidget(view_.emptyState());
    if (!view_.isNarrowed()) {
        emptyState_->addButton(tr("New Transaction"), true, [this] { view_.newTransaction(); });
        emptyState_->addButton(tr("Import…"), false, [this] { view_.importTransactions(); });
    }
    stack_->addWidget(emptyState_);
    stack_->setCurrentWidget(emptyState_);
}

void RegisterWidget::reveal(const UUID& id) {
    if (const auto shown = view_.reveal(id)) {
        scrollTo(*shown);
    }
    notice_->showNotice(view_.hiddenNotice());
}

void RegisterWidget::showHidden() {
    const auto last = view_.showHidden();
    refresh();
    if (last) {
        scrollTo(*last);
    }
    table_->setFocus(Qt::OtherFocusReason);
}

void RegisterWidget::scrollTo(const UUID& id) {
    restoreSelection(id, std::max(table_->currentIndex().column(), 0));
    table_->scrollTo(table_->currentIndex());
}

void RegisterWidget::restoreSelection(const std::optional<UUID>& current, int column) {
    const int currentRow = current ? model_->rowOf(*current) : -1;
    if (currentRow >= 0) {
        table_->selectionModel()->setCurrentIndex(model_->index(currentRow, column),
                                                  QItemSelectionModel::NoUpdate);
    }
    if (view_.selection.empty()) {
        return;
    }
    QItemSelection selection;
    const auto isSelected = [this](int row) {
        return row < model_->rowCount() && view_.selection.contains(model_->idAt(row));
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

void RegisterWidget::takeSelection() {
    if (isRefreshing_) {
        return;
    }
    const QItemSelection ranges = table_->selectionModel()->selection();
    std::size_t count = 0;
    for (const QItemSelectionRange& range : ranges) {
        count += static_cast<std::size_t>(range.height());
    }
    view_.selection.clear();
    view_.selection.reserve(count);
    for (const QItemSelectionRange& range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            view_.selection.insert(model_->idAt(row));
        }
    }
    showFooter();
}

void RegisterWidget::showFooter() {
    footer_->show(view_.footer(), environment_.currencyCode());
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
    if (!view_.selection.empty()) {
        QGuiApplication::clipboard()->setText(qt(view_.copiedText(model_->shown())));
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
        view_.requestDelete(view_.selection);
        return true;
    case Qt::Key_Space:
        if (table_->isSearching()) {
            // The blank is part of the payee that is being typed.
            return false;
        }
        if (table_->currentIndex().isValid()) {
            view_.toggleCleared(UUID(model_->idAt(table_->currentIndex().row())));
        }
        return true;
    default:
        return false;
    }
}

void RegisterWidget::openSelection() {
    if (!view_.selection.empty()) {
        view_.editTransaction(*view_.selection.begin());
    }
}

} // namespace oakfen
