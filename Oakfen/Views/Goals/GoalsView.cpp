#include "Oakfen/Views/Goals/GoalsView.h"

#include "Oakfen/Views/Components/Goals.h"
#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/MonthText.h"

namespace oakfen {

namespace {

/// The share in whole percent, cut: what is almost reached isn't reached. From the amounts, since
/// of 29 out of 100 a binary share would make 28.
std::string percentOf(const SavingsGoal& goal) {
    constexpr int whole = 100;
    if (!goal.target.isPositive() || !goal.saved.isPositive()) {
        return percentText(0);
    }
    if (goal.saved >= goal.target) {
        return percentText(1);
    }
    const Decimal percent =
        ((goal.saved / goal.target) * Decimal(whole)).rounded(0, RoundingMode::down);
    return percentText(percent.doubleValue() / whole);
}

} // namespace

std::optional<EmptyState> GoalsContent::emptyState() const {
    if (!cards.empty()) {
        return std::nullopt;
    }
    return EmptyState{"No Savings Goals", "target",
                      "Set a target for an emergency fund, a trip or a down payment and track "
                      "your progress."};
}

GoalsView::GoalsView(AppEnvironment& environment)
    : Screen(environment),
      dayChanged_(environment.dayChange.dayChanged.observe([this] { stateChanged(); })) {}

GoalsContent GoalsView::derive(const GoalsContent* /*earlier*/) const {
    GoalsContent content;
    for (const SavingsGoal& goal : environment_.store.library().goals) {
        content.cards.push_back(card(goal));
    }
    return content;
}

GoalCard GoalsView::card(const SavingsGoal& goal) const {
    const std::string& code = environment_.currencyCode();
    const Calendar& calendar = environment_.clock.calendar();
    const double share = progress(goal);
    const bool isReached = share >= 1;
    return {.id = goal.id,
            .name = singleLine(goal.name),
            .symbolName = std::string(shownGoalSymbol(goal.symbolName)),
            .progress = share,
            .percent = percentOf(goal),
            .saved = moneyText(goal.saved, code),
            .target = "of " + currencyText(goal.target, code),
            .targetDate = goal.targetDate
                              ? "Target " + abbreviatedMonthYearText(*goal.targetDate, calendar)
                              : std::string(),
            .isReached = isReached,
            .note = isReached ? "Goal reached!"
                              : goalPaceText(goal, environment_.clock.now(), calendar, code)};
}

void GoalsView::newGoal() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Goal{}});
}

void GoalsView::edit(const UUID& id) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Goal{id}});
}

void GoalsView::contribute(const UUID& id) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Contribute{id}});
}

} // namespace oakfen
