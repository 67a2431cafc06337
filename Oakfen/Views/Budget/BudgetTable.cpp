#include "Oakfen/Views/Budget/BudgetTable.h"

namespace oakfen {

namespace {

using BudgetColumn = Column<BudgetRow>;

void dressCategory(Cell& cell, const BudgetRow& row, const CellContext& /*context*/) {
    if (row.line.parent) {
        cell.detail = drawnText(*row.line.parent);
        cell.description = cell.detail;
    }
}

void dressBudget(Cell& cell, const BudgetRow& row, const CellContext& context) {
    cell.spoken = moneyText(row.line.budget, context.currencyCode).text;
    if (row.line.budget.isZero()) {
        cell.tone = TextTone::secondary;
    }
}

void dressActual(Cell& cell, const BudgetRow& row, const CellContext& /*context*/) {
    if (!row.line.actual.isZero()) {
        cell.toolTip = "Show entries (Space)";
    }
}

void dressRemaining(Cell& cell, const BudgetRow& row, const CellContext& /*context*/) {
    cell.tone = row.line.isOverspent() ? TextTone::negative : TextTone::secondary;
}

void dressProgress(Cell& cell, const BudgetRow& row, const CellContext& /*context*/) {
    cell.spoken = budgetBar(row.line.fraction()).accessibilityText;
    cell.toolTip = cell.spoken;
}

} // namespace

double shareOfBudget(const Decimal& actual, const Decimal& budget) {
    const Decimal share = actual / budget;
    if (share.isNaN()) {
        return actual.isPositive() ? 1 : 0;
    }
    return share.doubleValue();
}

double BudgetLine::fraction() const {
    if (budget.isPositive()) {
        return shareOfBudget(actual, budget);
    }
    return actual.isPositive() ? 1 : 0;
}

const Columns<BudgetRow>& budgetColumns() {
    using Row = BudgetRow;
    static const Columns<Row> columns{
        {.head = {.id = "category",
                  .title = "Category",
                  .width = 230,
                  .least = 215,
                  .stretches = true,
                  .isSearched = true},
         .value =
             BudgetColumn::Text{[](const Row& row) -> std::string_view { return row.line.name; }},
         .dress = dressCategory},
        {.head = {.id = "budget", .title = "Budget", .width = 116, .isEditable = true},
         .value = BudgetColumn::Figures{[](const Row& row) { return row.line.budget; }, 2},
         .dress = dressBudget},
        {.head = {.id = "actual", .title = "Actual", .width = 112},
         .value = BudgetColumn::Money{[](const Row& row) { return row.line.actual; }},
         .dress = dressActual},
        {.head = {.id = "remaining", .title = "Remaining", .width = 112},
         .value = BudgetColumn::Money{[](const Row& row) { return row.line.remaining(); }},
         .dress = dressRemaining},
        {.head = {.id = "progress", .title = "Progress", .width = 160, .least = 80},
         .value = BudgetColumn::Composed{[](const Row& row) {
             return percentText(row.line.fraction());
         }},
         .dress = dressProgress}};
    return columns;
}

} // namespace oakfen
