#include "Tests/Oakfen/Widgets/Editors/TransactionSheetFixture.h"

namespace oakfen {

using testing::amount;
using testing::day;
using TransactionSheetSeries = testing::TransactionSheetFixture;

TEST_F(TransactionSheetSeries, TenEntriesInARowNeedNoMouse) {
    openNew();
    tabTo("Date");
    const UUID firstID = dialog->editor().draft.id;
    press(Qt::Key_Down);
    tabTo("Payee");
    for (int number = 1; number <= 10; ++number) {
        ASSERT_EQ(focusName(), "Payee");
        type(("Payee " + std::to_string(number)).c_str());
        tabTo("Amount");
        type(std::to_string(number).c_str());
        press(Qt::Key_Return, Qt::ControlModifier);
        ASSERT_TRUE(dialog->isVisible());
        EXPECT_EQ(named<PayeeField>("Payee")->text(), QString());
        EXPECT_EQ(named<AmountField>("Amount")->text(), QStringLiteral("0.00"));
    }
    EXPECT_EQ(entryCount(), 11U);
    EXPECT_EQ(stored(firstID).payee, "Payee 1");
    for (const Transaction* entry : test.index().transactions(everyday.id)) {
        EXPECT_EQ(entry->date, entry->id == shop.id ? shop.date : day(2026, 3, 14));
    }
    EXPECT_EQ(test.index().balance(everyday.id), amount("-95.25"));
    EXPECT_TRUE(tells("Saved Payee 10, -$10.00."));
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(entryCount(), 11U);
}

TEST_F(TransactionSheetSeries, CtrlReturnTakesTheCategoryThatIsStillBeingTyped) {
    openNew();
    type("Bakery");
    tabTo("Category");
    type("foo");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(entryCount(), 2U);
    EXPECT_EQ(last().payee, "Bakery");
    EXPECT_EQ(last().categoryID, food.id);
    EXPECT_EQ(named<CategoryPicker>("Category")->currentText(), QStringLiteral("Uncategorized"));
    EXPECT_EQ(focusName(), "Payee");
}

TEST_F(TransactionSheetSeries, CtrlReturnSaysWhatIsMissing) {
    openNew();
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("Enter a payee."));
    type("x");
    EXPECT_FALSE(tells("Enter a payee."));
}

TEST_F(TransactionSheetSeries, ReturnSaysWhatIsMissingToo) {
    openNew();
    tabTo("Memo");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("Enter a payee."));
}

TEST_F(TransactionSheetSeries, ACategoryThatThereIsNotHoldsTheSaveAndStaysWhereItWasTyped) {
    openEdit(shop.id);
    tabTo("Category");
    type("Grocerys");
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(named<CategoryPicker>("Category")->currentText(), QStringLiteral("Grocerys"));
    EXPECT_FALSE(named<CategoryPicker>("Category")->isReadable());
    EXPECT_EQ(stored(shop.id).categoryID, food.id);
}

TEST_F(TransactionSheetSeries, CtrlReturnInAnExistingEntrySavesAndCloses) {
    openEdit(shop.id);
    tabTo("Memo");
    type("milk");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(stored(shop.id).memo, "milk");
    EXPECT_EQ(entryCount(), 1U);
}

} // namespace oakfen
