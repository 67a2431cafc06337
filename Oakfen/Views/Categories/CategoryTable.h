#pragma once

#include <string>

#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// A category of the tree, with what it came to.
struct CategoryRow {
    UUID id;
    std::string name;
    /// It counts its subcategories, which follow it; the others count themselves alone.
    bool isTopLevel = true;
    /// Of the category that a subcategory belongs to.
    std::string parentName;
    bool isTaxRelated = false;
    /// "Budget $130.00/mo"; empty without a budget.
    std::string budget;
    Decimal total;

    friend bool operator==(const CategoryRow&, const CategoryRow&) = default;
};

[[nodiscard]] const Columns<CategoryRow>& categoryColumns();

} // namespace oakfen
