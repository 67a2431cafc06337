#include "Oakfen/Views/Editors/GoalEditor.h"

#include <algorithm>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Components/Goals.h"
#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// The place of the icon among those that can be chosen; behind the last one for any other.
int placeOf(std::string_view symbolName) {
    const auto symbols = goalSymbols();
    return static_cast<int>(std::ranges::find(symbols, symbolName, &GoalSymbol::symbolName) -
                            symbols.begin());
}

bool isListed(int place) {
    return place < static_cast<int>(goalSymbols().size());
}

} // namespace

GoalEditor::GoalEditor(AppEnvironment& environment, const std::optional<UUID>& goalID)
    : environment_(environment) {
    constexpr int usualMonths = 12;
    date = environment.clock.calendar().addingMonths(environment.clock.now(), usualMonths);
    const SavingsGoal* goal = goalID ? goalOf(environment.store.library(), *goalID) : nullptr;
    if (goal != nullptr) {
        isNew_ = false;
        draft = *goal;
        hasDate = goal->targetDate.has_value();
        date = goal->targetDate.value_or(date);
    } else {
        draft.id = UUID::random();
        draft.symbolName = goalSymbols().front().symbolName;
    }
    firstSymbolName_ = draft.symbolName;
}

std::string GoalEditor::title() const {
    return isNew() ? "New Savings Goal" : "Edit Goal";
}

std::optional<std::string> GoalEditor::obstacle() const {
    if (trimmingWhitespaces(draft.name).empty()) {
        return "Enter a name.";
    }
    if (draft.target.isNaN() || draft.saved.isNaN()) {
        return "An amount is too large to keep.";
    }
    if (!draft.target.isPositive()) {
        return "Enter a target amount above zero.";
    }
    return std::nullopt;
}

SavingsGoal GoalEditor::finished() const {
    SavingsGoal goal = draft;
    goal.targetDate = hasDate ? std::optional(date) : std::nullopt;
    return goal;
}

void GoalEditor::save() {
    environment_.store.mutate(isNew() ? "New Goal" : "Edit Goal",
                              [this](Library& library) { upsert(library, finished()); });
}

std::optional<ConfirmationRequest> GoalEditor::deleteConfirmation() const {
    return isNew() ? std::nullopt : std::optional(destructiveConfirmation("Delete Goal"));
}

void GoalEditor::performDelete() {
    environment_.store.mutate("Delete Goal", [this](Library& library) {
        library.goals.eraseIf([this](const SavingsGoal& goal) { return goal.id == draft.id; });
    });
}

std::vector<ChoiceRow> GoalEditor::symbolRows() const {
    std::vector<ChoiceRow> rows;
    for (const GoalSymbol& each : goalSymbols()) {
        rows.push_back({.title = each.title,
                        .value = static_cast<int>(rows.size()),
                        .symbolName = each.symbolName});
    }
    if (const int place = placeOf(firstSymbolName_); !isListed(place)) {
        rows.push_back(
            {.title = "Other", .value = place, .symbolName = shownGoalSymbol(firstSymbolName_)});
    }
    return rows;
}

int GoalEditor::symbol() const {
    return placeOf(draft.symbolName);
}

void GoalEditor::setSymbol(int value) {
    draft.symbolName = isListed(value)
                           ? std::string(goalSymbols()[static_cast<std::size_t>(value)].symbolName)
                           : firstSymbolName_;
}

std::string GoalEditor::dateHint() const {
    if (!hasDate || obstacle()) {
        return {};
    }
    return goalPaceText(finished(), environment_.clock.now(), environment_.clock.calendar(),
                        environment_.currencyCode());
}

} // namespace oakfen
