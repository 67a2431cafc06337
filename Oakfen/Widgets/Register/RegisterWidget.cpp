#include "Oakfen/Widgets/Register/RegisterWidget.h"

#include <QLineEdit>
#include <QMenu>
#include <utility>

#include "Oakfen/ScreenCommands.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/EntryTable.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Register/RegisterFooterWidget.h"
#include "Oakfen/Widgets/Register/RegisterHeaderWidget.h"
#include "Oakfen/Widgets/Register/RegisterNoticeWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

RegisterWidget::RegisterWidget(AppEnvironment& environment, const UUID& accountID, QWidget* parent)
    : QWidget(parent), environment_(environment), view_(environment, accountID),
      header_(new RegisterHeaderWidget(view_)), notice_(new RegisterNoticeWidget),
      entries_(new EntryTable(view_, view_.content()->table, QStringLiteral("Register/Columns"))),
      footer_(new RegisterFooterWidget) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header_);
    layout->addWidget(notice_);
    layout->addWidget(entries_, 1);
    layout->addWidget(footer_);
    notice_->wanted = [this] {
        view_.showHidden();
        table()->setFocus(Qt::OtherFocusReason);
    };
    header_->searchLeft = [this] { setFocus(Qt::OtherFocusReason); };
    changed_ = view_.changed.observe([this] { showContent(); });
    sheetChanged_ = environment.appState.sheetChanged.observe([this] {
        if (!environment_.appState.sheet() && std::exchange(awaitsFocus_, false)) {
            // Later: whoever puts the sheet away gives the keyboard back to where it was.
            QMetaObject::invokeMethod(
                table(), [this] { table()->setFocus(Qt::OtherFocusReason); }, Qt::QueuedConnection);
        }
    });
    showContent();
    commands_ = environment_.screenCommands.offer(
        {.find = [this] { searchField()->setFocus(Qt::ShortcutFocusReason); },
         .forOrder = [this] { return view_.sortMenu(); },
         .forRows = [this] { return view_.selectionMenu(); }});
}

RegisterWidget::~RegisterWidget() {
    // Before the view, which it tells of what is selected.
    delete entries_;
}

LedgerTable* RegisterWidget::table() const {
    return entries_->table();
}

std::unique_ptr<QMenu> RegisterWidget::makeContextMenu(const UUIDSet& ids) {
    return entries_->makeContextMenu(ids);
}

QLineEdit* RegisterWidget::searchField() const {
    return header_->searchField();
}

void RegisterWidget::showContent() {
    const auto earlier = std::exchange(content_, view_.content());
    header_->showContent(*content_);
    const bool wasInSight = table()->isTargetInSight();
    entries_->showTable(content_->table);
    entries_->showSelection(content_->selection);
    entries_->showSortIndicator(content_->sort.column, content_->sort.ascending);
    notice_->showNotice(content_->hiddenNotice);
    if (earlier == nullptr || content_->emptyState() != earlier->emptyState()) {
        showEmptyState();
    }
    table()->setDivider(content_->rowPastToday
                            ? std::optional(static_cast<int>(*content_->rowPastToday))
                            : std::nullopt);
    footer_->show(content_->footer, environment_.currencyCode());
    environment_.screenCommands.changed.notify();
    if (earlier != nullptr) {
        showPlace(*earlier, wasInSight);
    }
    if (content_->revealed && (earlier == nullptr || content_->revealed != earlier->revealed)) {
        entries_->reveal(content_->revealed->id);
        // The keyboard goes there too once the sheet that saved it has closed.
        awaitsFocus_ = environment_.appState.sheet().has_value();
    }
}

void RegisterWidget::focusInEvent(QFocusEvent* /*event*/) {
    // Not a proxy: Tab would come to the table before what stands above it, and never to that.
    entries_->focusShown();
}

void RegisterWidget::showPlace(const RegisterContent& earlier, bool wasInSight) {
    const bool isOtherChoice = content_->filter != earlier.filter ||
                               content_->searchText != earlier.searchText ||
                               content_->sort != earlier.sort;
    if (!content_->selection->empty()) {
        // The person selecting rows scrolls by that.
        if (isOtherChoice || (wasInSight && content_->table != earlier.table)) {
            table()->bringTargetIntoSight();
        }
    } else if (isOtherChoice) {
        entries_->beginAtTop();
    }
}

void RegisterWidget::showEmptyState() {
    entries_->showEmptyState(content_->emptyState(), [this](EmptyStateWidget& state) {
        if (!content_->isNarrowed()) {
            state.addButton(tr("New Transaction"), true, [this] { view_.newTransaction(); });
            state.addButton(tr("Import…"), false, [this] { view_.importTransactions(); });
        }
    });
}

} // namespace oakfen
