#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace testing;

/// A chain of categories named "1" (the root), "2", ... each below the one before it.
Library chainOf(int depth) {
    Library library{.currencyCode = "CAD"};
    std::optional<UUID> parentID;
    for (int level = 1; level <= depth; ++level) {
        const Category category =
            makeCategory(std::to_string(level), CategoryKind::expense, parentID);
        library.categories.push_back(category);
        parentID = category.id;
    }
    return library;
}

TEST(CategoryPath, JoinsTheNamesFromTheRootDown) {
    Library library{.currencyCode = "CAD"};
    const Category food = makeCategory("Food");
    const Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    library.categories = {groceries, food};
    const auto index = indexOf(library);
    EXPECT_EQ(*index->categoryPath(groceries.id), "Food: Groceries");
    EXPECT_EQ(*index->categoryPath(food.id), "Food");
}

TEST(CategoryPath, HoldsAtMostNineNames) {
    const Library library = chainOf(10);
    const auto index = indexOf(library);
    EXPECT_EQ(*index->categoryPath(library.categories[9].id), "2: 3: 4: 5: 6: 7: 8: 9: 10");
    EXPECT_EQ(*index->categoryPath(library.categories[8].id), "1: 2: 3: 4: 5: 6: 7: 8: 9");
}

TEST(CategoryPath, EndsAtAMissingParentWithoutATrace) {
    Library library{.currencyCode = "CAD"};
    const Category stray = makeCategory("Stray", CategoryKind::expense, UUID::random());
    library.categories = {stray};
    EXPECT_EQ(*indexOf(library)->categoryPath(stray.id), "Stray");
}

TEST(CategoryTree, DoesNotHangOnACircle) {
    Library library{.currencyCode = "CAD"};
    Category left = makeCategory("L");
    const Category right = makeCategory("R", CategoryKind::expense, left.id);
    left.parentID = right.id;
    library.categories = {left, right};
    const auto index = indexOf(library);
    EXPECT_EQ(*index->categoryPath(left.id), "L: R: L: R: L: R: L: R: L");
    EXPECT_EQ(index->topLevelID(left.id), left.id);
    EXPECT_EQ(index->topLevelID(right.id), right.id);
}

TEST(CategoryTree, WalksAtMostEightStepsUpwards) {
    const Library library = chainOf(12);
    const auto index = indexOf(library);
    EXPECT_EQ(index->topLevelID(library.categories[8].id), library.categories[0].id);
    EXPECT_EQ(index->topLevelID(library.categories[11].id), library.categories[3].id);
    EXPECT_EQ(index->topLevelID(library.categories[0].id), library.categories[0].id);
}

TEST(CategoryTree, GivesAMissingParentAsTheRootAndAnUnknownIDAsItself) {
    Library library{.currencyCode = "CAD"};
    const UUID missing = UUID::random();
    const Category stray = makeCategory("Stray", CategoryKind::expense, missing);
    library.categories = {stray};
    const auto index = indexOf(library);
    EXPECT_EQ(index->topLevelID(stray.id), missing);
    EXPECT_EQ(index->topLevelID(missing), missing);
}

TEST(CategoryTree, ListsCategoriesOfAKindByPath) {
    Library library{.currencyCode = "CAD"};
    const Category food = makeCategory("food");
    const Category car = makeCategory("Car");
    library.categories = {makeCategory("Zoo", CategoryKind::expense, car.id),
                          makeCategory("Wages", CategoryKind::income),
                          makeCategory("Bread", CategoryKind::expense, food.id), food, car};
    const auto index = indexOf(library);
    EXPECT_EQ(namesOf(index->sortedCategories(CategoryKind::expense)),
              (Texts{"Car", "Zoo", "food", "Bread"}));
    EXPECT_EQ(namesOf(index->sortedCategories(CategoryKind::income)), (Texts{"Wages"}));
}

TEST(CategoryTree, ListsChildrenAndRootsByName) {
    Library library{.currencyCode = "CAD"};
    const Category food = makeCategory("Food");
    library.categories = {makeCategory("zest", CategoryKind::expense, food.id),
                          makeCategory("Stray", CategoryKind::expense, UUID::random()), food,
                          makeCategory("Apples", CategoryKind::income, food.id),
                          makeCategory("car")};
    const auto index = indexOf(library);
    EXPECT_EQ(namesOf(index->children(food.id)), (Texts{"Apples", "zest"}));
    EXPECT_EQ(namesOf(index->topLevelCategories(CategoryKind::expense)), (Texts{"car", "Food"}));
    EXPECT_TRUE(index->topLevelCategories(CategoryKind::income).empty());
    EXPECT_TRUE(index->children(UUID::random()).empty());
}

TEST(CategoryTree, ListsCategoriesOfOneNameByIDHoweverTheDocumentHoldsThem) {
    std::vector<Category> twins(4);
    for (std::size_t index = 0; index < twins.size(); ++index) {
        twins[index].id.bytes[0] = static_cast<std::uint8_t>(index);
        twins[index].name = index == 3 ? "car" : "Car";
    }
    std::vector<UUID> expected;
    for (const Category& twin : twins) {
        expected.push_back(twin.id);
    }
    const UUID parent = UUID::random();
    for (const auto& order : {std::vector{3, 2, 1, 0}, std::vector{1, 3, 0, 2}}) {
        Library library{.currencyCode = "CAD"};
        for (const int index : order) {
            library.categories.push_back(twins[static_cast<std::size_t>(index)]);
        }
        EXPECT_EQ(idsOf(indexOf(library)->sortedCategories(CategoryKind::expense)), expected);
        EXPECT_EQ(idsOf(indexOf(library)->topLevelCategories(CategoryKind::expense)), expected);
        library.categories.editWhere([](const Category&) { return true; },
                                     [&](Category& category) { category.parentID = parent; });
        EXPECT_EQ(idsOf(indexOf(library)->children(parent)), expected);
    }
}

TEST(CategoryName, IsUncategorizedForNoneAndForADeletedOne) {
    Library library{.currencyCode = "CAD"};
    const Category food = makeCategory("Food");
    library.categories = {food};
    const auto index = indexOf(library);
    EXPECT_EQ(index->categoryName(food.id), "Food");
    EXPECT_EQ(index->categoryName(std::nullopt), "Uncategorized");
    EXPECT_EQ(index->categoryName(UUID::random()), "Uncategorized");
}

TEST(CategoryDescription, NamesTheOtherAccountOfATransferBeforeAllElse) {
    OneAccount ledger;
    const auto index = indexOf(ledger.library);
    Transaction entry = makeTransaction(ledger.id(), today(), "A", "1");
    entry.splits.push_back({.id = UUID::random()});
    entry.transferAccountID = ledger.id();
    EXPECT_EQ(index->categoryDescription(entry), "[Chequing]");
    entry.transferAccountID = UUID::random();
    EXPECT_EQ(index->categoryDescription(entry), "[Deleted Account]");
}

TEST(CategoryDescription, CountsTheLinesOfASplitEntry) {
    OneAccount ledger;
    const Category food = makeCategory("Food");
    ledger.library.categories = {food};
    const auto index = indexOf(ledger.library);
    Transaction entry = makeTransaction(ledger.id(), today(), "A", "1");
    entry.categoryID = food.id;
    EXPECT_EQ(index->categoryDescription(entry), "Food");
    entry.splits.resize(3);
    EXPECT_EQ(index->categoryDescription(entry), "— Split (3) —");
    entry.splits.clear();
    entry.categoryID = UUID::random();
    EXPECT_EQ(index->categoryDescription(entry), "Uncategorized");
}

} // namespace
} // namespace oakfen
