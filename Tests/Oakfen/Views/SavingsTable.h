#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Oakfen/Views/TableColumns.h"
#include "OakfenCore/Support/Time/Calendar.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen::testing {

/// A row with a value of each kind.
struct SavingsRow {
    UUID id = UUID::random();
    std::string name = {};
    Decimal amount = {};
    Decimal shares = {};
    Date day = {};
    bool isChosen = false;
    RowKind kind = RowKind::entry;

    friend bool operator==(const SavingsRow&, const SavingsRow&) = default;
};

using SavingsColumn = Column<SavingsRow>;

inline SavingsColumn nameColumn() {
    return {.head = {.id = "name",
                     .title = "Name",
                     .width = 200,
                     .least = 90,
                     .stretches = true,
                     .isSearched = true,
                     .isSortable = true},
            .value = SavingsColumn::Text{
                [](const SavingsRow& row) -> std::string_view { return row.name; }}};
}

inline SavingsColumn amountColumn() {
    return {.head = {.id = "amount", .title = "Amount", .isSortable = true, .isEditable = true},
            .value = SavingsColumn::Money{[](const SavingsRow& row) { return row.amount; }, true}};
}

inline SavingsColumn sharesColumn() {
    return {.head = {.id = "shares", .title = "Shares", .isSortable = true},
            .value = SavingsColumn::Figures{[](const SavingsRow& row) { return row.shares; }, 3}};
}

inline SavingsColumn dayColumn() {
    return {.head = {.id = "day", .title = "Day", .isSortable = true},
            .value = SavingsColumn::Day{[](const SavingsRow& row) { return row.day; }}};
}

inline SavingsColumn chosenColumn() {
    return {.head = {.id = "chosen", .spoken = "Chosen", .width = 36},
            .value = SavingsColumn::Tick{[](const SavingsRow& row) { return row.isChosen; }}};
}

/// In Canadian dollars and universal time.
inline std::shared_ptr<const Table<SavingsRow>> savingsTable(const Columns<SavingsRow>& columns,
                                                             std::vector<SavingsRow> rows) {
    return std::make_shared<const Table<SavingsRow>>(columns, std::move(rows), nullptr,
                                                     CellContext{"CAD", Calendar::utc()});
}

} // namespace oakfen::testing
