#include "Oakfen/Widgets/RegisterWidget.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedLayout>
#include <QToolButton>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/EmptyStateWidget.h"
#include "Oakfen/Widgets/RegisterFooterWidget.h"
#include "Oakfen/Widgets/RegisterModel.h"
#include "Oakfen/Widgets/RegisterSortButton.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

namespace {

const QList<int> usualColumnWidths{34, 98, 60, 140, 210, 80, 112, 112, 122};

/// Words can be cut short where figures can't; those give away only their spare room.
const QList<LedgerTable::YieldingColumn> yieldingColumns{
    {static_cast<int>(RegisterColumn::number), 44},
    {static_cast<int>(RegisterColumn::payee), 100},
    {static_cast<int>(RegisterColumn::category), 90},
    {static_cast<int>(RegisterColumn::tags), 46},
    {static_cast<int>(RegisterColumn::payment), 96},
    {static_cast<int>(RegisterColumn::deposit), 96},
    {static_cast<int>(RegisterColumn::balance), 104}};

// Wider than high, which sets the picture apart from the words.
constexpr QSize toolIconSize(20, 15);

} // namespace

RegisterWidget::RegisterWidget(AppEnvironment& environment, const UUID& accountID, QWidget* parent)
    : QWidget(parent), environment_(environment), view_(environment, accountID),
      model_(new RegisterModel(environment, view_, this)),
      title_(new ElidedLabel(TextStyle::title, ThemeColor::text)),
      subtitle_(new ElidedLabel(TextStyle::body, ThemeColor::secondaryText)),
      filter_(new QComboBox), search_(new QLineEdit), sort_(new RegisterSortButton(view_)),
      table_(new LedgerTable), stack_(new QStackedLayout), footer_(new RegisterFooterWidget) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    // A widget of its own, so that what it shows later still comes before the footer by ear.
    auto* entries = new QWidget;
    entries->setLayout(stack_);
    layout->addWidget(entries, 1);
    layout->addWidget(footer_);
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

QWidget* RegisterWidget::makeHeader() {
    auto* header = new QWidget;
    auto* layout = new QVBoxLayout(header);
    layout->setContentsMargins(2 * Theme::grid, Theme::grid * 3 / 2, 2 * Theme::grid, Theme::grid);
    layout->setSpacing(Theme::grid);

    auto* titleRow = new QHBoxLayout;
    titleRow->setSpacing(Theme::grid / 2);
    layout->addLayout(titleRow);
    auto* titles = new QVBoxLayout;
    titles->setSpacing(0);
    titles->addWidget(title_);
    titles->addWidget(subtitle_);
    titleRow->addLayout(titles, 1);
    addToolButtons(*titleRow);

    auto* toolRow = new QHBoxLayout;
    toolRow->setSpacing(Theme::grid);
    layout->addLayout(toolRow);
    setUpFilterAndSearch();
    auto* filterLabel = new QLabel(tr("Show"));
    Theme::setText(*filterLabel, TextStyle::body, ThemeColor::secondaryText);
    filterLabel->setBuddy(filter_);
    toolRow->addWidget(filterLabel);
    toolRow->addWidget(filter_);
    toolRow->addWidget(search_, 1);
    toolRow->addStretch(0);
    sort_->chosen = [this] { refresh(); };
    toolRow->addWidget(sort_);
    return header;
}

void RegisterWidget::setUpFilterAndSearch() {
    for (const RegisterFilter each : allCases<RegisterFilter>) {
        filter_->addItem(qt(oakfen::title(each)));
    }
    filter_->setAccessibleName(tr("Show"));
    filter_->setToolTip(tr("Filter transactions"));
    connect(filter_, &QComboBox::activated, this, [this](int index) {
        view_.filter = allCases<RegisterFilter>[static_cast<std::size_t>(index)];
        refresh();
    });

    search_->setPlaceholderText(tr("Payee, category, memo, amount"));
    search_->setAccessibleName(tr("Search"));
    search_->setToolTip(tr("Search this account (Ctrl+F)"));
    search_->setClearButtonEnabled(true);
    search_->setMaximumWidth(360);
    search_
        ->addAction(symbolIcon("magnifyingglass", ThemeColor::secondaryText),
                    QLineEdit::LeadingPosition)
        ->setText(tr("Search"));
    // The toolkit's own button has a picture but no name.
    if (auto* clear = search_->findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction"))) {
        clear->setText(tr("Clear Search"));
    }
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
        view_.searchText = utf8(text);
        refresh();
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search_,
            [this] { search_->setFocus(Qt::ShortcutFocusReason); });
}

void RegisterWidget::addToolButtons(QLayout& row) {
    addToolButton(row, tr("Reconcile"), "checkmark.rectangle.stack",
                  tr("Reconcile with a statement"), &RegisterView::reconcile)
        ->setEnabled(RegisterView::canReconcile());
    addToolButton(row, tr("Import"), "square.and.arrow.down",
                  tr("Import a CSV, QIF, OFX or QFX statement"), &RegisterView::importTransactions);
    addToolButton(row, tr("Edit Account"), "info.circle", tr("Account details"),
                  &RegisterView::editAccount);
    addToolButton(row, tr("New Transaction"), "plus", tr("New transaction (Ctrl+N)"),
                  &RegisterView::newTransaction)
        ->setEnabled(RegisterView::canCreateTransaction());
}

QToolButton* RegisterWidget::addToolButton(QLayout& row, const QString& text,
                                           const char* symbolName, const QString& tooltip,
                                           void (RegisterView::*action)()) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setAccessibleName(text);
    button->setToolTip(tooltip);
    button->setIcon(symbolIcon(symbolName));
    button->setIconSize(toolIconSize);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, [this, action] { (view_.*action)(); });
    row.addWidget(button);
    return button;
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
        makeContextMenu(view_.selection)->exec(table_->viewport()->mapToGlobal(point));
    });
}

void RegisterWidget::refresh() {
    isRefreshing_ = true;
    const QModelIndex current = table_->currentIndex();
    const auto currentID =
        current.isValid() ? std::optional(model_->idAt(current.row())) : std::nullopt;
    const int scrolled = table_->verticalScrollBar()->value();
    title_->showText(qt(singleLine(view_.title())));
    subtitle_->showText(qt(singleLine(view_.subtitle())));
    model_->reload();
    view_.keepSelectionVisible(model_->shown());
    restoreSelection(currentID);
    table_->verticalScrollBar()->setValue(scrolled);
    table_->horizontalHeader()->setSortIndicator(static_cast<int>(view_.sort.column),
                                                 view_.sort.ascending ? Qt::AscendingOrder
                                                                      : Qt::DescendingOrder);
    sort_->refresh();
    isRefreshing_ = false;
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
        QPushButton* add =
            emptyState_->addButton(tr("New Transaction"), true, [this] { view_.newTransaction(); });
        add->setEnabled(RegisterView::canCreateTransaction());
        emptyState_->addButton(tr("Import…"), !RegisterView::canCreateTransaction(),
                               [this] { view_.importTransactions(); });
    }
    stack_->addWidget(emptyState_);
    stack_->setCurrentWidget(emptyState_);
}

void RegisterWidget::reveal(const UUID& id) {
    if (const auto shown = view_.reveal(id)) {
        restoreSelection(shown);
        table_->scrollTo(table_->currentIndex());
    }
}

void RegisterWidget::restoreSelection(const std::optional<UUID>& current) {
    const int currentRow = current ? model_->rowOf(*current) : -1;
    if (currentRow >= 0) {
        table_->selectionModel()->setCurrentIndex(model_->index(currentRow, 0),
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
    view_.selection.clear();
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
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

std::unique_ptr<QMenu> RegisterWidget::makeContextMenu(const UUIDSet& ids) {
    auto menu = std::make_unique<QMenu>(this);
    const RegisterContextMenu content = view_.contextMenu(ids);
    if (content.isEmpty) {
        return menu;
    }
    addActionsForOne(*menu, content);
    QMenu* marks = menu->addMenu(tr("Mark As"));
    for (const ClearedState state : allCases<ClearedState>) {
        const ClearedBadge badge = clearedBadge(state);
        marks->addAction(symbolIcon(badge.symbolName), qt(oakfen::title(state)),
                         [this, state, ids] { view_.markAs(state, ids); });
    }
    addCategories(*menu->addMenu(tr("Set Category")), ids);
    menu->addSeparator();
    menu->addAction(symbolIcon("trash", ThemeColor::negative), tr("Delete"),
                    [this, ids] { view_.requestDelete(ids); });
    return menu;
}

void RegisterWidget::addActionsForOne(QMenu& menu, const RegisterContextMenu& content) {
    if (!content.single) {
        return;
    }
    const UUID id = *content.single;
    menu.addAction(symbolIcon("pencil"), tr("Edit"), [this, id] { view_.editTransaction(id); })
        ->setEnabled(RegisterView::canEditTransaction());
    menu.addAction(symbolIcon("plus.rectangle.on.rectangle"), tr("Duplicate"),
                   [this, id] { view_.duplicate(id); });
    if (content.goToTitle) {
        // A single "&" would be taken for the mark of a shortcut.
        menu.addAction(symbolIcon("arrow.right"),
                       qt(*content.goToTitle).replace(QLatin1Char('&'), QLatin1String("&&")),
                       [this, id] { view_.goToTransfer(id); });
    }
    menu.addSeparator();
}

void RegisterWidget::addCategories(QMenu& menu, const UUIDSet& ids) {
    for (const CategoryKind kind : {CategoryKind::expense, CategoryKind::income}) {
        if (kind == CategoryKind::income) {
            menu.addSeparator();
        }
        for (const PickerRow& row : view_.categoryChoices(kind)) {
            menu.addAction(qt(singleLine(row.title)).replace(QLatin1Char('&'), QLatin1String("&&")),
                           [this, ids, id = *row.id] { view_.setCategory(id, ids); });
        }
    }
}

} // namespace oakfen
