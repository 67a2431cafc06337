#pragma once

#include <memory>
#include <vector>

#include "Oakfen/Views/Dashboard/DashboardView.h"
#include "Oakfen/Widgets/Components/Page.h"

namespace oakfen {

class Card;
class DashboardGrid;
class EmptyStateWidget;
class FirstSteps;
struct DashboardParts;

/// Draws the start screen.
class DashboardWidget final : public Page {
    Q_OBJECT

public:
    explicit DashboardWidget(AppEnvironment& environment, QWidget* parent = nullptr);
    ~DashboardWidget() override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildCards();
    void showContent();
    void showEmptyState();
    void showSteps();
    /// Leads Tab through the cards in their order, whichever of their rows came first.
    void orderTabs();
    void flowRecentTransactions();

    std::vector<Card*> order_;
    DashboardView view_;
    std::shared_ptr<const DashboardContent> content_;
    QWidget* cards_ = nullptr;
    EmptyStateWidget* emptyState_ = nullptr;
    FirstSteps* steps_ = nullptr;
    Card* recent_ = nullptr;
    DashboardGrid* grid_ = nullptr;
    std::unique_ptr<DashboardParts> parts_;
    Subscription changed_;
};

} // namespace oakfen
