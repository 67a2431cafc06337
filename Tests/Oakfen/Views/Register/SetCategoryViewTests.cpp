#include "Oakfen/Views/Register/SetCategoryView.h"

#include "Tests/Oakfen/Views/Register/RegisterFixture.h"

namespace oakfen {

using testing::amount;

class SetCategory : public testing::RegisterFixture {
protected:
    [[nodiscard]] SetCategoryView panel(const UUIDSet& ids) {
        return {*test, std::make_shared<const UUIDSet>(ids)};
    }
    static std::string titles(const SetCategoryView& panel) {
        std::string text;
        for (const PickerLine& line : panel.lines()) {
            text += (text.empty() ? "" : "|") + line.title;
        }
        return text;
    }
    static void choose(SetCategoryView& panel, std::string_view title) {
        for (const PickerLine& line : panel.lines()) {
            if (line.canBeChosen() && line.title == title) {
                panel.choose(line);
                return;
            }
        }
        FAIL() << title;
    }
    void splitUp(const UUID& id) {
        test.store->mutate("Edit", [&](Library& library) {
            Transaction entry = stored(id);
            entry.splits = {{.id = UUID::random(), .amount = entry.amount}};
            upsert(library, entry);
        });
    }
};

TEST_F(SetCategory, SaysForHowManyEntries) {
    EXPECT_EQ(panel({shop.id}).title(), "Categorize 1 Transaction");
    EXPECT_EQ(panel({shop.id, pay.id, rent.id}).title(), "Categorize 3 Transactions");
    EXPECT_EQ(panel({shop.id}).subtitle(), "");
}

TEST_F(SetCategory, SaysThatSplitsWillBeReplacedAndTransfersStay) {
    splitUp(shop.id);
    EXPECT_EQ(panel({shop.id, pay.id}).subtitle(), "1 split will be replaced.");
    splitUp(rent.id);
    EXPECT_EQ(panel({shop.id, rent.id, cardPayment.id}).subtitle(),
              "2 splits will be replaced. 1 transfer stays as it is.");
    EXPECT_EQ(panel({shop.id, rent.id, cardPayment.id}).title(), "Categorize 2 Transactions");
}

TEST_F(SetCategory, FilesAllEntriesInOneStepAndPassesTransfersOver) {
    splitUp(rent.id);
    SetCategoryView chooser = panel({rent.id, pay.id, cardPayment.id});
    EXPECT_EQ(titles(chooser), "Expenses|Food|Income|Salary|No Category|Uncategorized");
    choose(chooser, "Food");
    EXPECT_EQ(stored(rent.id).categoryID, food.id);
    EXPECT_TRUE(stored(rent.id).splits.empty());
    EXPECT_EQ(stored(pay.id).categoryID, food.id);
    EXPECT_FALSE(stored(cardPayment.id).categoryID);
    EXPECT_EQ(undoName(), "Set Category");
    test.undoManager->undo();
    EXPECT_FALSE(stored(pay.id).categoryID);
    EXPECT_TRUE(stored(rent.id).isSplit());
}

TEST_F(SetCategory, CanTakeTheCategoryAway) {
    SetCategoryView chooser = panel({shop.id});
    choose(chooser, "Uncategorized");
    EXPECT_FALSE(stored(shop.id).categoryID);
    EXPECT_TRUE(test.appState->recentCategories().empty());
}

TEST_F(SetCategory, BeginsWithWhatWasChosenLast) {
    for (const char* title : {"Food", "Salary", "Food"}) {
        SetCategoryView chooser = panel({shop.id});
        choose(chooser, title);
    }
    SetCategoryView chooser = panel({pay.id});
    EXPECT_EQ(titles(chooser), "Recent|Food|Salary|Expenses|Food|Income|Salary|"
                               "No Category|Uncategorized");
    EXPECT_EQ(chooser.meantRow(), std::nullopt);
    choose(chooser, "Food");
    EXPECT_EQ(stored(pay.id).categoryID, food.id);
    test.store->mutate("Delete", [this](Library& library) {
        library.categories.eraseIf([this](const Category& each) { return each.id == food.id; });
    });
    EXPECT_EQ(titles(panel({pay.id})), "Recent|Salary|Income|Salary|No Category|Uncategorized");
}

TEST_F(SetCategory, NarrowsTheListDown) {
    test.appState->rememberCategory(food.id);
    SetCategoryView chooser = panel({shop.id});
    chooser.setTypedText("oo");
    EXPECT_EQ(titles(chooser), "Expenses|Food|Create “oo”");
    ASSERT_TRUE(chooser.meantRow());
    chooser.setTypedText("food");
    EXPECT_EQ(titles(chooser), "Expenses|Food");
    chooser.setTypedText("a: b: c");
    EXPECT_EQ(chooser.meantRow(), std::nullopt);
    EXPECT_EQ(titles(chooser), "A category can have one parent, and none above it.");
    EXPECT_EQ(chooser.explanation(), "“a: b: c” isn’t a category. A category can have one parent, "
                                     "and none above it.");
    const Library before = test.library();
    chooser.choose(chooser.lines().front());
    EXPECT_EQ(test.library(), before);
}

TEST_F(SetCategory, MakesACategoryInTheSameStep) {
    const Library before = test.library();
    SetCategoryView chooser = panel({shop.id, rent.id});
    chooser.setTypedText("Home: Rent");
    choose(chooser, "Create “Home: Rent”");
    const UUID made = stored(rent.id).categoryID.value();
    EXPECT_EQ(test.index().categoryName(made), "Home: Rent");
    EXPECT_EQ(test.index().category(made)->kind, CategoryKind::expense);
    EXPECT_EQ(stored(shop.id).categoryID, made);
    EXPECT_EQ(test.appState->recentCategories(), std::vector<UUID>{made});
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
}

TEST_F(SetCategory, MakesACategoryForIncomeWhereMoneyComesIn) {
    SetCategoryView chooser = panel({pay.id, shop.id});
    chooser.setTypedText("Bonus");
    choose(chooser, "Create “Bonus”");
    EXPECT_EQ(test.index().category(stored(pay.id).categoryID.value())->kind, CategoryKind::income);
}

} // namespace oakfen
