#include "Oakfen/Widgets/Register/FindWidget.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "Oakfen/ScreenCommands.h"
#include "Oakfen/Widgets/Components/EntryTable.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/SearchField.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Register/RegisterFooterWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

/// Room for all columns of an everyday ledger.
constexpr int greatestPanelWidth = 1100;

} // namespace

FindWidget::FindWidget(AppEnvironment& environment, std::string& term, QWidget* parent)
    : EntriesPanel(tr("Find in All Accounts"), greatestPanelWidth, parent),
      environment_(environment), view_(environment, term),
      search_(new SearchField(tr("Payee, category, memo, tag, amount"))),
      entries_(new EntryTable(view_, view_.content()->table, QStringLiteral("Find/Columns"))),
      footer_(new RegisterFooterWidget) {
    setUpSearch();
    head()->addWidget(search_);
    setBody(*entries_, *footer_);
    setTabOrder(search_, table());
    setTabOrder(table(), table()->horizontalHeader());
    setTabOrder(table()->horizontalHeader(), closeButton());
    setUpKeys();
    changed_ = view_.changed.observe([this] { showContent(); });
    showContent();
}

FindWidget::~FindWidget() {
    // Before the view, which it tells of what is selected.
    delete entries_;
}

LedgerTable* FindWidget::table() const {
    return entries_->table();
}

QLineEdit* FindWidget::searchField() const {
    return search_;
}

std::unique_ptr<QMenu> FindWidget::makeContextMenu(const UUIDSet& ids) {
    return entries_->makeContextMenu(ids);
}

void FindWidget::startSearch() {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
}

void FindWidget::setUpSearch() {
    search_->setToolTip(tr("Search all accounts, closed ones too"));
    search_->setText(qt(view_.content()->searchText));
    search_->installEventFilter(this);
    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& text) { view_.setSearchText(utf8(text)); });
}

void FindWidget::setUpKeys() {
    commands_ =
        environment_.screenCommands.offer({.find = [this] { startSearch(); },
                                           .forOrder = [this] { return view_.sortMenu(); },
                                           .forRows = [this] { return view_.selectionMenu(); }});
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(Qt::CTRL | key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, &FindWidget::showInRegister);
    }
}

void FindWidget::showContent() {
    const auto earlier = std::exchange(content_, view_.content());
    entries_->showTable(content_->table);
    entries_->showSelection(content_->selection);
    entries_->showSortIndicator(content_->sort.column, content_->sort.ascending);
    if (earlier == nullptr || content_->emptyState() != earlier->emptyState()) {
        entries_->showEmptyState(content_->emptyState(), [](EmptyStateWidget&) {});
    }
    if (earlier != nullptr && content_->searchText != earlier->searchText) {
        // Other entries than before: the newest first.
        entries_->beginAtTop();
    }
    footer_->show(content_->footer, environment_.currencyCode());
    environment_.screenCommands.changed.notify();
}

void FindWidget::focusInEvent(QFocusEvent* /*event*/) {
    startSearch();
}

bool FindWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == search_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isPlain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (isPlain && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter ||
                        key->key() == Qt::Key_Down)) {
            enterTable();
            return true;
        }
    }
    return EntriesPanel::eventFilter(watched, event);
}

void FindWidget::enterTable() {
    if (content_->table->rowCount() == 0) {
        return;
    }
    if (content_->selection->empty()) {
        table()->selectRow(0);
    }
    table()->setFocus(Qt::TabFocusReason);
}

void FindWidget::showInRegister() {
    const std::vector<std::size_t> rows = rowsOf(*content_->selection, *content_->table);
    if (rows.empty()) {
        return;
    }
    const QModelIndex current = table()->currentIndex();
    const auto row = static_cast<std::size_t>(std::max(current.row(), 0));
    const bool isOnSelected = std::ranges::binary_search(rows, row);
    view_.showInRegister(content_->table->id(isOnSelected ? row : rows.front()));
}

} // namespace oakfen
