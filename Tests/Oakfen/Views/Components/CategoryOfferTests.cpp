#include "Oakfen/Views/Components/CategoryOffer.h"

#include <gtest/gtest.h>

#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::makeCategory;

class CategoryOffers : public ::testing::Test {
protected:
    [[nodiscard]] CategoryOffer offered(std::string_view typed) const {
        return categoryOffer(library, typed);
    }

    const Category food = makeCategory("Food");
    const Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    Library library = [this] {
        Library document{.currencyCode = "CAD"};
        document.categories = {food, groceries};
        return document;
    }();
};

} // namespace

TEST_F(CategoryOffers, AreWhatIsNotThereYet) {
    EXPECT_EQ(offered("Vet").title(), "Create “Vet”");
    EXPECT_EQ(offered(" Pets :Vet ").path, "Pets: Vet");
    EXPECT_EQ(offered("food: Organic").path, "food: Organic");
    EXPECT_EQ(offered("Pets: ").path, "Pets");
    EXPECT_EQ(offered("Vet").known, std::nullopt);
}

TEST_F(CategoryOffers, AreNoneForWhatIsThere) {
    EXPECT_EQ(offered("groceries"), (CategoryOffer{.known = groceries.id}));
    EXPECT_EQ(offered("FOOD: groceries"), (CategoryOffer{.known = groceries.id}));
    EXPECT_EQ(offered("food:"), (CategoryOffer{.known = food.id}));
    EXPECT_EQ(offered(" : "), CategoryOffer{});
    EXPECT_EQ(offered(""), CategoryOffer{});
}

TEST_F(CategoryOffers, NameTheOneThatTheLookupFindsUnderAnotherParent) {
    const CategoryOffer offer = offered("Pets: Groceries");
    EXPECT_EQ(offer.known, groceries.id);
    EXPECT_EQ(offer.path, "Pets: Groceries");
}

TEST_F(CategoryOffers, SayThatTwoLevelsAreTheMost) {
    EXPECT_TRUE(offered("A: B: C").path.empty());
    EXPECT_EQ(offered("A: B: C").remark, "A category can have one parent, and none above it.");
    EXPECT_TRUE(offered("Groceries: Organic").path.empty());
    EXPECT_EQ(offered("groceries: Organic").remark,
              "“Groceries” has a parent, so it can have no subcategories.");
}

TEST_F(CategoryOffers, AreOnOneLine) {
    EXPECT_EQ(offered("Dog\nwalker").path, "Dog walker");
}

TEST_F(CategoryOffers, ArePlannedOnceForEachPath) {
    CategoryPlan plan;
    const UUID vet = plan.plan("Pets: Vet");
    EXPECT_EQ(plan.plan("pets: vet"), vet);
    EXPECT_NE(plan.plan("Pets: Food"), vet);
    EXPECT_TRUE(CategoryPlan().listedAfter({}).empty());
    const std::vector<PickerRow> rows = plan.listedAfter({{.title = "Uncategorized"}});
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_TRUE(rows[1].isHeader);
    EXPECT_EQ(rows[2], (PickerRow{.title = "Pets: Vet", .id = vet}));
}

TEST_F(CategoryOffers, AreMadeWhenThePlanIsCarriedOut) {
    CategoryPlan plan;
    const UUID vet = plan.plan("Pets: Vet");
    const auto made = plan.made(library, vet, CategoryKind::income);
    ASSERT_EQ(library.categories.size(), 4U);
    EXPECT_EQ(library.categories[3].id, made);
    EXPECT_EQ(library.categories[3].name, "Vet");
    EXPECT_EQ(library.categories[3].kind, CategoryKind::income);
    EXPECT_EQ(plan.made(library, vet, CategoryKind::income), made);
    EXPECT_EQ(plan.made(library, food.id, CategoryKind::income), food.id);
    EXPECT_EQ(plan.made(library, std::nullopt, CategoryKind::income), std::nullopt);
    EXPECT_EQ(library.categories.size(), 4U);
}

} // namespace oakfen
