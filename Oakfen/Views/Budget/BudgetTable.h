#pragma once

#include <optional>
#include <string>

#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// How much of a budget above zero is used up. Always a number: a share that is too large for one
/// is all of it.
[[nodiscard]] double shareOfBudget(const Decimal& actual, const Decimal& budget);

/// What a category is to take up in a month, and what it did.
struct BudgetLine {
    /// The category's.
    UUID id;
    std::string name;
    /// The name of the category above it.
    std::optional<std::string> parent = {};
    CategoryKind kind = CategoryKind::expense;
    /// Zero for none.
    Decimal budget;
    /// Positive for spending on an expense, and for income of the others; not rounded.
    Decimal actual;

    [[nodiscard]] Decimal remaining() const { return budget - actual; }
    /// Only spending can be too much.
    [[nodiscard]] bool isOverspent() const {
        return kind == CategoryKind::expense && remaining().isNegative();
    }
    /// How much of the budget is used up; all of it where there is none to use.
    [[nodiscard]] double fraction() const;

    friend bool operator==(const BudgetLine&, const BudgetLine&) = default;
};

/// A line as a row of a table.
struct BudgetRow {
    BudgetLine line;
    UUID id = line.id;

    friend bool operator==(const BudgetRow&, const BudgetRow&) = default;
};

using BudgetTable = Table<BudgetRow>;

/// "category", "budget", "actual", "remaining" and "progress".
[[nodiscard]] const Columns<BudgetRow>& budgetColumns();

} // namespace oakfen
