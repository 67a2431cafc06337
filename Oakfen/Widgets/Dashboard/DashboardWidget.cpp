#include "Oakfen/Widgets/Dashboard/DashboardWidget.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Dashboard/BudgetPart.h"
#include "Oakfen/Widgets/Dashboard/DashboardGrid.h"
#include "Oakfen/Widgets/Dashboard/FigureCards.h"
#include "Oakfen/Widgets/Dashboard/FirstSteps.h"
#include "Oakfen/Widgets/Dashboard/ListCards.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

Card* makeCard(std::string_view title, std::string_view symbolName) {
    auto* card = new Card(qt(title), symbolName);
    card->setMinimumWidth(1);
    return card;
}

} // namespace

/// What fills the cards, in their order.
struct DashboardParts {
    NetWorthPart netWorth;
    CashFlowPart cashFlow;
    SpendingPart spending;
    UpcomingBillsPart upcoming;
    BudgetPart budget;
    AlertsPart alerts;
    RecentTransactionsPart recent;
};

DashboardWidget::DashboardWidget(AppEnvironment& environment, QWidget* parent)
    : Page(QStringLiteral("Dashboard"), parent), view_(environment) {
    changed_ = view_.changed.observe([this] { showContent(); });
    showContent();
}

DashboardWidget::~DashboardWidget() = default;

void DashboardWidget::buildCards() {
    Card* netWorth = makeCard("Net Worth", "chart.line.uptrend.xyaxis");
    Card* cashFlow = makeCard("Cash Flow", "arrow.left.arrow.right");
    Card* spending = makeCard("Spending by Category", "chart.pie");
    Card* upcoming = makeCard("Upcoming Bills & Income", "calendar.badge.clock");
    Card* budget = makeCard("Budget", "chart.bar.doc.horizontal");
    Card* alerts = makeCard("Alerts", "bell");
    recent_ = makeCard("Recent Transactions", "list.bullet.rectangle");

    for (Card* card : {netWorth, cashFlow, spending}) {
        card->setFoot(Theme::grid * 3 / 2);
    }
    for (Card* card : {upcoming, budget, alerts, recent_}) {
        card->setFoot(Theme::grid);
    }
    order_ = {netWorth, cashFlow, spending, upcoming, budget, alerts, recent_};
    cards_ = new QWidget;
    // Right below the title: nothing else has anything to tell yet.
    steps_ = new FirstSteps;
    auto* rows = new QVBoxLayout(cards_);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(2 * Theme::grid);
    grid_ = new DashboardGrid({netWorth, cashFlow, spending, upcoming, budget, alerts});
    rows->addWidget(steps_);
    rows->addWidget(grid_);
    rows->addWidget(recent_);
    rows->addStretch(1);
    column()->addWidget(cards_, 1);
    // In their place at once: each is told of by its buttons.
    parts_.reset(new DashboardParts{
        NetWorthPart(*netWorth), CashFlowPart(view_, *cashFlow), SpendingPart(view_, *spending),
        UpcomingBillsPart(view_, *upcoming), BudgetPart(view_, *budget), AlertsPart(view_, *alerts),
        RecentTransactionsPart(view_, *recent_)});
    flowRecentTransactions();
}

void DashboardWidget::showContent() {
    content_ = view_.content();
    setTitle(qt(content_->greeting));
    setDetail(qt(content_->date));
    showEmptyState();
    if (content_->isEmpty) {
        return;
    }
    if (cards_ == nullptr) {
        buildCards();
    }
    parts_->netWorth.show(content_->netWorth);
    parts_->cashFlow.show(content_->cashFlow);
    parts_->spending.show(content_->spending);
    parts_->upcoming.show(content_->upcoming);
    parts_->budget.show(content_->budget);
    parts_->alerts.show(content_->alerts);
    parts_->recent.show(content_->recent);
    showSteps();
    orderTabs();
}

void DashboardWidget::orderTabs() {
    QWidget* last = nullptr;
    const auto append = [&last](const QWidget& area) {
        for (QWidget* each : area.findChildren<QWidget*>()) {
            if ((each->focusPolicy() & Qt::TabFocus) == Qt::TabFocus) {
                if (last != nullptr && last->nextInFocusChain() != each) {
                    setTabOrder(last, each);
                }
                last = each;
            }
        }
    };
    append(*steps_);
    for (const Card* card : order_) {
        append(*card);
    }
}

void DashboardWidget::showEmptyState() {
    if (content_->isEmpty && emptyState_ == nullptr) {
        emptyState_ = new EmptyStateWidget(DashboardView::emptyState());
        emptyState_->addButton(QStringLiteral("Add Account"), true, [this] { view_.addAccount(); });
        column()->addWidget(emptyState_, 1);
    }
    if (emptyState_ != nullptr) {
        emptyState_->setVisible(content_->isEmpty);
    }
    if (cards_ != nullptr) {
        cards_->setVisible(!content_->isEmpty);
    }
}

void DashboardWidget::showSteps() {
    steps_->setVisible(content_->recent.rows.empty());
    steps_->show(view_.steps());
}

void DashboardWidget::flowRecentTransactions() {
    parts_->recent.setColumnCount(DashboardGrid::columnCount(columnWidth()));
}

void DashboardWidget::resizeEvent(QResizeEvent* event) {
    Page::resizeEvent(event);
    if (parts_ != nullptr) {
        flowRecentTransactions();
    }
}

} // namespace oakfen
