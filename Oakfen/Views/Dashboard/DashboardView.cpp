#include "Oakfen/Views/Dashboard/DashboardView.h"

#include "Oakfen/FileActions.h"
#include "Oakfen/Reminders.h"
#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

DashboardView::DashboardView(AppEnvironment& environment)
    : Screen(environment),
      hourChanged_(environment.dayChange.hourChanged.observe([this] { stateChanged(); })) {}

EmptyState DashboardView::emptyState() {
    return {"Add Your First Account", "building.columns",
            "Add chequing, savings, credit card, investment and loan accounts to see your complete "
            "financial picture."};
}

void DashboardView::addAccount() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
}

void DashboardView::showFirstAccount() {
    const auto open = environment_.store.index().openAccounts();
    if (!open.empty()) {
        environment_.appState.setSelection(SidebarItem::account(open.front()->id));
    }
}

std::vector<DashboardView::Step> DashboardView::steps() {
    const auto open = environment_.store.index().openAccounts();
    std::vector<Step> result;
    result.push_back(
        {.symbolName = "square.and.arrow.down",
         .title = "Import a Statement",
         .text = "Bring in a CSV, QIF, OFX or QFX file from your bank.",
         .perform = [&environment = environment_] { FileActions::importTransactions(environment); },
         .isEnabled = !open.empty()});
    if (!open.empty()) {
        result.push_back({.symbolName = "list.bullet.rectangle",
                          .title = "Go to " + singleLine(open.front()->name),
                          .text = "See what came in and went out.",
                          .perform = [this] { showFirstAccount(); }});
    }
    result.push_back({.symbolName = "plus.circle",
                      .title = "Add an Account",
                      .text = "Chequing, savings, credit cards, investments and loans.",
                      .perform = [this] { addAccount(); }});
    return result;
}

void DashboardView::show(SidebarItem::Kind kind) {
    environment_.appState.setSelection(SidebarItem{kind});
}

void DashboardView::follow(const AlertsCard::AlertItem& alert) {
    if (alert.target) {
        environment_.appState.setSelection(alert.target);
    }
}

void DashboardView::showLines(const FigureLines& figure) {
    environment_.appState.linesWanted.notify(figure);
}

void DashboardView::enter(const UUID& reminderID) {
    enterReminder(environment_, reminderID);
}

void DashboardView::edit(const UUID& entryID) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::EditTransaction{entryID}});
}

DashboardContent DashboardView::derive(const DashboardContent* /*earlier*/) const {
    const Calendar& calendar = environment_.clock.calendar();
    const Date now = environment_.clock.now();
    const std::shared_ptr<const LibraryIndex> index = environment_.store.sharedIndex();
    const Library& library = index->library();
    DashboardContent content{.greeting = oakfen::greeting(now, calendar),
                             .date = completeDateText(now, calendar),
                             .isEmpty = library.accounts.empty()};
    if (content.isEmpty) {
        return content;
    }
    const DashboardSource source{library, *index, now, calendar, library.currencyCode};
    content.netWorth = netWorthCard(source);
    content.cashFlow = cashFlowCard(source);
    content.spending = spendingCard(source);
    content.upcoming = upcomingBillsCard(source);
    content.budget = budgetSummaryCard(source);
    content.alerts = alertsCard(source);
    content.recent = recentTransactionsCard(source);
    return content;
}

std::string greeting(Date now, const Calendar& calendar) {
    const int hour = calendar.civil(now).hour;
    if (hour >= 5 && hour < 12) {
        return "Good morning";
    }
    if (hour >= 12 && hour < 17) {
        return "Good afternoon";
    }
    return "Good evening";
}

} // namespace oakfen
