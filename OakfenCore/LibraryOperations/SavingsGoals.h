#pragma once

#include <optional>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// The first goal of that id; or null.
[[nodiscard]] const SavingsGoal* goalOf(const Library& library, const UUID& id);

/// Replaces the goal with that id in place, else appends it.
void upsert(Library& library, SavingsGoal goal);

/// How far the goal is, from 0 to 1.
[[nodiscard]] double progress(const SavingsGoal& goal);

/// What must be put aside each month to reach the goal in time; none without a target date and for
/// a goal that is reached. A date under a month away asks for all of it.
[[nodiscard]] std::optional<Decimal> monthlyContributionNeeded(const SavingsGoal& goal, Date from,
                                                               const Calendar& calendar);

} // namespace oakfen
