#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "OakfenCore/LibraryOperations/Categories.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::makeCategory;

/// Food with Groceries, Travel, and an income category that is called Gifts as an expense is.
class CategoryForPath : public ::testing::Test {
protected:
    const Category food = makeCategory("Food");
    const Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    const Category gifts = makeCategory("Gifts");
    const Category giftIncome = makeCategory("Gifts", CategoryKind::income);
    Library library = [this] {
        Library document{.currencyCode = "CAD"};
        document.categories = {food, groceries, gifts, giftIncome};
        return document;
    }();

    [[nodiscard]] const Category& named(std::string_view path,
                                        CategoryKind kind = CategoryKind::expense) {
        const UUID id = categoryFor(library, path, kind).value();
        return *library.categories.first([&](const Category& each) { return each.id == id; });
    }
};

TEST_F(CategoryForPath, IsTheOneThatIsThere) {
    EXPECT_EQ(named("groceries").id, groceries.id);
    EXPECT_EQ(named(" food :  GROCERIES ").id, groceries.id);
    EXPECT_EQ(named("Food: ").id, food.id);
    EXPECT_EQ(library.categories.size(), 4U);
}

TEST_F(CategoryForPath, IsMadeOfTheKindWhereItIsMissing) {
    const Category vet = named("Vet");
    EXPECT_EQ(vet.name, "Vet");
    EXPECT_EQ(vet.kind, CategoryKind::expense);
    EXPECT_FALSE(vet.parentID);
    EXPECT_EQ(named("Bonus", CategoryKind::income).kind, CategoryKind::income);
    EXPECT_EQ(library.categories.size(), 6U);
}

TEST_F(CategoryForPath, IsMadeWithTheParentThatIsMissing) {
    const Category vet = named("Pets: Vet", CategoryKind::income);
    const Category pets = named("Pets");
    EXPECT_EQ(vet.parentID, pets.id);
    EXPECT_EQ(vet.kind, CategoryKind::income);
    EXPECT_EQ(pets.kind, CategoryKind::income);
    EXPECT_EQ(library.categories.size(), 6U);
    EXPECT_EQ(named("pets:vet").id, vet.id);
}

TEST_F(CategoryForPath, IsOfItsParentsKind) {
    const Category organic = named("food: Organic", CategoryKind::income);
    EXPECT_EQ(organic.parentID, food.id);
    EXPECT_EQ(organic.kind, CategoryKind::expense);
}

TEST_F(CategoryForPath, IsMadeBeneathTheParentOfItsKindWhereTwoHaveTheName) {
    EXPECT_EQ(named("Gifts: Birthday", CategoryKind::income).parentID, giftIncome.id);
    EXPECT_EQ(named("Gifts: Wedding", CategoryKind::expense).parentID, gifts.id);
}

TEST_F(CategoryForPath, IsAnotherOneBeneathAnotherParent) {
    const Category market = named("Travel: Groceries");
    EXPECT_NE(market.id, groceries.id);
    EXPECT_EQ(market.parentID, named("Travel").id);
}

TEST_F(CategoryForPath, IsNoneForAPathThatIsEmptyOrTooLong) {
    EXPECT_EQ(categoryFor(library, " : ", CategoryKind::expense), std::nullopt);
    EXPECT_EQ(categoryFor(library, "A: B: C", CategoryKind::expense), std::nullopt);
    EXPECT_EQ(library.categories.size(), 4U);
}

TEST(CategoryFor, IsFoundAgainByItsPathInAnyDocument) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        Library library = testing::RandomLibrary(seed).make(20);
        const std::size_t before = library.categories.size();
        const auto made = categoryFor(library, "Zebra: Stripes", CategoryKind::income);
        ASSERT_TRUE(made);
        EXPECT_EQ(library.categories.size(), before + 2);
        EXPECT_EQ(categoryFor(library, "zebra:stripes", CategoryKind::expense), made);
        EXPECT_EQ(library.categories.size(), before + 2);
    }
}

} // namespace
} // namespace oakfen
