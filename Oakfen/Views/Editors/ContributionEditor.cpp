#include "Oakfen/Views/Editors/ContributionEditor.h"

#include <algorithm>

#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

ContributionEditor::ContributionEditor(AppEnvironment& environment, const UUID& goalID)
    : environment_(environment), goalID_(goalID) {}

const SavingsGoal* ContributionEditor::goal() const {
    return goalOf(environment_.store.library(), goalID_);
}

std::string ContributionEditor::title() const {
    const SavingsGoal* present = goal();
    return "Contribute to " + legible(present != nullptr ? present->name : std::string());
}

std::string ContributionEditor::subtitle() const {
    const SavingsGoal* present = goal();
    if (present == nullptr) {
        return {};
    }
    const std::string& code = environment_.currencyCode();
    return currencyText(present->saved, code) + " of " + currencyText(present->target, code);
}

std::optional<std::string> ContributionEditor::obstacle() const {
    const SavingsGoal* present = goal();
    const Decimal saved = present != nullptr ? present->saved : Decimal();
    if ((saved + contribution).isNaN() || (saved - contribution).isNaN()) {
        return "The amount is too large to keep.";
    }
    return std::nullopt;
}

void ContributionEditor::save() {
    adjust(contribution);
}

std::optional<SecondAction> ContributionEditor::secondAction() const {
    return SecondAction{.title = "Withdraw",
                        .help = "Take the amount back from what is saved for the goal",
                        .obstacle = obstacle()};
}

void ContributionEditor::performSecondAction() {
    adjust(-contribution);
}

void ContributionEditor::adjust(const Decimal& delta) {
    const SavingsGoal* present = goal();
    if (present == nullptr) {
        return;
    }
    SavingsGoal changed = *present;
    changed.saved = std::max(changed.saved + delta, Decimal());
    environment_.store.mutate(delta.isNegative() ? "Withdraw from Goal" : "Contribute to Goal",
                              [&](Library& library) { upsert(library, changed); });
}

} // namespace oakfen
