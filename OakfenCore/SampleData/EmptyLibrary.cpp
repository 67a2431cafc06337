#include "OakfenCore/SampleData/EmptyLibrary.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace oakfen {

namespace {

struct ExpenseCategory {
    std::string_view name;
    std::vector<std::string_view> children;
    bool isTaxRelated = false;
};

constexpr std::array<std::string_view, 6> incomeNames{
    "Salary", "Bonus", "Interest Income", "Dividend Income", "Other Income", "Gifts Received",
};
constexpr std::string_view untaxedIncomeName = "Gifts Received";
constexpr std::string_view deductibleExpenseName = "Charity";

const std::vector<ExpenseCategory>& expenseCategories() {
    static const std::vector<ExpenseCategory> table{
        {"Auto & Transport",
         {"Fuel", "Auto Insurance", "Parking", "Public Transit", "Service & Parts"}},
        {"Bills & Utilities",
         {"Electricity", "Internet", "Mobile Phone", "Natural Gas", "Streaming"}},
        {"Food & Dining", {"Groceries", "Restaurants", "Coffee Shops"}},
        {"Home", {"Mortgage Interest", "Home Insurance", "Property Tax", "Home Improvement"}},
        {"Health & Fitness", {"Pharmacy", "Dentist", "Gym"}},
        {"Shopping", {"Clothing", "Electronics", "Household"}},
        {"Entertainment", {"Movies & Events", "Hobbies"}},
        {"Travel", {}},
        {"Personal Care", {}},
        {"Gifts & Donations", {"Charity", "Gifts"}},
        {"Fees & Charges", {"Bank Fees", "Interest Paid"}},
        {"Taxes", {"Income Tax", "CPP & EI"}, true},
        {"Education", {}, true},
        {"Pets", {}},
    };
    return table;
}

Category makeCategory(std::string_view name, CategoryKind kind, std::optional<UUID> parentID,
                      bool isTaxRelated) {
    return {UUID::random(), std::string(name), kind, parentID, isTaxRelated};
}

} // namespace

std::vector<Category> makeDefaultCategories() {
    std::vector<Category> categories;
    for (const std::string_view name : incomeNames) {
        categories.push_back(
            makeCategory(name, CategoryKind::income, std::nullopt, name != untaxedIncomeName));
    }
    for (const auto& [name, children, isTaxRelated] : expenseCategories()) {
        categories.push_back(makeCategory(name, CategoryKind::expense, std::nullopt, isTaxRelated));
        const UUID parentID = categories.back().id;
        for (const std::string_view child : children) {
            categories.push_back(makeCategory(child, CategoryKind::expense, parentID,
                                              isTaxRelated || child == deductibleExpenseName));
        }
    }
    return categories;
}

Library emptyLibrary(std::string currencyCode) {
    Library library{.currencyCode = std::move(currencyCode)};
    library.categories = SharedArray<Category>(makeDefaultCategories());
    return library;
}

} // namespace oakfen
