#include "Oakfen/Views/Import/ImportReviewTable.h"

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

using LineColumn = Column<ImportReviewRow>;

std::string descriptionOf(const ImportReviewRow& row, const CellContext& context) {
    return row.duplicate ? duplicateDescription(*row.duplicate, context) : std::string();
}

/// What all cells of a line have: hovering over it shows its memo and the entry that it repeats.
void dressLine(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    cell.description = descriptionOf(row, context);
    std::vector<std::string> hints;
    for (const std::string& hint : {singleLine(row.item->memo), cell.description}) {
        if (!hint.empty()) {
            hints.push_back(hint);
        }
    }
    cell.toolTip = joined(hints, "\n");
    if (!row.isIncluded) {
        cell.tone = TextTone::secondary;
    }
}

void dressTick(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    cell.description = descriptionOf(row, context);
    if (!row.isIncluded) {
        cell.spoken = "Left out";
    } else {
        cell.spoken = row.duplicate ? "Left out: already in this account" : "Will be imported";
    }
}

void dressPayee(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    dressLine(cell, row, context);
    cell.detail = singleLine(row.item->memo);
}

void dressMark(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    dressLine(cell, row, context);
    cell.tone = TextTone::warning;
}

} // namespace

const Columns<ImportReviewRow>& importReviewColumns() {
    using Row = ImportReviewRow;
    static const Columns<Row> columns{
        {.head = {.id = "included", .spoken = "Import", .width = 36},
         .value = LineColumn::Tick{[](const Row& row) { return row.isIncluded; }},
         .dress = dressTick},
        {.head = {.id = "date", .title = "Date", .width = 104},
         .value = LineColumn::Day{[](const Row& row) { return row.item->date; }},
         .dress = dressLine},
        {.head = {.id = "payee",
                  .title = "Payee",
                  .width = 200,
                  .least = 120,
                  .stretches = true,
                  .isSearched = true},
         .value =
             LineColumn::Text{[](const Row& row) -> std::string_view { return row.item->payee; }},
         .dress = dressPayee},
        {.head = {.id = "category", .title = "Category", .width = 170, .least = 90},
         .value = LineColumn::Text{[](const Row& row) -> std::string_view {
             return row.item->categoryName ? *row.item->categoryName : std::string_view();
         }},
         .dress = dressLine},
        {.head = {.id = "amount", .title = "Amount", .width = 116},
         .value = LineColumn::Money{[](const Row& row) { return row.item->amount; }},
         .dress = dressLine},
        {.head = {.id = "mark", .spoken = "Mark", .width = 92},
         .value = LineColumn::Text{[](const Row& row) -> std::string_view {
             return row.duplicate ? "Duplicate" : "";
         }},
         .dress = dressMark}};
    return columns;
}

std::string duplicateDescription(const RepeatedEntry& duplicate, const CellContext& context) {
    return "Already in this account: " + numericDateText(duplicate.date, context.calendar) + ", " +
           (duplicate.payee.empty() ? "no payee" : singleLine(duplicate.payee)) + ", " +
           currencyText(duplicate.amount, context.currencyCode);
}

} // namespace oakfen
