#include "OakfenCore/LibraryOperations/SavingsGoals.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/LibraryOperations/ReplaceOrAppend.h"

namespace oakfen {

const SavingsGoal* goalOf(const Library& library, const UUID& id) {
    return library.goals.first([&](const SavingsGoal& goal) { return goal.id == id; });
}

void upsert(Library& library, SavingsGoal goal) {
    replaceOrAppend(library.goals, std::move(goal));
}

double progress(const SavingsGoal& goal) {
    if (!goal.target.isPositive() || !goal.saved.isPositive()) {
        return 0;
    }
    // Compared, since the quotient may be too large for a number.
    return goal.saved >= goal.target ? 1 : (goal.saved / goal.target).doubleValue();
}

std::optional<Decimal> monthlyContributionNeeded(const SavingsGoal& goal, Date from,
                                                 const Calendar& calendar) {
    if (!goal.targetDate || goal.saved >= goal.target) {
        return std::nullopt;
    }
    const int months = std::max(1, calendar.wholeMonths(from, *goal.targetDate));
    return ((goal.target - goal.saved) / Decimal(months)).toCents();
}

} // namespace oakfen
