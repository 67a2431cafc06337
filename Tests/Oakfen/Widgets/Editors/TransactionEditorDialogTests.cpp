#include "Oakfen/Widgets/Editors/TransactionEditorDialog.h"

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Tests/Oakfen/Widgets/Editors/TransactionSheetFixture.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::makeTransaction;
using TransactionSheet = testing::TransactionSheetFixture;
using Kind = TransactionEditor::Kind;

TEST_F(TransactionSheet, APaymentIsTypedAndSavedWithReturn) {
    openNew();
    EXPECT_EQ(focusName(), "Payee");
    EXPECT_FALSE(dialog->primaryButton()->isEnabled());
    type("Bakery");
    tabTo("Amount");
    type("4.50");
    tabTo("Category");
    type("foo");
    press(Qt::Key_Tab);
    tabTo("Memo");
    type("bread");
    press(Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(last().payee, "Bakery");
    EXPECT_EQ(last().amount, amount("-4.5"));
    EXPECT_EQ(last().categoryID, food.id);
    EXPECT_EQ(last().memo, "bread");
    EXPECT_EQ(last().date, test.clock.now());
    EXPECT_EQ(last().accountID, everyday.id);
}

TEST_F(TransactionSheet, ACalculatedAmountIsRoundedToTheCent) {
    openNew();
    type("Dinner");
    tabTo("Amount");
    type("100/3");
    press(Qt::Key_Return);
    EXPECT_EQ(last().amount, amount("-33.33"));
}

TEST_F(TransactionSheet, AnAmountThatNobodyTouchesKeepsItsHiddenDigits) {
    const auto restore = [this] {
        test.store->mutate("Spoil", [this](Library& library) {
            shop.amount = amount("-33.333333");
            upsert(library, shop);
        });
    };
    restore();
    openEdit(shop.id);
    tabTo("Memo");
    type("a third");
    press(Qt::Key_Return);
    EXPECT_EQ(stored(shop.id).memo, "a third");
    EXPECT_EQ(stored(shop.id).amount, amount("-33.333333"));
    restore();
    openEdit(shop.id);
    tabTo("Amount");
    type("33.339");
    press(Qt::Key_Return);
    EXPECT_EQ(stored(shop.id).amount, amount("-33.34"));
}

TEST_F(TransactionSheet, TabFollowsTheReadingOrder) {
    openNew();
    std::string order = focusName();
    for (int step = 0; step < 12; ++step) {
        press(Qt::Key_Tab);
        order += "|" + focusName();
    }
    // Save has nothing to do yet and is passed over.
    EXPECT_EQ(order, "Payee|Amount|Category|Split Across Categories…|Memo|Cheque #|Tags|Status|"
                     "Cancel|Payment|Account|Date|Payee");
    for (int step = 0; step < 3; ++step) {
        press(Qt::Key_Backtab);
    }
    EXPECT_EQ(focusName(), "Payment");
}

TEST_F(TransactionSheet, TheArrowKeysChooseTheType) {
    openNew();
    tabTo("Payment");
    press(Qt::Key_Right);
    EXPECT_EQ(dialog->editor().kind(), Kind::deposit);
    EXPECT_EQ(focusName(), "Deposit");
    press(Qt::Key_Right);
    EXPECT_EQ(dialog->editor().kind(), Kind::transfer);
    EXPECT_NE(named<AccountPicker>("To Account"), nullptr);
    EXPECT_EQ(named<CategoryPicker>("Category"), nullptr);
    press(Qt::Key_Left);
    EXPECT_EQ(dialog->editor().kind(), Kind::deposit);
    EXPECT_NE(named<CategoryPicker>("Category"), nullptr);
}

TEST_F(TransactionSheet, ATransferIsEnteredInEitherDirection) {
    for (const bool isIn : {false, true}) {
        openNew();
        type("Moved");
        tabTo("Payment");
        press(Qt::Key_Right);
        press(Qt::Key_Right);
        ASSERT_EQ(dialog->editor().kind(), Kind::transfer);
        tabTo("Amount");
        type("60");
        EXPECT_FALSE(dialog->primaryButton()->isEnabled());
        press(Qt::Key_Tab);
        EXPECT_EQ(focusName(), "Money Out");
        if (isIn) {
            press(Qt::Key_Right);
        }
        tabTo(isIn ? "From Account" : "To Account");
        type("avin");
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_TRUE(dialog->primaryButton()->isEnabled());
        press(Qt::Key_Return);
        EXPECT_FALSE(dialog->isVisible());
        const UUID id = dialog->editor().draft.id;
        EXPECT_EQ(stored(id).amount, amount(isIn ? "60" : "-60"));
        EXPECT_EQ(stored(id).transferAccountID, savings.id);
        EXPECT_EQ(stored(*stored(id).transferID).amount, amount(isIn ? "-60" : "60"));
    }
}

TEST_F(TransactionSheet, AnAmountThatCannotBeReadHoldsTheSaveAndSaysWhy) {
    openEdit(shop.id);
    tabTo("Amount");
    type("12+");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("“12+” isn’t an amount."));
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
    type("12+3");
    press(Qt::Key_Return);
    EXPECT_EQ(stored(shop.id).amount, amount("-15"));
}

TEST_F(TransactionSheet, SavingAnUntouchedEntryOfAClosedAccountMovesNothing) {
    Transaction moved = makeTransaction(everyday.id, day(2026, 3, 3), "Moved", "-75");
    moved.transferAccountID = savings.id;
    moved.memo = "two\nlines";
    test.store->mutate("Add", [&](Library& library) {
        upsert(library, moved);
        library.accounts.edit(0).isClosed = true;
        library.accounts.edit(1).isClosed = true;
    });
    const Library before = test.library();
    openEdit(moved.id);
    EXPECT_EQ(named<AccountPicker>("Account")->currentText(), QStringLiteral("Everyday"));
    EXPECT_EQ(named<AccountPicker>("To Account")->currentText(), QStringLiteral("Savings"));
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(test.library(), before);
}

TEST_F(TransactionSheet, AnotherDayKeepsTheTimeOfDay) {
    openEdit(shop.id);
    tabTo("Date");
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(stored(shop.id).date, day(2026, 3, 2, 9));
}

TEST_F(TransactionSheet, TabTakesTheTypedCategoryAndGoesOnAtOnce) {
    openNew();
    tabTo("Category");
    type("foo");
    ASSERT_NE(named<CategoryPicker>("Category")->list(), nullptr);
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Split Across Categories…");
    EXPECT_EQ(dialog->editor().draft.categoryID, food.id);
    EXPECT_EQ(named<CategoryPicker>("Category")->currentText(), QStringLiteral("Food"));
}

TEST_F(TransactionSheet, AMatchFromTheListIsTakenWithTheKeyboard) {
    openNew();
    tabTo("Category");
    type("o");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Split Across Categories…");
    EXPECT_EQ(dialog->editor().draft.categoryID, home.id);
}

TEST_F(TransactionSheet, ADateThatCannotBeReadHoldsTheSave) {
    openEdit(shop.id);
    tabTo("Date");
    type("2/30");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("Date: “2/30” isn’t a date."));
    EXPECT_EQ(focusName(), "Date");
    type("2/28");
    press(Qt::Key_Return);
    EXPECT_EQ(stored(shop.id).date, day(2026, 2, 28, 9));
}

TEST_F(TransactionSheet, TheStateIsChosenWithTheKeyboard) {
    openEdit(shop.id);
    tabTo("Status");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::cleared);
}

TEST_F(TransactionSheet, DeletesAnEntryOnceConfirmed) {
    openNew();
    EXPECT_EQ(dialog->destructiveButton(), nullptr);
    openEdit(shop.id);
    tabTo("Delete Transaction");
    test.panels.confirms = false;
    press(Qt::Key_Space);
    EXPECT_EQ(entryCount(), 1U);
    test.panels.confirms = true;
    press(Qt::Key_Space);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(entryCount(), 0U);
}

TEST_F(TransactionSheet, ASavedEntryIsShownAndSelectedInTheRegister) {
    test.store->mutate("Add", [this](Library& library) {
        for (int number = 0; number < 60; ++number) {
            upsert(library,
                   makeTransaction(everyday.id, day(2026, 2, 1 + (number % 28)), "Old", "-1"));
        }
    });
    RegisterWidget screen(*test, everyday.id);
    screen.resize(1000, 400);
    screen.show();
    QApplication::processEvents();
    openNew();
    dialog->editor().draft.date = day(2026, 1, 5);
    type("Bakery");
    press(Qt::Key_Return);
    const UUID id = dialog->editor().draft.id;
    EXPECT_EQ(*screen.view().content()->selection, UUIDSet{id});
    const QModelIndex current = screen.table()->currentIndex();
    EXPECT_EQ(current.row(), screen.table()->model()->rowCount() - 1);
    EXPECT_TRUE(screen.table()->viewport()->rect().intersects(screen.table()->visualRect(current)));
}

} // namespace oakfen
