#pragma once

#include <span>
#include <string>
#include <string_view>

#include "OakfenCore/Models/Records.h"
#include "OakfenCore/Support/Time/Calendar.h"

/// What the list of savings goals and the sheets that edit them have in common.
namespace oakfen {

/// An icon that a goal can be given.
struct GoalSymbol {
    /// As the document keeps it.
    std::string_view symbolName;
    std::string_view title;

    friend bool operator==(const GoalSymbol&, const GoalSymbol&) = default;
};

[[nodiscard]] std::span<const GoalSymbol> goalSymbols() noexcept;

/// The icon of a goal; another one where it has a name that the program knows no icon for.
[[nodiscard]] std::string_view shownGoalSymbol(std::string_view symbolName) noexcept;

/// "Save $228.57 a month to stay on track."; empty where nothing has to be put aside for the day.
[[nodiscard]] std::string goalPaceText(const SavingsGoal& goal, Date now, const Calendar& calendar,
                                       std::string_view currencyCode);

} // namespace oakfen
