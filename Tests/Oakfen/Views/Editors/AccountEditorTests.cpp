#include "Oakfen/Views/Editors/AccountEditor.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::TestEnvironment;

class AccountEditing : public ::testing::Test {
protected:
    AccountEditing() {
        account_.lowBalanceAlert = amount("100");
        test_.store->mutate("Add", [this](Library& library) {
            library.accounts.push_back(account_);
            library.accounts.push_back(other_);
        });
        test_.undoManager->removeAllActions();
    }

    [[nodiscard]] const Account& stored(const UUID& id) const { return *test_.index().account(id); }

    Account account_ = makeAccount("Everyday");
    Account other_ = makeAccount("Savings", AccountType::savings);
    TestEnvironment test_;
};

TEST_F(AccountEditing, ANewAccountStartsEmptyAndOpensToday) {
    const AccountEditor editor(*test_, std::nullopt);
    EXPECT_TRUE(editor.isNew());
    EXPECT_EQ(editor.draft.name, "");
    EXPECT_EQ(editor.draft.type, AccountType::chequing);
    EXPECT_EQ(editor.draft.openingBalance, Decimal());
    EXPECT_EQ(editor.draft.openingDate, test_.clock.now());
    EXPECT_NE(editor.draft.id, UUID{});
    EXPECT_EQ(editor.title(), "New Account");
    EXPECT_EQ(editor.primaryTitle(), "Add Account");
    EXPECT_FALSE(editor.canSave());
    EXPECT_FALSE(editor.showsClosed());
    EXPECT_FALSE(editor.deleteConfirmation());
}

TEST_F(AccountEditing, TheOpeningBalanceOfADebtSaysWhatItMeans) {
    const LocaleForTest locale("en_CA");
    AccountEditor editor(*test_, std::nullopt);
    for (const AccountType type : allCases<AccountType>) {
        editor.draft.type = type;
        editor.draft.openingBalance = amount("-1250");
        EXPECT_EQ(editor.openingBalanceMeaning(), isLiability(type) ? "You owe $1,250.00." : "");
        editor.draft.openingBalance = amount("1250");
        EXPECT_EQ(editor.openingBalanceMeaning(),
                  isLiability(type) ? "In your favour: $1,250.00." : "");
        editor.draft.openingBalance = Decimal();
        EXPECT_EQ(editor.openingBalanceMeaning(), isLiability(type) ? "You owe nothing." : "");
        editor.draft.openingBalance = Decimal::nan();
        EXPECT_EQ(editor.openingBalanceMeaning(), "");
    }
}

TEST_F(AccountEditing, ADebtThatWasTypedWithoutItsMinusIsTurned) {
    AccountEditor editor(*test_, std::nullopt);
    editor.draft.type = AccountType::creditCard;
    editor.draft.openingBalance = amount("1250");
    editor.turnOpeningBalance();
    EXPECT_EQ(editor.draft.openingBalance, amount("-1250"));
    editor.turnOpeningBalance();
    EXPECT_EQ(editor.draft.openingBalance, amount("1250"));
}

TEST_F(AccountEditing, ANameOfBlanksIsNone) {
    AccountEditor editor(*test_, std::nullopt);
    editor.draft.name = " \t";
    EXPECT_EQ(editor.obstacle(), "Enter a name.");
    editor.draft.name = "x";
    EXPECT_TRUE(editor.canSave());
}

TEST_F(AccountEditing, AnAmountThatIsNoNumberCannotBeSaved) {
    AccountEditor editor(*test_, account_.id);
    for (Decimal* const amount : {&editor.draft.openingBalance, &editor.lowBalance,
                                  &editor.creditLimit, &editor.interestRate}) {
        EXPECT_TRUE(editor.canSave());
        *amount = Decimal::nan();
        EXPECT_EQ(editor.obstacle(), "An amount is too large to keep.");
        *amount = Decimal();
    }
}

TEST_F(AccountEditing, LoadsTheAccountWithItsOptionalFigures) {
    const AccountEditor editor(*test_, account_.id);
    EXPECT_EQ(editor.draft, account_);
    EXPECT_TRUE(editor.hasLowBalanceAlert);
    EXPECT_EQ(editor.lowBalance, amount("100"));
    EXPECT_EQ(editor.creditLimit, Decimal());
    EXPECT_EQ(editor.interestRate, Decimal());
    EXPECT_TRUE(editor.showsClosed());
    EXPECT_EQ(editor.title(), "Edit Account");
    EXPECT_EQ(editor.primaryTitle(), "Save");
}

TEST_F(AccountEditing, SavingANewAccountOpensItsRegister) {
    AccountEditor editor(*test_, std::nullopt);
    editor.draft.name = "  Holidays\t";
    editor.draft.openingBalance = amount("-12.50");
    editor.save();
    EXPECT_EQ(stored(editor.draft.id).name, "Holidays");
    EXPECT_EQ(test_.index().balance(editor.draft.id), amount("-12.5"));
    EXPECT_EQ(test_.appState->selectedAccountID(), editor.draft.id);
    EXPECT_EQ(test_.undoManager->undoActionName(), "New Account");
}

TEST_F(AccountEditing, SavingAnAccountChangesItInPlace) {
    AccountEditor editor(*test_, account_.id);
    editor.draft.name = "Daily";
    editor.draft.isClosed = true;
    editor.save();
    EXPECT_EQ(test_.library().accounts.front().name, "Daily");
    EXPECT_TRUE(stored(account_.id).isClosed);
    EXPECT_EQ(test_.undoManager->undoActionName(), "Edit Account");
    EXPECT_FALSE(test_.appState->selectedAccountID());
}

TEST_F(AccountEditing, SavingWithoutAChangeLeavesNoStep) {
    AccountEditor(*test_, account_.id).save();
    EXPECT_FALSE(test_.undoManager->canUndo());
}

TEST_F(AccountEditing, KeepsAnAlertThresholdOfZero) {
    AccountEditor editor(*test_, account_.id);
    editor.lowBalance = Decimal();
    editor.save();
    EXPECT_EQ(stored(account_.id).lowBalanceAlert, Decimal());
}

TEST_F(AccountEditing, DropsTheAlertWhenItIsSwitchedOff) {
    AccountEditor editor(*test_, account_.id);
    editor.hasLowBalanceAlert = false;
    editor.save();
    EXPECT_FALSE(stored(account_.id).lowBalanceAlert);
}

TEST_F(AccountEditing, DropsTheAlertOfATypeThatHasNone) {
    AccountEditor editor(*test_, account_.id);
    editor.draft.type = AccountType::creditCard;
    editor.save();
    EXPECT_FALSE(stored(account_.id).lowBalanceAlert);
}

TEST_F(AccountEditing, KeepsACreditLimitWhenTheTypeChangesAfterIt) {
    AccountEditor editor(*test_, account_.id);
    editor.draft.type = AccountType::creditCard;
    editor.creditLimit = amount("2500");
    editor.draft.type = AccountType::chequing;
    editor.save();
    EXPECT_EQ(stored(account_.id).creditLimit, amount("2500"));
    EXPECT_EQ(stored(account_.id).lowBalanceAlert, amount("100"));
}

TEST_F(AccountEditing, DropsANegativeLimitAndRate) {
    AccountEditor editor(*test_, account_.id);
    editor.creditLimit = amount("-1");
    editor.interestRate = amount("-0.5");
    editor.save();
    EXPECT_FALSE(stored(account_.id).creditLimit);
    EXPECT_FALSE(stored(account_.id).interestRate);
}

TEST_F(AccountEditing, StoresALimitAndARateAboveZero) {
    AccountEditor editor(*test_, account_.id);
    editor.creditLimit = amount("0.01");
    editor.interestRate = amount("6.25");
    editor.save();
    EXPECT_EQ(stored(account_.id).creditLimit, amount("0.01"));
    EXPECT_EQ(stored(account_.id).interestRate, amount("6.25"));
}

TEST_F(AccountEditing, ShowsTheFieldsOfEachType) {
    AccountEditor editor(*test_, std::nullopt);
    std::string fields;
    for (const AccountType type : allCases<AccountType>) {
        editor.draft.type = type;
        fields += std::string(rawValue(type)) + ":" + (editor.showsCreditLimit() ? "L" : "") +
                  (editor.showsInterestRate() ? "R" : "") +
                  (editor.showsLowBalanceAlert() ? "A" : "") +
                  (editor.openingBalanceHint().empty() ? "" : "H") +
                  (editor.openingBalanceLabel() == "Opening Cash" ? "C" : "") + " ";
    }
    EXPECT_EQ(fields, "chequing:A savings:RA cash:A creditCard:LH lineOfCredit:LRH brokerage:C "
                      "retirement:C asset: liability:H loan:RH ");
}

TEST_F(AccountEditing, HintsAtTheSignOfWhatIsOwed) {
    AccountEditor editor(*test_, std::nullopt);
    editor.draft.type = AccountType::loan;
    EXPECT_EQ(editor.openingBalanceHint(),
              "Enter amounts owed as a negative number, e.g. -1,250.00.");
}

TEST_F(AccountEditing, AsksBeforeDeleting) {
    const auto request = AccountEditor(*test_, account_.id).deleteConfirmation();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->title, "Delete Account?");
    EXPECT_EQ(request->message,
              "All of this account’s transactions will be removed. Transfers to other accounts "
              "stay but become uncategorized. You can undo this with Edit ▸ Undo.");
}

TEST_F(AccountEditing, DeletingTheShownAccountMovesAwayFirst) {
    test_.appState->setSelection(SidebarItem::account(account_.id));
    AccountEditor(*test_, account_.id).performDelete();
    EXPECT_EQ(test_.index().account(account_.id), nullptr);
    EXPECT_EQ(test_.appState->selection(), SidebarItem{});
    EXPECT_EQ(test_.undoManager->undoActionName(), "Delete Account");
}

TEST_F(AccountEditing, DeletingAnotherAccountStaysWhereOneIs) {
    test_.appState->setSelection(SidebarItem::account(other_.id));
    AccountEditor(*test_, account_.id).performDelete();
    EXPECT_EQ(test_.appState->selectedAccountID(), other_.id);
}

} // namespace oakfen
