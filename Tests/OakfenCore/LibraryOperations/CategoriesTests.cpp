#include "OakfenCore/LibraryOperations/Categories.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeCategory;
using testing::makeTransaction;

TEST(UpsertCategory, AppendsThenReplacesInPlace) {
    Library library{.currencyCode = "CAD"};
    Category food = makeCategory("Food");
    const Category home = makeCategory("Home");
    upsert(library, food);
    upsert(library, home);
    food.isTaxRelated = true;
    upsert(library, food);
    EXPECT_EQ(library.categories, (SharedArray<Category>{food, home}));
}

/// A document with a tree of three levels.
class DeleteCategoryTest : public ::testing::Test {
protected:
    const UUID accountID = UUID::random();
    const Category top = makeCategory("Top");
    const Category middle = makeCategory("Middle", CategoryKind::expense, top.id);
    const Category leaf = makeCategory("Leaf", CategoryKind::expense, middle.id);
    Library library = [this] {
        Library document{.currencyCode = "CAD"};
        document.categories = {top, middle, leaf};
        return document;
    }();
};

TEST_F(DeleteCategoryTest, MovesSubcategoriesUpOneLevel) {
    deleteCategory(library, middle.id);
    ASSERT_EQ(library.categories.size(), 2U);
    EXPECT_EQ(library.categories[0], top);
    EXPECT_EQ(library.categories[1].id, leaf.id);
    EXPECT_EQ(library.categories[1].parentID, top.id);
}

TEST_F(DeleteCategoryTest, MakesSubcategoriesOfATopLevelOneTopLevel) {
    deleteCategory(library, top.id);
    EXPECT_EQ(library.categories[0].parentID, std::nullopt);
    EXPECT_EQ(library.categories[1].parentID, middle.id);
}

TEST_F(DeleteCategoryTest, LeavesWhatWasFiledThereUncategorised) {
    Transaction filed = makeTransaction(accountID, day(2024, 1, 1), "Shop", "-5");
    filed.categoryID = leaf.id;
    Transaction elsewhere = filed;
    elsewhere.id = UUID::random();
    elsewhere.categoryID = middle.id;
    library.transactions = {filed, elsewhere};
    ScheduledTransaction reminder{.id = UUID::random(), .accountID = accountID};
    reminder.categoryID = leaf.id;
    library.scheduled = {reminder};

    deleteCategory(library, leaf.id);
    EXPECT_EQ(library.transactions[0].categoryID, std::nullopt);
    EXPECT_EQ(library.transactions[1].categoryID, middle.id);
    EXPECT_EQ(library.scheduled[0].categoryID, std::nullopt);
}

TEST_F(DeleteCategoryTest, KeepsSplitLinesWithTheirAmounts) {
    Transaction split = makeTransaction(accountID, day(2024, 1, 1), "Shop", "-8");
    split.splits = {{UUID::random(), leaf.id, "a", amount("-5")},
                    {UUID::random(), top.id, "b", amount("-3")}};
    library.transactions = {split};
    deleteCategory(library, leaf.id);
    split.splits[0].categoryID.reset();
    EXPECT_EQ(library.transactions, (SharedArray<Transaction>{split}));
}

TEST_F(DeleteCategoryTest, RemovesItsOwnBudgetOnly) {
    library.budget = {{middle.id, amount("100")}, {leaf.id, amount("40")}};
    deleteCategory(library, middle.id);
    EXPECT_EQ(library.budget, (std::map<UUID, Decimal>{{leaf.id, amount("40")}}));
}

TEST_F(DeleteCategoryTest, DoesNothingForAnUnknownID) {
    const UUID unknown = UUID::random();
    Transaction dangling = makeTransaction(accountID, day(2024, 1, 1), "Shop", "-5");
    dangling.categoryID = unknown;
    library.transactions = {dangling};
    library.budget[unknown] = amount("1");
    const Library before = library;
    deleteCategory(library, unknown);
    EXPECT_EQ(library, before);
}

/// Two categories named Groceries, the first under Travel.
class CategoryNamedTest : public ::testing::Test {
protected:
    const Category travel = makeCategory("Travel");
    const Category food = makeCategory("Food");
    const Category travelGroceries = makeCategory("Groceries", CategoryKind::expense, travel.id);
    const Category foodGroceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    const Category withColon = makeCategory("Odd: Name");
    const Library library = [this] {
        Library document{.currencyCode = "CAD"};
        document.categories = {travel, food, travelGroceries, foodGroceries, withColon};
        return document;
    }();

    [[nodiscard]] std::optional<UUID> found(std::string_view path) const {
        const Category* const category = categoryNamed(library, path);
        return category == nullptr ? std::nullopt : std::optional(category->id);
    }
};

TEST_F(CategoryNamedTest, FindsALeafUnderItsParentWithoutRegardToCase) {
    EXPECT_EQ(found("Food : groceries"), foodGroceries.id);
    EXPECT_EQ(found("fOOD:GROCERIES"), foodGroceries.id);
    EXPECT_EQ(found("Travel: Groceries"), travelGroceries.id);
}

TEST_F(CategoryNamedTest, FindsTheFirstOfAnyParentForALeafAlone) {
    EXPECT_EQ(found("groceries"), travelGroceries.id);
    EXPECT_EQ(found(" \tGroceries "), travelGroceries.id);
    EXPECT_EQ(found(":Groceries:"), travelGroceries.id);
}

TEST_F(CategoryNamedTest, ChecksOnlyTheNearestParent) {
    EXPECT_EQ(found("Nowhere: Food: Groceries"), foodGroceries.id);
}

TEST_F(CategoryNamedTest, FindsTheFirstLeafWhenNoParentFits) {
    EXPECT_EQ(found("Other: Groceries"), travelGroceries.id);
    EXPECT_EQ(found(" : Groceries"), travelGroceries.id);
}

TEST_F(CategoryNamedTest, FindsNothingWithoutAName) {
    EXPECT_EQ(found(""), std::nullopt);
    EXPECT_EQ(found(":"), std::nullopt);
    EXPECT_EQ(found(" : "), std::nullopt);
    EXPECT_EQ(found("Food: "), std::nullopt);
}

TEST_F(CategoryNamedTest, FindsNothingForAnUnknownName) {
    EXPECT_EQ(found("Food: Restaurants"), std::nullopt);
}

TEST_F(CategoryNamedTest, CannotReachANameWithAColon) {
    EXPECT_EQ(found("Odd: Name"), std::nullopt);
}

TEST_F(CategoryNamedTest, PassesOverACandidateWhoseParentIsUnknown) {
    Library document = library;
    document.categories = {makeCategory("Groceries", CategoryKind::expense, UUID::random()), food,
                           foodGroceries};
    const Category* const category = categoryNamed(document, "Food: Groceries");
    ASSERT_NE(category, nullptr);
    EXPECT_EQ(category->id, foodGroceries.id);
}

} // namespace
} // namespace oakfen
