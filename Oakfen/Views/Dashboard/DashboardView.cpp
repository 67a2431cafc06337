#include "Oakfen/Views/Dashboard/DashboardView.h"

#include "Oakfen/FileActions.h"
#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

std::string DashboardView::greeting() const {
    const int hour = environment_.clock.calendar().civil(environment_.clock.now()).hour;
    if (hour >= 5 && hour < 12) {
        return "Good morning";
    }
    if (hour >= 12 && hour < 17) {
        return "Good afternoon";
    }
    return "Good evening";
}

std::string DashboardView::dateText() const {
    return completeDateText(environment_.clock.now(), environment_.clock.calendar());
}

bool DashboardView::isEmpty() const {
    return environment_.store.library().accounts.empty();
}

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

} // namespace oakfen
