#include "Oakfen/Views/Lines/LinesTable.h"

#include <unordered_map>

namespace oakfen {

namespace {

using FigureColumn = Column<FigureRow>;

/// The split that a line of the entry stands for; null for an entry that isn't split.
const Split* splitOf(const LedgerLine& line) {
    for (const Split& split : line.entry.splits) {
        if (&split.amount == &line.amount) {
            return &split;
        }
    }
    return nullptr;
}

void dressPayee(Cell& cell, const FigureRow& row, const CellContext& context) {
    if (row.whole) {
        cell.detail = "split of " + currencyText(row.whole->magnitude(), context.currencyCode);
        cell.keepsDetail = true;
    }
}

void dressCategory(Cell& cell, const FigureRow& row, const CellContext& /*context*/) {
    if (row.categoryName == uncategorizedName) {
        cell.tone = TextTone::warning;
    }
}

FigureColumn dateColumn() {
    return {.head = {.id = "date", .title = "Date", .width = 92, .isSortable = true},
            .value = FigureColumn::Day{[](const FigureRow& row) { return row.date; }}};
}

FigureColumn payeeColumn() {
    return {.head = {.id = "payee",
                     .title = "Payee",
                     .width = 240,
                     .least = 120,
                     .stretches = true,
                     .isSearched = true,
                     .isSortable = true},
            .value = FigureColumn::Text{[](const FigureRow& row) { return row.payee; }},
            .dress = dressPayee};
}

FigureColumn categoryColumn() {
    return {.head = {.id = "category",
                     .title = "Category",
                     .width = 236,
                     .least = 96,
                     .isSortable = true},
            .value = FigureColumn::Text{[](const FigureRow& row) -> std::string_view {
                return row.categoryName;
            }},
            .dress = dressCategory};
}

FigureColumn accountColumn() {
    return {.head = {.id = "account",
                     .title = "Account",
                     .width = 236,
                     .least = 96,
                     .isSortable = true},
            .value = FigureColumn::Text{[](const FigureRow& row) { return row.accountName; }}};
}

FigureColumn amountColumn() {
    return {
        .head = {.id = "amount", .title = "Amount", .width = 112, .least = 78, .isSortable = true},
        .value = FigureColumn::Money{[](const FigureRow& row) { return row.amount; }}};
}

} // namespace

std::vector<FigureRow> rowsOf(const FigureLines& figure, const LibraryIndex& index) {
    std::vector<FigureRow> rows;
    std::unordered_map<std::optional<UUID>, std::string> names;
    forEachLineOf(figure, index, [&](const LedgerLine& line) {
        const Split* split = splitOf(line);
        const Account* account = index.account(line.entry.accountID);
        const auto [name, isNew] = names.try_emplace(line.categoryID);
        if (isNew) {
            name->second = index.categoryName(line.categoryID);
        }
        rows.push_back(
            {.id = split != nullptr ? split->id : line.entry.id,
             .entryID = line.entry.id,
             .date = line.entry.date,
             .payee = line.entry.payee,
             .accountName =
                 account != nullptr ? std::string_view(account->name) : std::string_view(),
             .categoryName = name->second,
             .amount = amountIn(figure, line),
             .whole = split != nullptr ? std::optional(line.entry.amount) : std::nullopt});
    });
    return rows;
}

const Columns<FigureRow>& figureColumns(bool areOfOneCategory) {
    static const Columns<FigureRow> byCategory{dateColumn(), payeeColumn(), categoryColumn(),
                                               amountColumn()};
    static const Columns<FigureRow> byAccount{dateColumn(), payeeColumn(), accountColumn(),
                                              amountColumn()};
    return areOfOneCategory ? byAccount : byCategory;
}

} // namespace oakfen
