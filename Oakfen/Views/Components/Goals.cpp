#include "Oakfen/Views/Components/Goals.h"

#include <algorithm>
#include <array>

#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

namespace {

constexpr std::array symbols{GoalSymbol{"star", "Star"},
                             GoalSymbol{"target", "Target"},
                             GoalSymbol{"lifepreserver", "Life Preserver"},
                             GoalSymbol{"house", "House"},
                             GoalSymbol{"car", "Car"},
                             GoalSymbol{"bicycle", "Bicycle"},
                             GoalSymbol{"airplane", "Airplane"},
                             GoalSymbol{"beach.umbrella", "Umbrella"},
                             GoalSymbol{"graduationcap", "Graduation Cap"},
                             GoalSymbol{"book", "Book"},
                             GoalSymbol{"laptopcomputer", "Computer"},
                             GoalSymbol{"gift", "Gift"},
                             GoalSymbol{"heart", "Heart"},
                             GoalSymbol{"person.2", "People"},
                             GoalSymbol{"briefcase", "Briefcase"},
                             GoalSymbol{"cart", "Cart"},
                             GoalSymbol{"banknote", "Banknotes"}};
constexpr std::string_view symbolOfUnknown = "target";

} // namespace

std::span<const GoalSymbol> goalSymbols() noexcept {
    return symbols;
}

std::string_view shownGoalSymbol(std::string_view symbolName) noexcept {
    const bool isKnown =
        std::ranges::find(symbols, symbolName, &GoalSymbol::symbolName) != symbols.end();
    return isKnown ? symbolName : symbolOfUnknown;
}

std::string goalPaceText(const SavingsGoal& goal, Date now, const Calendar& calendar,
                         std::string_view currencyCode) {
    const auto needed = monthlyContributionNeeded(goal, now, calendar);
    if (!needed || needed->isZero() || needed->isNaN()) {
        return {};
    }
    return "Save " + currencyText(*needed, currencyCode) + " a month to stay on track.";
}

} // namespace oakfen
