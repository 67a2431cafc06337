#include "OakfenCore/SampleData/EmptyLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace oakfen {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

std::vector<std::string> names(const std::vector<Category>& categories) {
    std::vector<std::string> result;
    for (const Category& category : categories) {
        result.push_back(category.name);
    }
    return result;
}

std::vector<Category> childrenOf(const std::vector<Category>& categories, std::string_view name) {
    const auto parent = std::ranges::find(categories, name, &Category::name);
    EXPECT_NE(parent, categories.end());
    std::vector<Category> children;
    std::ranges::copy_if(categories, std::back_inserter(children),
                         [&](const Category& child) { return child.parentID == parent->id; });
    return children;
}

Category named(const std::vector<Category>& categories, std::string_view name) {
    const auto found = std::ranges::find(categories, name, &Category::name);
    EXPECT_NE(found, categories.end());
    return *found;
}

TEST(DefaultCategories, StandInTheirOrderWithChildrenAfterTheirParents) {
    EXPECT_THAT(
        names(makeDefaultCategories()),
        ElementsAre(
            "Salary", "Bonus", "Interest Income", "Dividend Income", "Other Income",
            "Gifts Received", "Auto & Transport", "Fuel", "Auto Insurance", "Parking",
            "Public Transit", "Service & Parts", "Bills & Utilities", "Electricity", "Internet",
            "Mobile Phone", "Natural Gas", "Streaming", "Food & Dining", "Groceries", "Restaurants",
            "Coffee Shops", "Home", "Mortgage Interest", "Home Insurance", "Property Tax",
            "Home Improvement", "Health & Fitness", "Pharmacy", "Dentist", "Gym", "Shopping",
            "Clothing", "Electronics", "Household", "Entertainment", "Movies & Events", "Hobbies",
            "Travel", "Personal Care", "Gifts & Donations", "Charity", "Gifts", "Fees & Charges",
            "Bank Fees", "Interest Paid", "Taxes", "Income Tax", "CPP & EI", "Education", "Pets"));
}

TEST(DefaultCategories, HaveTheirChildren) {
    const std::vector<Category> categories = makeDefaultCategories();
    EXPECT_THAT(names(childrenOf(categories, "Food & Dining")),
                ElementsAre("Groceries", "Restaurants", "Coffee Shops"));
    EXPECT_THAT(names(childrenOf(categories, "Fees & Charges")),
                ElementsAre("Bank Fees", "Interest Paid"));
    EXPECT_TRUE(childrenOf(categories, "Travel").empty());
    EXPECT_TRUE(childrenOf(categories, "Pets").empty());
}

TEST(DefaultCategories, SixAreIncomeAtTheTopLevel) {
    const std::vector<Category> categories = makeDefaultCategories();
    for (std::size_t index = 0; index < categories.size(); ++index) {
        EXPECT_EQ(categories[index].kind == CategoryKind::income, index < 6)
            << categories[index].name;
    }
    EXPECT_THAT(std::vector(categories.begin(), categories.begin() + 6),
                Each(::testing::Field(&Category::parentID, std::optional<UUID>())));
}

TEST(DefaultCategories, KnowWhichAreTaxRelated) {
    std::vector<std::string> taxRelated;
    for (const Category& category : makeDefaultCategories()) {
        if (category.isTaxRelated) {
            taxRelated.push_back(category.name);
        }
    }
    EXPECT_THAT(taxRelated,
                ElementsAre("Salary", "Bonus", "Interest Income", "Dividend Income", "Other Income",
                            "Charity", "Taxes", "Income Tax", "CPP & EI", "Education"));
    EXPECT_FALSE(named(makeDefaultCategories(), "Gifts").isTaxRelated);
}

TEST(DefaultCategories, HaveNewIDsAtEachCall) {
    const std::vector<Category> first = makeDefaultCategories();
    const std::vector<Category> second = makeDefaultCategories();
    EXPECT_EQ(names(first), names(second));
    UUIDSet ids;
    for (const auto& categories : {first, second}) {
        for (const Category& category : categories) {
            ids.insert(category.id);
        }
    }
    EXPECT_EQ(ids.size(), first.size() + second.size());
}

TEST(EmptyLibrary, HoldsTheDefaultCategoriesAndNothingElse) {
    Library library = emptyLibrary("EUR");
    EXPECT_EQ(library.categories.size(), makeDefaultCategories().size());
    library.categories.clear();
    EXPECT_EQ(library, Library{.currencyCode = "EUR"});
}

} // namespace
} // namespace oakfen
