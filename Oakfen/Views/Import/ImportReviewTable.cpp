#include "Oakfen/Views/Import/ImportReviewTable.h"

#include <algorithm>
#include <iterator>

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

using LineColumn = Column<ImportReviewRow>;

std::string descriptionOf(const ImportReviewRow& row, const CellContext& context) {
    return row.duplicate ? duplicateDescription(*row.duplicate, context) : std::string();
}

/// The texts that are not empty, one beneath the other.
std::string linesOf(const std::vector<std::string>& texts) {
    std::vector<std::string> lines;
    std::ranges::copy_if(texts, std::back_inserter(lines),
                         [](const std::string& text) { return !text.empty(); });
    return joined(lines, "\n");
}

/// What all cells of a line have: hovering over it shows its memo and the entry that it repeats.
void dressLine(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    cell.description = descriptionOf(row, context);
    cell.toolTip = linesOf({drawnText(row.item->memo), cell.description});
    if (!row.comesIn()) {
        cell.tone = TextTone::secondary;
    }
}

void dressTick(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    cell.description = descriptionOf(row, context);
    if (row.duplicate) {
        cell.spoken = "Left out: already in this account";
        cell.tone = TextTone::secondary;
    } else {
        cell.spoken = row.isIncluded ? "Will be imported" : "Left out";
    }
}

void dressPayee(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    dressLine(cell, row, context);
    cell.detail = drawnText(row.item->memo);
}

void dressCategory(Cell& cell, const ImportReviewRow& row, const CellContext& context) {
    dressLine(cell, row, context);
    if (!row.category) {
        cell.tone = TextTone::secondary;
    }
    if (row.namesUnknownCategory) {
        const std::string name = quoted(*row.item->categoryName);
        cell.detail = "not " + name;
        cell.keepsDetail = true;
        std::string reason = name + " isn’t one of your categories";
        if (row.comesIn()) {
            cell.tone = TextTone::warning;
            // Whole, since the remark may leave it little room.
            reason += row.category ? "\nFiled as its payee was last: " + cell.text : std::string();
        }
        cell.description = linesOf({reason, cell.description});
        cell.toolTip = linesOf({reason, cell.toolTip});
    }
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
        {.head = {.id = "date", .title = "Date", .width = 96},
         .value = LineColumn::Day{[](const Row& row) { return row.item->date; }, true},
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
        {.head = {.id = "category", .title = "Category", .width = 240, .least = 130},
         .value = LineColumn::Text{[](const Row& row) -> std::string_view {
             return row.category.value_or(uncategorizedName);
         }},
         .dress = dressCategory},
        {.head = {.id = "amount", .title = "Amount", .width = 116},
         .value = LineColumn::Money{[](const Row& row) { return row.item->amount; }},
         .dress = dressLine},
        {.head = {.id = "mark", .spoken = "Mark", .width = 28},
         .value = LineColumn::Mark{"Duplicate",
                                   [](const Row& row) { return row.duplicate.has_value(); }},
         .dress = dressMark}};
    return columns;
}

std::string duplicateDescription(const RepeatedEntry& duplicate, const CellContext& context) {
    return "Already in this account: " + abbreviatedDateText(duplicate.date, context.calendar) +
           ", " + (duplicate.payee.empty() ? "no payee" : drawnText(duplicate.payee)) + ", " +
           currencyText(duplicate.amount, context.currencyCode);
}

} // namespace oakfen
