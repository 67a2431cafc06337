#include "Oakfen/Views/Register/RegisterTable.h"

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

using Row = RegisterRow;
using EntryColumn = Column<Row>;

/// The state shows as a mark.
void dressState(Cell& cell, const Row& row, const CellContext& /*context*/) {
    const ClearedBadge badge = clearedBadge(row.cleared);
    cell = {.symbolName = std::string(badge.symbolName),
            .spoken = std::string(badge.tooltip),
            .tone = badge.tone};
}

void dressPayee(Cell& cell, const Row& row, const CellContext& /*context*/) {
    cell.detail = singleLine(row.memo);
    cell.toolTip = row.memo;
}

void dressCategory(Cell& cell, const Row& row, const CellContext& /*context*/) {
    if (row.isTransfer) {
        cell.tone = TextTone::information;
    } else if (row.categoryName == uncategorizedName) {
        cell.tone = TextTone::warning;
    }
}

void dressTags(Cell& cell, const Row& /*row*/, const CellContext& /*context*/) {
    cell.tone = TextTone::secondary;
}

void dressDeposit(Cell& cell, const Row& row, const CellContext& /*context*/) {
    if (row.amount.isPositive()) {
        cell.tone = TextTone::positive;
    }
}

Columns<Row> makeColumns(std::string_view moneyOut, std::string_view moneyIn) {
    return {
        {.head = {.id = "cleared", .spoken = "Cleared", .width = 34, .isSortable = true},
         .value = EntryColumn::Text{[](const Row& row) { return title(row.cleared); }},
         .dress = dressState},
        {.head = {.id = "date", .title = "Date", .width = 92, .isSortable = true},
         .value = EntryColumn::Day{[](const Row& row) { return row.date; }}},
        {.head = {.id = "number", .title = "Num", .width = 56, .least = 44, .isSortable = true},
         .value =
             EntryColumn::Text{[](const Row& row) -> std::string_view { return row.checkNumber; },
                               true}},
        {.head = {.id = "payee",
                  .title = "Payee",
                  .width = 140,
                  .least = 90,
                  .stretches = true,
                  .isSearched = true,
                  .isSortable = true},
         .value = EntryColumn::Text{[](const Row& row) -> std::string_view { return row.payee; }},
         .dress = dressPayee},
        {.head =
             {.id = "category", .title = "Category", .width = 210, .least = 84, .isSortable = true},
         .value =
             EntryColumn::Text{[](const Row& row) -> std::string_view { return row.categoryName; }},
         .dress = dressCategory},
        {.head = {.id = "tags", .title = "Tags", .width = 80, .least = 46},
         .value = EntryColumn::Composed{[](const Row& row) { return joined(row.tags, ", "); }},
         .dress = dressTags},
        // Words can be cut short where figures can't; these give away their spare room only.
        {.head =
             {.id = "payment", .title = moneyOut, .width = 112, .least = 78, .isSortable = true},
         .value = EntryColumn::Money{[](const Row& row) { return row.payment(); }, true}},
        {.head = {.id = "deposit", .title = moneyIn, .width = 112, .least = 78, .isSortable = true},
         .value = EntryColumn::Money{[](const Row& row) { return row.deposit(); }, true},
         .dress = dressDeposit},
        {.head =
             {.id = "balance", .title = "Balance", .width = 122, .least = 78, .isSortable = true},
         .value = EntryColumn::Money{[](const Row& row) { return row.balance; }}}};
}

} // namespace

const Columns<RegisterRow>& registerColumns(bool isLiability) {
    static const Columns<Row> owned = makeColumns("Payment", "Deposit");
    static const Columns<Row> owed = makeColumns("Charge", "Payment");
    return isLiability ? owed : owned;
}

} // namespace oakfen
