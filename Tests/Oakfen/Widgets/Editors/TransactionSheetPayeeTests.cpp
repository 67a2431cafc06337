#include "Tests/Oakfen/Widgets/Editors/TransactionSheetFixture.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::makeTransaction;
using TransactionSheetPayee = testing::TransactionSheetFixture;

TEST_F(TransactionSheetPayee, ReturnFillsInAKnownPayeeAndThenSaves) {
    openNew();
    type("corner shop");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(named<PayeeField>("Payee")->text(), QStringLiteral("Corner Shop"));
    EXPECT_EQ(named<AmountField>("Amount")->value(), amount("40.25"));
    EXPECT_EQ(named<CategoryPicker>("Category")->chosenID(), food.id);
    EXPECT_EQ(focusName(), "Amount");
    type("12");
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(last().amount, amount("-12"));
    EXPECT_EQ(last().categoryID, food.id);
}

TEST_F(TransactionSheetPayee, FillsNothingInOverADateThatCannotBeRead) {
    openNew();
    auto* date = named<DateField>("Date");
    date->setText(QStringLiteral("31/02/2026"));
    type("Corner Shop");
    press(Qt::Key_Return);
    if (payeeList()->isVisible()) {
        press(Qt::Key_Return);
    }
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(date->text(), QStringLiteral("31/02/2026"));
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(TransactionSheetPayee, ReturnInAFilledInPayeeSaves) {
    openNew();
    type("corner shop");
    press(Qt::Key_Return);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focusName(), "Payee");
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(TransactionSheetPayee, ReturnInAnUnknownPayeeSaves) {
    openNew();
    type("Bakery");
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(last().payee, "Bakery");
}

TEST_F(TransactionSheetPayee, ACompletionIsTakenWithTheKeyboard) {
    openNew();
    type("shop");
    ASSERT_TRUE(payeeList()->isVisible());
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(payeeList()->isVisible());
    EXPECT_EQ(dialog->editor().draft.payee, "Corner Shop");
    EXPECT_EQ(dialog->editor().amount, amount("40.25"));
    EXPECT_EQ(focusName(), "Amount");
}

TEST_F(TransactionSheetPayee, ReturnWhileOnlyOfferingClosesTheList) {
    openNew();
    type("shop");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(payeeList()->isVisible());
    EXPECT_EQ(dialog->editor().draft.payee, "shop");
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(TransactionSheetPayee, EscapeClosesTheListBeforeTheSheet) {
    openNew();
    type("shop");
    press(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(payeeList()->isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(TransactionSheetPayee, TabLeavesTheListAndTheFieldAtOnce) {
    openNew();
    type("shop");
    ASSERT_TRUE(payeeList()->isVisible());
    press(Qt::Key_Tab);
    EXPECT_FALSE(payeeList()->isVisible());
    EXPECT_EQ(focusName(), "Amount");
    EXPECT_EQ(dialog->editor().draft.payee, "shop");
    EXPECT_EQ(dialog->editor().amount, Decimal());
}

TEST_F(TransactionSheetPayee, CtrlReturnSavesWithTheListOpen) {
    openNew();
    type("shop");
    ASSERT_TRUE(payeeList()->isVisible());
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(entryCount(), 2U);
    EXPECT_EQ(last().payee, "shop");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(TransactionSheetPayee, ACompletionOnAnExistingEntryChangesOnlyThePayee) {
    test.store->mutate("Add", [this](Library& library) {
        upsert(library, makeTransaction(everyday.id, day(2026, 3, 5), "Bakery", "-5"));
    });
    openEdit(shop.id);
    type("bak");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(stored(shop.id).payee, "Bakery");
    EXPECT_EQ(stored(shop.id).amount, amount("-40.25"));
    EXPECT_EQ(stored(shop.id).categoryID, food.id);
}

} // namespace oakfen
