#pragma once

#include "Oakfen/Views/Dashboard/DashboardView.h"

class QLabel;

namespace oakfen {

class BudgetBarWidget;
class Card;
class CardRows;
class MoneyLabel;
class RowButton;

/// Fills the card that tells how much of the month's budget is used up.
class BudgetPart final {
public:
    BudgetPart(DashboardView& view, Card& card);
    void show(const BudgetSummaryCard& content);

private:
    [[nodiscard]] QWidget* makeHead();
    [[nodiscard]] QWidget* makeRow();

    DashboardView& view_;
    RowButton* head_;
    MoneyLabel* spent_;
    QLabel* budgeted_;
    QLabel* percent_;
    BudgetBarWidget* bar_;
    CardRows* rows_;
    BudgetSummaryCard shown_;
};

} // namespace oakfen
