#pragma once

#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/Support/Time/Calendar.h"

/// Figures over an interval, both ends included. All rest on the index's category lines, so
/// transfers enter none of them and splits count under their own categories. A total is rounded
/// once, when finished, to the cent.
namespace oakfen {

struct CategoryTotal {
    /// None for what is filed nowhere.
    std::optional<UUID> categoryID = {};
    std::string name;
    Decimal total;

    /// The category's id as text; "uncategorized" for none.
    [[nodiscard]] std::string id() const;

    friend bool operator==(const CategoryTotal&, const CategoryTotal&) = default;
};

struct PayeeTotal {
    std::string payee;
    Decimal total;

    friend bool operator==(const PayeeTotal&, const PayeeTotal&) = default;
};

struct MonthlyCashFlow {
    /// The first instant of the month.
    Date month;
    Decimal income;
    /// Positive for spending; negative in a month of refunds.
    Decimal expenses;

    [[nodiscard]] Decimal net() const { return income - expenses; }

    friend bool operator==(const MonthlyCashFlow&, const MonthlyCashFlow&) = default;
};

/// Net spending by category, or by the tops of the tree; the largest first, then by name and id.
[[nodiscard]] std::vector<CategoryTotal>
spendingByCategory(const LibraryIndex& index, const DateInterval& interval, bool rollUp);

/// Net income likewise.
[[nodiscard]] std::vector<CategoryTotal>
incomeByCategory(const LibraryIndex& index, const DateInterval& interval, bool rollUp);

/// Net spending by payee, as stored; only those above zero, the largest first, then by name.
[[nodiscard]] std::vector<PayeeTotal> spendingByPayee(const LibraryIndex& index,
                                                      const DateInterval& interval);

/// Every month that the ledger covers inside the interval, the oldest first.
[[nodiscard]] std::vector<MonthlyCashFlow>
cashFlow(const LibraryIndex& index, const DateInterval& interval, const Calendar& calendar);

/// The interval narrowed to what the ledger covers: from its first entry or account to its last
/// entry or `now`. Never inverted.
[[nodiscard]] DateInterval clamp(const LibraryIndex& index, const DateInterval& interval);

/// What a budget compares with its target: spending of an expense category, income of any other.
/// With children, meant for the tops of the tree. Not rounded.
[[nodiscard]] Decimal actual(const LibraryIndex& index, const UUID& categoryID,
                             const DateInterval& interval, bool includeChildren);

/// The categories with a budget above zero, by name and id.
[[nodiscard]] std::vector<UUID> budgetedCategoryIDs(const Library& library);

} // namespace oakfen
