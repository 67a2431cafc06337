#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Components/EmptyState.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

/// What the card of a goal shows.
struct GoalCard {
    UUID id;
    std::string name;
    std::string symbolName;
    /// From 0 to 1.
    double progress = 0;
    /// "62%"; not 100% before the target is reached.
    std::string percent;
    MoneyText saved;
    /// "of $20,000.00".
    std::string target;
    /// "Target Jul 2027"; empty without a day.
    std::string targetDate;
    bool isReached = false;
    /// What the bar means, or what is to be done for it; may be empty.
    std::string note;

    friend bool operator==(const GoalCard&, const GoalCard&) = default;
};

struct GoalsContent {
    /// In the order of the document.
    std::vector<GoalCard> cards;

    /// What stands in the place of the cards while there are none.
    [[nodiscard]] std::optional<EmptyState> emptyState() const;

    friend bool operator==(const GoalsContent&, const GoalsContent&) = default;
};

/// The savings goals, with how far each of them is.
class GoalsView final : public Screen<GoalsContent> {
public:
    explicit GoalsView(AppEnvironment& environment);

    void newGoal();
    void edit(const UUID& id);
    /// Asks how much is put aside for the goal, or taken back.
    void contribute(const UUID& id);

protected:
    [[nodiscard]] GoalsContent derive(const GoalsContent* earlier) const override;

private:
    [[nodiscard]] GoalCard card(const SavingsGoal& goal) const;

    Subscription dayChanged_;
};

} // namespace oakfen
