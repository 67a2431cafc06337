#include "Oakfen/Widgets/Register/RegisterWidget.h"

#include <QMenu>
#include <utility>

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
    showContent();
    setFocusProxy(entries_);
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

RegisterSortButton* RegisterWidget::sortButton() const {
    return header_->sortButton();
}

void RegisterWidget::showContent() {
    const auto earlier = std::exchange(content_, view_.content());
    header_->showContent(*content_);
    entries_->showTable(content_->table);
    entries_->showSelection(content_->selection);
    entries_->showSortIndicator(content_->sort.column, content_->sort.ascending);
    notice_->showNotice(content_->hiddenNotice);
    if (earlier == nullptr || content_->emptyState() != earlier->emptyState()) {
        showEmptyState();
    }
    footer_->show(content_->footer, environment_.currencyCode());
    if (content_->revealed && (earlier == nullptr || content_->revealed != earlier->revealed)) {
        entries_->reveal(content_->revealed->id);
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
