#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/PayeeField.h"
#include "Oakfen/Widgets/RegisterModel.h"
#include "Oakfen/Widgets/RegisterWidget.h"
#include "Oakfen/Widgets/TransactionEditorDialog.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::makeCategory;
using testing::makeTransaction;
using testing::TestEnvironment;
using Kind = TransactionEditor::Kind;

namespace {

/// The sheet over an everyday account, worked by the keyboard alone.
class TransactionSheet : public ::testing::Test {
protected:
    TransactionSheet() {
        shop.categoryID = food.id;
        test.store->mutate("Add", [this](Library& library) {
            for (const Account& account : {everyday, savings}) {
                library.accounts.push_back(account);
            }
            for (const Category& category : {food, home}) {
                library.categories.push_back(category);
            }
            upsert(library, shop);
        });
        test.undoManager->removeAllActions();
    }

    template <typename Sheet>
    void open(const Sheet& sheet) {
        dialog = std::make_unique<TransactionEditorDialog>(*test, TransactionEditor(*test, sheet));
        dialog->show();
        dialog->activateWindow();
        QApplication::processEvents();
    }
    void openNew() { open(ActiveSheet::NewTransaction{everyday.id}); }
    void openEdit(const UUID& id) { open(ActiveSheet::EditTransaction{id}); }

    /// The headless platform activates a list as it opens, but nothing once it has closed.
    void settle() {
        QApplication::processEvents();
        if (dialog->isVisible() && QApplication::activePopupWidget() == nullptr &&
            !dialog->isActiveWindow()) {
            dialog->activateWindow();
            QApplication::processEvents();
        }
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focus = QApplication::activePopupWidget() != nullptr
                             ? QApplication::activePopupWidget()
                             : QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        QTest::keyClick(focus, key, modifiers);
        settle();
    }
    void type(const char* text) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
        settle();
    }
    /// Tabs to the field of that name.
    void tabTo(const char* name) {
        for (int step = 0; step < 40 && focusName() != name; ++step) {
            press(Qt::Key_Tab);
        }
        ASSERT_EQ(focusName(), name);
    }
    static std::string focusName() {
        const QWidget* focus = QApplication::focusWidget();
        if (focus == nullptr) {
            return {};
        }
        const auto* button = qobject_cast<const QAbstractButton*>(focus);
        return utf8(focus->accessibleName().isEmpty() && button != nullptr
                        ? button->text()
                        : focus->accessibleName());
    }

    template <typename Widget>
    Widget* named(const char* name) {
        for (Widget* each : dialog->findChildren<Widget*>()) {
            if (each->accessibleName() == QString::fromUtf8(name) && each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] bool tells(const char* text) const {
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(QString::fromUtf8(text))) {
                return true;
            }
        }
        return false;
    }
    QAbstractItemView* payeeList() { return named<PayeeField>("Payee")->completer()->popup(); }

    [[nodiscard]] const Transaction& last() const { return test.library().transactions.back(); }
    [[nodiscard]] const Transaction& stored(const UUID& id) const {
        return *test.index().transaction(id);
    }
    [[nodiscard]] std::size_t entryCount() const { return test.library().transactions.size(); }

    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    Category food = makeCategory("Food");
    Category home = makeCategory("Home");
    Transaction shop = makeTransaction(everyday.id, day(2026, 3, 1, 9), "Corner Shop", "-40.25");
    TestEnvironment test;
    std::unique_ptr<TransactionEditorDialog> dialog;
};

} // namespace

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

TEST_F(TransactionSheet, TabFollowsTheReadingOrder) {
    openNew();
    std::string order = focusName();
    for (int step = 0; step < 14; ++step) {
        press(Qt::Key_Tab);
        order += "|" + focusName();
    }
    // Save has nothing to do yet and is passed over; a date has three parts to walk through.
    EXPECT_EQ(order, "Payee|Amount|Category|Split Across Categories…|Memo|Cheque #|Tags|Status|"
                     "Cancel|Payment|Account|Date|Date|Date|Payee");
    for (int step = 0; step < 5; ++step) {
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
        type("Sav");
        EXPECT_TRUE(dialog->primaryButton()->isEnabled());
        press(Qt::Key_Return);
        EXPECT_FALSE(dialog->isVisible());
        const UUID id = dialog->editor().draft.id;
        EXPECT_EQ(stored(id).amount, amount(isIn ? "60" : "-60"));
        EXPECT_EQ(stored(id).transferAccountID, savings.id);
        EXPECT_EQ(stored(*stored(id).transferID).amount, amount(isIn ? "-60" : "60"));
    }
}

TEST_F(TransactionSheet, AnEntryIsSplitAndSaved) {
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
    if (focusName() == "Category") { // the list of matches takes the first one
        press(Qt::Key_Tab);
    }
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

TEST_F(TransactionSheet, SplitLinesAreAddedAndRemovedWithTheKeyboard) {
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

TEST_F(TransactionSheet, ManySplitLinesKeepTheButtonsInSight) {
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

TEST_F(TransactionSheet, TenEntriesInARowNeedNoMouse) {
    openNew();
    tabTo("Date");
    const UUID firstID = dialog->editor().draft.id;
    named<DateField>("Date")->setSelectedSection(QDateTimeEdit::DaySection);
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

TEST_F(TransactionSheet, CtrlReturnSaysWhatIsMissing) {
    openNew();
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("Enter a payee."));
    type("x");
    EXPECT_FALSE(tells("Enter a payee."));
}

TEST_F(TransactionSheet, CtrlReturnInAnExistingEntrySavesAndCloses) {
    openEdit(shop.id);
    tabTo("Memo");
    type("milk");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(stored(shop.id).memo, "milk");
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(TransactionSheet, ReturnFillsInAKnownPayeeAndThenSaves) {
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

TEST_F(TransactionSheet, ReturnInAFilledInPayeeSaves) {
    openNew();
    type("corner shop");
    press(Qt::Key_Return);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focusName(), "Payee");
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(TransactionSheet, ReturnInAnUnknownPayeeSaves) {
    openNew();
    type("Bakery");
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(last().payee, "Bakery");
}

TEST_F(TransactionSheet, ACompletionIsTakenWithTheKeyboard) {
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

TEST_F(TransactionSheet, ReturnWhileOnlyOfferingClosesTheList) {
    openNew();
    type("shop");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(payeeList()->isVisible());
    EXPECT_EQ(dialog->editor().draft.payee, "shop");
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(TransactionSheet, EscapeClosesTheListBeforeTheSheet) {
    openNew();
    type("shop");
    press(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(payeeList()->isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(TransactionSheet, CtrlReturnSavesWithTheListOpen) {
    openNew();
    type("shop");
    ASSERT_TRUE(payeeList()->isVisible());
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(entryCount(), 2U);
    EXPECT_EQ(last().payee, "shop");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(TransactionSheet, ACompletionOnAnExistingEntryChangesOnlyThePayee) {
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

TEST_F(TransactionSheet, AnAmountThatCannotBeReadIsNotSplit) {
    openEdit(shop.id);
    tabTo("Amount");
    type("12+");
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    EXPECT_FALSE(dialog->editor().useSplits);
    EXPECT_EQ(focusName(), "Amount");
}

TEST_F(TransactionSheet, AnUnreadableSplitAmountHoldsTheSave) {
    openEdit(shop.id);
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    tabTo("Amount");
    type("x");
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("“x” isn’t an amount."));
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
    named<DateField>("Date")->setSelectedSection(QDateTimeEdit::DaySection);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(stored(shop.id).date, day(2026, 3, 2, 9));
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
    EXPECT_EQ(screen.view().selection, UUIDSet{id});
    const QModelIndex current = screen.table()->currentIndex();
    EXPECT_EQ(current.row(), screen.table()->model()->rowCount() - 1);
    EXPECT_TRUE(screen.table()->viewport()->rect().intersects(screen.table()->visualRect(current)));
}

} // namespace oakfen
