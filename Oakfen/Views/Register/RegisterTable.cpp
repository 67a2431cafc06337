#include "Oakfen/Views/Register/RegisterTable.h"

#include <algorithm>

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

const RegisterRow& entryOf(const RegisterRow& row) {
    return row;
}

const RegisterRow& entryOf(const FoundEntry& found) {
    return *found.row;
}

/// The state shows as a mark.
template <typename Row>
void dressState(Cell& cell, const Row& row, const CellContext& /*context*/) {
    const ClearedBadge badge = clearedBadge(entryOf(row).cleared);
    cell = {.symbolName = std::string(badge.symbolName),
            .spoken = std::string(badge.tooltip),
            .tone = badge.tone};
}

template <typename Row>
void dressPayee(Cell& cell, const Row& row, const CellContext& /*context*/) {
    cell.detail = drawnText(entryOf(row).memo);
    cell.toolTip = entryOf(row).memo;
}

/// A word for the line that is drawn between what was and what is to come.
template <typename Row>
void dressDate(Cell& cell, const Row& row, const CellContext& context) {
    if (entryOf(row).date > context.endOfToday) {
        cell.description = "Upcoming";
    }
}

template <typename Row>
void dressCategory(Cell& cell, const Row& row, const CellContext& /*context*/) {
    if (entryOf(row).isTransfer) {
        cell.tone = TextTone::information;
    } else if (entryOf(row).categoryName == uncategorizedName) {
        cell.tone = TextTone::warning;
    }
}

template <typename Row>
void dressTags(Cell& cell, const Row& /*row*/, const CellContext& /*context*/) {
    cell.tone = TextTone::secondary;
}

template <typename Row>
void dressDeposit(Cell& cell, const Row& row, const CellContext& /*context*/) {
    if (entryOf(row).amount.isPositive()) {
        cell.tone = TextTone::positive;
    }
}

/// What all lists of entries show of an entry.
template <typename Row>
Columns<Row> entryColumns(std::string_view moneyOut, std::string_view moneyIn) {
    using EntryColumn = Column<Row>;
    return {
        {.head = {.id = "cleared", .spoken = "Cleared", .width = 34, .isSortable = true},
         .value =
             typename EntryColumn::Text{[](const Row& row) { return title(entryOf(row).cleared); }},
         .dress = dressState<Row>},
        {.head = {.id = "date", .title = "Date", .width = 92, .isSortable = true},
         .value = typename EntryColumn::Day{[](const Row& row) { return entryOf(row).date; }},
         .dress = dressDate<Row>},
        {.head = {.id = "number",
                  .title = "Num",
                  .width = 56,
                  .least = 44,
                  .isSortable = true,
                  .mayBeEmpty = true},
         .value = typename EntryColumn::Text{[](const Row& row) -> std::string_view {
                                                 return entryOf(row).checkNumber;
                                             },
                                             true}},
        {.head = {.id = "payee",
                  .title = "Payee",
                  .width = 260,
                  .least = 150,
                  .stretches = true,
                  .isSearched = true,
                  .isSortable = true},
         .value = typename EntryColumn::Text{[](const Row& row) -> std::string_view {
             return entryOf(row).payee;
         }},
         .dress = dressPayee<Row>},
        {.head =
             {.id = "category", .title = "Category", .width = 210, .least = 96, .isSortable = true},
         .value = typename EntryColumn::Text{[](const Row& row) -> std::string_view {
             return entryOf(row).categoryName;
         }},
         .dress = dressCategory<Row>},
        {.head = {.id = "tags", .title = "Tags", .width = 80, .least = 46, .mayBeEmpty = true},
         .value = typename EntryColumn::Composed{[](const Row& row) {
             return joined(entryOf(row).tags, ", ");
         }},
         .dress = dressTags<Row>},
        // Words can be cut short where figures can't; these give away their spare room only.
        {.head =
             {.id = "payment", .title = moneyOut, .width = 112, .least = 78, .isSortable = true},
         .value = typename EntryColumn::Money{[](const Row& row) { return entryOf(row).payment(); },
                                              true}},
        {.head = {.id = "deposit", .title = moneyIn, .width = 112, .least = 78, .isSortable = true},
         .value = typename EntryColumn::Money{[](const Row& row) { return entryOf(row).deposit(); },
                                              true},
         .dress = dressDeposit<Row>}};
}

Columns<RegisterRow> withBalance(Columns<RegisterRow> columns) {
    columns.push_back(
        {.head =
             {.id = "balance", .title = "Balance", .width = 122, .least = 78, .isSortable = true},
         .value = Column<RegisterRow>::Money{[](const RegisterRow& row) { return row.balance; }}});
    return columns;
}

Columns<FoundEntry> withAccount(Columns<FoundEntry> columns) {
    const auto afterDate =
        std::ranges::find(columns, "date", [](const auto& each) { return each.head.id; }) + 1;
    columns.insert(
        afterDate,
        {.head =
             {.id = "account", .title = "Account", .width = 170, .least = 120, .isSortable = true},
         .value = Column<FoundEntry>::Text{[](const FoundEntry& row) { return row.accountName; }}});
    return columns;
}

} // namespace

const Columns<RegisterRow>& registerColumns(bool isLiability) {
    static const auto owned = withBalance(entryColumns<RegisterRow>("Payment", "Deposit"));
    static const auto owed = withBalance(entryColumns<RegisterRow>("Charge", "Payment"));
    return isLiability ? owed : owned;
}

const Columns<FoundEntry>& foundColumns() {
    static const auto columns = withAccount(entryColumns<FoundEntry>("Money Out", "Money In"));
    return columns;
}

} // namespace oakfen
