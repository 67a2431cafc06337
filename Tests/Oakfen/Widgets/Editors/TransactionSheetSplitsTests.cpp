#include "Tests/Oakfen/Widgets/Editors/TransactionSheetFixture.h"

namespace oakfen {

using testing::amount;
using TransactionSheetSplits = testing::TransactionSheetFixture;

TEST_F(TransactionSheetSplits, AnEntryIsSplitAndSaved) {
    openEdit(shop.id);
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    EXPECT_TRUE(dialog->editor().useSplits);
    EXPECT_EQ(focusName(), "Category");
    tabTo("Amount");
    type("30");
    EXPECT_TRUE(tells("$10.25 of $40.25 left to assign"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Remove split line");
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Category");
    type("home");
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Memo");
    type("lamp");
    press(Qt::Key_Tab);
    type("10.25");
    EXPECT_FALSE(tells("left to assign"));
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    ASSERT_EQ(stored(shop.id).splits.size(), 2U);
    EXPECT_EQ(stored(shop.id).amount, amount("-40.25"));
    EXPECT_EQ(stored(shop.id).splits[0].categoryID, food.id);
    EXPECT_EQ(stored(shop.id).splits[1].categoryID, home.id);
    EXPECT_EQ(stored(shop.id).splits[1].memo, "lamp");
    EXPECT_EQ(stored(shop.id).splits[1].amount, amount("-10.25"));
}

TEST_F(TransactionSheetSplits, ATransferThatAFileHoldsWithSplitLinesShowsNone) {
    Transaction leg = testing::makeTransaction(everyday.id, shop.date, "Moved", "-75");
    leg.transferAccountID = savings.id;
    leg.splits = {{.id = UUID::random(), .categoryID = food.id, .amount = amount("-30")}};
    test.store->mutate("Load", [&](Library& library) { library.transactions.push_back(leg); });
    openEdit(leg.id);
    ASSERT_NE(named<AmountField>("Amount"), nullptr);
    EXPECT_EQ(named<AmountField>("Amount")->value(), amount("75"));
    EXPECT_NE(named<AccountPicker>("To Account"), nullptr);
    EXPECT_EQ(named<CategoryPicker>("Category"), nullptr);
    for (const QPushButton* button : dialog->findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->isVisible() && button->text() == QStringLiteral("Remove Splits"));
    }
}

TEST_F(TransactionSheetSplits, SplitLinesAreAddedAndRemovedWithTheKeyboard) {
    openEdit(shop.id);
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    tabTo("Add Split Line");
    press(Qt::Key_Space);
    EXPECT_EQ(dialog->editor().splits.size(), 3U);
    EXPECT_EQ(focusName(), "Category");
    std::string order;
    for (int step = 0; step < 6; ++step) {
        press(Qt::Key_Tab);
        order += focusName() + "|";
    }
    EXPECT_EQ(order, "Memo|Amount|Remove split line|Add Split Line|Remove Splits|Memo|");
    tabTo("Remove split line");
    press(Qt::Key_Space);
    EXPECT_EQ(dialog->editor().splits.size(), 2U);
    EXPECT_EQ(focusName(), "Remove split line");
    tabTo("Remove Splits");
    press(Qt::Key_Space);
    EXPECT_FALSE(dialog->editor().useSplits);
    EXPECT_EQ(focusName(), "Category");
    EXPECT_NE(named<AmountField>("Amount"), nullptr);
}

TEST_F(TransactionSheetSplits, ManySplitLinesKeepTheButtonsInSight) {
    openEdit(shop.id);
    dialog->editor().splitAcrossCategories();
    const int height = dialog->height();
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    for (int line = 0; line < 20; ++line) {
        tabTo("Add Split Line");
        press(Qt::Key_Space);
    }
    EXPECT_EQ(dialog->editor().splits.size(), 22U);
    EXPECT_LT(dialog->sizeHint().height(), height + 300);
}

TEST_F(TransactionSheetSplits, AnUnreadableSplitAmountHoldsTheSave) {
    openEdit(shop.id);
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    tabTo("Amount");
    type("x");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("“x” isn’t an amount."));
}

TEST_F(TransactionSheetSplits, AnAmountThatCannotBeReadIsNotSplit) {
    openEdit(shop.id);
    tabTo("Amount");
    type("12+");
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    EXPECT_FALSE(dialog->editor().useSplits);
    EXPECT_EQ(focusName(), "Amount");
}

} // namespace oakfen
