#include <gmock/gmock.h>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Oakfen/Views/Editors/TransactionFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {

using testing::amount;
using testing::day;
using ::testing::ElementsAre;
using testing::LocaleForTest;
using testing::makeTransaction;
using testing::TestEnvironment;
using Kind = TransactionEditor::Kind;
using TransactionEditing = testing::TransactionFixture;

TEST(TransactionEditorKinds, HaveTitles) {
    std::string names;
    for (const Kind kind : allCases<Kind>) {
        names += std::string(title(kind)) + " ";
    }
    EXPECT_EQ(names, "Payment Deposit Transfer ");
}

TEST_F(TransactionEditing, ANewEntryStartsEmptyAndToday) {
    const TransactionEditor editor = newEntry();
    EXPECT_TRUE(editor.isNew());
    EXPECT_EQ(editor.title(), "New Transaction");
    EXPECT_EQ(editor.subtitle(), "Ctrl+Return saves and starts the next one.");
    EXPECT_EQ(editor.kind(), Kind::payment);
    EXPECT_EQ(editor.accountSelection, everyday.id);
    EXPECT_EQ(
        editor.draft,
        (Transaction{.id = editor.draft.id, .accountID = everyday.id, .date = test.clock.now()}));
    EXPECT_NE(editor.draft.id, UUID{});
    EXPECT_EQ(editor.amount, Decimal());
    EXPECT_FALSE(editor.useSplits);
    EXPECT_FALSE(editor.canSave());
    EXPECT_FALSE(editor.deleteConfirmation());
}

TEST_F(TransactionEditing, ANewEntryOfNoAccountTakesTheFirstBankAccountByName) {
    const TransactionEditor editor(*test, ActiveSheet::NewTransaction{});
    EXPECT_EQ(editor.accountSelection, everyday.id);
    EXPECT_EQ(editor.draft.accountID, everyday.id);
}

TEST_F(TransactionEditing, ANewEntryOfAnAccountThatIsGoneTakesTheFirstBankAccount) {
    const Account spare = testing::makeAccount("Spare");
    test.store->mutate("New Account", [&](Library& library) { library.accounts.push_back(spare); });
    test.appState->setSelection(SidebarItem::account(spare.id));
    test.store->mutate("Delete Account",
                       [&](Library& library) { deleteAccount(library, spare.id); });
    ASSERT_EQ(test.appState->selectedAccountID(), spare.id);
    const TransactionEditor editor(*test,
                                   ActiveSheet::NewTransaction{test.appState->selectedAccountID()});
    EXPECT_EQ(editor.accountSelection, everyday.id);
    EXPECT_EQ(editor.draft.accountID, everyday.id);
    EXPECT_EQ(editor.accountChoices(), accountPickerRows(test.index()));
}

TEST_F(TransactionEditing, WithoutABankAccountANewEntryTakesTheFirstOpenOne) {
    test.store->mutate("Close", [](Library& library) {
        library.accounts.edit(0).isClosed = true;
        library.accounts.edit(1).isClosed = true;
    });
    const TransactionEditor editor(*test, ActiveSheet::NewTransaction{});
    EXPECT_EQ(editor.accountSelection, card.id);
}

TEST(TransactionEditorWithoutAccounts, OffersNoneForOneThatIsGone) {
    TestEnvironment test;
    const TransactionEditor editor(*test, ActiveSheet::NewTransaction{UUID::random()});
    EXPECT_FALSE(editor.accountSelection);
    EXPECT_TRUE(editor.accountChoices().empty());
}

TEST(TransactionEditorWithoutAccounts, CannotSaveAndDoesNothing) {
    TestEnvironment test;
    TransactionEditor editor(*test, ActiveSheet::NewTransaction{});
    editor.draft.payee = "Shop";
    EXPECT_FALSE(editor.accountSelection);
    EXPECT_EQ(editor.obstacle(), "Choose an account.");
    editor.save();
    EXPECT_TRUE(test.library().transactions.empty());
}

TEST_F(TransactionEditing, LoadsAPayment) {
    const TransactionEditor editor = edit(shop.id);
    EXPECT_FALSE(editor.isNew());
    EXPECT_EQ(editor.title(), "Edit Transaction");
    EXPECT_EQ(editor.subtitle(), "");
    EXPECT_EQ(editor.draft, shop);
    EXPECT_EQ(editor.kind(), Kind::payment);
    EXPECT_EQ(editor.amount, amount("40.25"));
    EXPECT_EQ(editor.tagsText, "Tax, Home");
    EXPECT_TRUE(editor.canSave());
}

TEST_F(TransactionEditing, LoadsADepositAndNothingAsAPayment) {
    const Transaction pay = makeTransaction(everyday.id, day(2026, 3, 2), "Pay", "900");
    const Transaction nothing = makeTransaction(everyday.id, day(2026, 3, 2), "Nothing", "0");
    enter(pay);
    enter(nothing);
    EXPECT_EQ(edit(pay.id).kind(), Kind::deposit);
    EXPECT_EQ(edit(pay.id).amount, amount("900"));
    EXPECT_EQ(edit(nothing.id).kind(), Kind::payment);
}

TEST_F(TransactionEditing, LoadsEitherLegOfATransfer) {
    const Transaction out = transfer("-75");
    enter(out);
    const TransactionEditor leaving = edit(out.id);
    EXPECT_EQ(leaving.kind(), Kind::transfer);
    EXPECT_EQ(leaving.transferSelection, savings.id);
    EXPECT_FALSE(leaving.transferIn);
    EXPECT_EQ(leaving.transferTitle(), "To Account");
    const TransactionEditor arriving = edit(*stored(out.id).transferID);
    EXPECT_EQ(arriving.accountSelection, savings.id);
    EXPECT_TRUE(arriving.transferIn);
    EXPECT_EQ(arriving.amount, amount("75"));
    EXPECT_EQ(arriving.transferTitle(), "From Account");
}

TEST_F(TransactionEditing, AnEntryThatIsGoneIsEnteredAfreshButStillAsAnEdit) {
    TransactionEditor editor = edit(UUID::random());
    EXPECT_FALSE(editor.isNew());
    EXPECT_EQ(editor.accountSelection, everyday.id);
    editor.draft.payee = "Shop";
    editor.save();
    EXPECT_EQ(entryCount(), 2U);
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Transaction");
}

TEST_F(TransactionEditing, OpeningAndSavingChangesNothing) {
    for (const Transaction& entry :
         {transfer("-75"), transfer("75"), splitEntry("Market", "-30", "5"),
          splitEntry("Payroll", "1000", "-200")}) {
        enter(entry);
    }
    const Library before = test.library();
    for (const Transaction& entry : before.transactions) {
        edit(entry.id).save();
    }
    EXPECT_EQ(test.library(), before);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(TransactionEditing, EveryKindNeedsAPayee) {
    TransactionEditor editor = newEntry(" \t");
    editor.amount = amount("5");
    editor.transferSelection = savings.id;
    for (const Kind kind : allCases<Kind>) {
        editor.setKind(kind);
        EXPECT_EQ(editor.obstacle(), "Enter a payee.") << title(kind);
    }
    editor.draft.payee = "x";
    EXPECT_TRUE(editor.canSave());
}

TEST_F(TransactionEditing, APaymentOfNothingCanBeSaved) {
    TransactionEditor editor = newEntry("Shop");
    EXPECT_TRUE(editor.canSave());
    editor.save();
    EXPECT_EQ(stored(editor.draft.id).amount, Decimal());
}

TEST_F(TransactionEditing, ATransferNeedsAnotherAccountAndAnAmount) {
    TransactionEditor editor = newEntry("Moved");
    editor.setKind(Kind::transfer);
    editor.amount = amount("5");
    EXPECT_EQ(editor.obstacle(), "Choose the other account of the transfer.");
    editor.transferSelection = everyday.id;
    EXPECT_FALSE(editor.canSave());
    editor.transferSelection = savings.id;
    EXPECT_TRUE(editor.canSave());
    editor.amount = Decimal();
    EXPECT_EQ(editor.obstacle(), "Enter the amount of the transfer.");
}

TEST_F(TransactionEditing, SavesAPaymentInOneStep) {
    TransactionEditor editor = newEntry(" Bakery\t");
    editor.amount = amount("4.50");
    editor.draft.categoryID = food.id;
    editor.draft.memo = "bread";
    editor.draft.checkNumber = "77";
    editor.draft.cleared = ClearedState::cleared;
    editor.tagsText = "Fun";
    editor.save();
    EXPECT_EQ(stored(editor.draft.id), (Transaction{.id = editor.draft.id,
                                                    .accountID = everyday.id,
                                                    .date = test.clock.now(),
                                                    .payee = "Bakery",
                                                    .amount = amount("-4.5"),
                                                    .categoryID = food.id,
                                                    .memo = "bread",
                                                    .checkNumber = "77",
                                                    .cleared = ClearedState::cleared,
                                                    .tags = {"Fun"}}));
    EXPECT_EQ(test.undoManager->undoActionName(), "New Transaction");
    test.undoManager->undo();
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(TransactionEditing, TheSignComesFromTheKindAlone) {
    TransactionEditor editor = edit(shop.id);
    editor.amount = amount("-12");
    editor.save();
    EXPECT_EQ(stored(shop.id).amount, amount("-12"));
    editor.setKind(Kind::deposit);
    editor.save();
    EXPECT_EQ(stored(shop.id).amount, amount("12"));
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Transaction");
}

TEST_F(TransactionEditing, SavesTagsWithoutBlanksAndStrayCommas) {
    TransactionEditor editor = edit(shop.id);
    editor.tagsText = ", Vacation ,,\t, Tax,Vacation, ";
    editor.save();
    EXPECT_THAT(stored(shop.id).tags, ElementsAre("Vacation", "Tax", "Vacation"));
}

TEST_F(TransactionEditing, SavesATransferBothWays) {
    TransactionEditor editor = newEntry("Moved");
    editor.setKind(Kind::transfer);
    editor.transferSelection = savings.id;
    editor.amount = amount("60");
    editor.draft.categoryID = food.id;
    editor.save();
    const Transaction& out = stored(editor.draft.id);
    EXPECT_EQ(out.amount, amount("-60"));
    EXPECT_FALSE(out.categoryID);
    EXPECT_EQ(stored(*out.transferID).amount, amount("60"));
    EXPECT_EQ(stored(*out.transferID).accountID, savings.id);

    TransactionEditor back = edit(editor.draft.id);
    back.transferIn = true;
    back.save();
    EXPECT_EQ(test.index().balance(everyday.id), amount("19.75"));
    EXPECT_EQ(test.index().balance(savings.id), amount("-60"));
    EXPECT_EQ(entryCount(), 3U);
}

TEST_F(TransactionEditing, ATransferTurnedIntoAPaymentLosesItsTwin) {
    const Transaction out = transfer("-75");
    enter(out);
    TransactionEditor editor = edit(out.id);
    editor.setKind(Kind::payment);
    editor.draft.categoryID = food.id;
    editor.save();
    EXPECT_FALSE(stored(out.id).isTransfer());
    EXPECT_EQ(stored(out.id).amount, amount("-75"));
    EXPECT_EQ(stored(out.id).categoryID, food.id);
    EXPECT_EQ(test.index().balance(savings.id), Decimal());
}

TEST_F(TransactionEditing, TheNextEntryKeepsTheAccountAndTheDay) {
    const LocaleForTest locale("en_CA");
    TransactionEditor editor = newEntry("Bakery");
    editor.accountSelection = card.id;
    editor.draft.date = day(2026, 3, 4, 8);
    editor.amount = amount("3");
    editor.setKind(Kind::deposit);
    editor.tagsText = "Fun";
    const UUID first = editor.draft.id;
    editor.save();
    editor.startNext();
    EXPECT_NE(editor.draft.id, first);
    EXPECT_EQ(editor.draft,
              (Transaction{.id = editor.draft.id, .accountID = card.id, .date = day(2026, 3, 4)}));
    EXPECT_EQ(editor.accountSelection, card.id);
    EXPECT_EQ(editor.kind(), Kind::payment);
    EXPECT_EQ(editor.amount, Decimal());
    EXPECT_EQ(editor.tagsText, "");
    EXPECT_EQ(editor.subtitle(), "Saved Bakery, $3.00.");
}

TEST_F(TransactionEditing, TellsTheRegisterWhatWasSaved) {
    std::vector<UUID> saved;
    const Subscription subscription =
        test.appState->transactionSaved.observe([&](const UUID& id) { saved.push_back(id); });
    TransactionEditor editor = newEntry("Bakery");
    editor.save();
    EXPECT_THAT(saved, ElementsAre(editor.draft.id));
}

TEST_F(TransactionEditing, DeletesAfterAsking) {
    const Transaction out = transfer("-75");
    enter(out);
    TransactionEditor editor = edit(out.id);
    const auto request = editor.deleteConfirmation();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->title, "Delete Transaction?");
    EXPECT_EQ(request->message, "You can undo this with Edit ▸ Undo.");
    editor.performDelete();
    EXPECT_EQ(entryCount(), 1U);
    EXPECT_EQ(test.undoManager->undoActionName(), "Delete Transaction");
}

} // namespace oakfen
