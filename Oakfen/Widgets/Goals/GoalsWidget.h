#pragma once

#include <vector>

#include "Oakfen/Views/Goals/GoalsView.h"
#include "Oakfen/Widgets/Components/Page.h"

namespace oakfen {

class CardGrid;
class EmptyStateWidget;
class GoalCardWidget;

/// Draws the savings goals.
class GoalsWidget final : public Page {
    Q_OBJECT

public:
    explicit GoalsWidget(AppEnvironment& environment, QWidget* parent = nullptr);

    [[nodiscard]] const std::vector<GoalCardWidget*>& cards() const { return cards_; }

private:
    void showContent();
    [[nodiscard]] GoalCardWidget* makeCard();
    void showEmptyState(const std::optional<EmptyState>& state);

    GoalsView view_;
    CardGrid* grid_;
    EmptyStateWidget* emptyState_ = nullptr;
    std::vector<GoalCardWidget*> cards_;
    Subscription changed_;
};

} // namespace oakfen
