#include "Oakfen/Views/Categories/CategoryTable.h"

namespace oakfen {

namespace {

using CategoryColumn = Column<CategoryRow>;

void dressName(Cell& cell, const CategoryRow& row, const CellContext& /*context*/) {
    cell.keepsDetail = true;
    std::string description;
    if (!row.isTopLevel) {
        description = "Subcategory of " + drawnText(row.parentName);
    }
    if (row.isTaxRelated) {
        cell.detail = "Tax";
        description += description.empty() ? "Tax related" : ", tax related";
    }
    cell.description = std::move(description);
}

void dressBudget(Cell& cell, const CategoryRow& /*row*/, const CellContext& /*context*/) {
    cell.tone = TextTone::secondary;
}

void dressTotal(Cell& cell, const CategoryRow& row, const CellContext& /*context*/) {
    cell.toolTip = "Show the entries that make it up";
    if (row.total.toCents().isZero()) {
        cell.tone = TextTone::secondary;
    }
}

} // namespace

const Columns<CategoryRow>& categoryColumns() {
    using Row = CategoryRow;
    static const Columns<Row> columns{
        {.head =
             {.id = "name", .title = "Name", .width = 320, .stretches = true, .isSearched = true},
         .value = CategoryColumn::Text{[](const Row& row) -> std::string_view { return row.name; }},
         .dress = dressName},
        {.head = {.id = "budget", .title = "Budget", .width = 200},
         .value =
             CategoryColumn::Text{[](const Row& row) -> std::string_view { return row.budget; }},
         .dress = dressBudget},
        {.head = {.id = "total", .title = "Year to Date", .width = 144},
         .value = CategoryColumn::Money{[](const Row& row) { return row.total; }},
         .dress = dressTotal}};
    return columns;
}

} // namespace oakfen
