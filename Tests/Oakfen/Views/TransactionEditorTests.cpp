#include "Oakfen/Views/TransactionEditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

using testing::LocaleForTest;
using testing::amount;
using testing::day;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::makeAccount;
using testing::makeCategory;
using testing::makeTransaction;
using testing::TestEnvironment;
using Kind = TransactionEditor::Kind;

namespace {

class TransactionEditing : public ::testing::Test {
protected:
    TransactionEditing() {
        test.store->mutate("Add", [this](Library& library) {
            for (const Account& account : {savings, everyday, card}) {
                library.accounts.push_back(account);
            }
            for (const Category& category : {food, home, salary}) {
                library.categories.push_back(category);
            }
            upsert(library, shop);
        });
        test.undoManager->removeAllActions();
    }

    void enter(const Transaction& entry) {
        test.store->mutate("Enter", [&](Library& library) { upsert(library, entry); });
        test.undoManager->removeAllActions();
    }

    [[nodiscard]] TransactionEditor newEntry() {
        return {*test, ActiveSheet::NewTransaction{everyday.id}};
    }
    [[nodiscard]] TransactionEditor newEntry(std::string payee) {
        TransactionEditor editor = newEntry();
        editor.draft.payee = std::move(payee);
        return editor;
    }
    [[nodiscard]] TransactionEditor edit(const UUID& id) {
        return {*test, ActiveSheet::EditTransaction{id}};
    }

    [[nodiscard]] const Transaction& stored(const UUID& id) const {
        return *test.index().transaction(id);
    }
    [[nodiscard]] std::size_t entryCount() const { return test.library().transactions.size(); }

    [[nodiscard]] Transaction splitEntry(std::string payee, std::string_view first,
                                         std::string_view second) const {
        Transaction entry = makeTransaction(everyday.id, day(2026, 3, 2), std::move(payee), "0");
        entry.splits = {
            {.id = UUID::random(), .categoryID = food.id, .memo = "a", .amount = amount(first)},
            {.id = UUID::random(), .categoryID = home.id, .memo = "b", .amount = amount(second)}};
        return entry;
    }
    [[nodiscard]] Transaction transfer(std::string_view value) const {
        Transaction entry = makeTransaction(everyday.id, day(2026, 3, 3), "Moved", value);
        entry.transferAccountID = savings.id;
        return entry;
    }

    /// A transfer from the everyday account's side only, so that it is the one remembered.
    void rememberLoneLeg(std::string_view value) {
        test.store->mutate("Remember", [&](Library& library) {
            Transaction leg = transfer(value);
            leg.date = day(2026, 3, 4 + static_cast<int>(entryCount()));
            library.transactions.push_back(leg);
        });
    }

    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    Account card = makeAccount("Card", AccountType::creditCard);
    Category food = makeCategory("Food");
    Category home = makeCategory("Home");
    Category salary = makeCategory("Salary", CategoryKind::income);
    Transaction shop = shopEntry();
    TestEnvironment test;

private:
    [[nodiscard]] Transaction shopEntry() const {
        Transaction entry = makeTransaction(everyday.id, day(2026, 3, 1, 9), "Shop", "-40.25");
        entry.categoryID = food.id;
        entry.memo = "weekly";
        entry.checkNumber = "12";
        entry.tags = {"Tax", "Home"};
        entry.importID = "bank-1";
        return entry;
    }
};

std::vector<std::string> titles(const std::vector<PickerRow>& rows) {
    std::vector<std::string> result;
    for (const PickerRow& row : rows) {
        result.push_back(row.title);
    }
    return result;
}

} // namespace

TEST(TransactionEditorKinds, HaveNamesForTheDocumentAndForPeople) {
    std::string names;
    for (const Kind kind : allCases<Kind>) {
        names += std::string(rawValue(kind)) + "=" + std::string(title(kind)) + " ";
    }
    EXPECT_EQ(names, "payment=Payment deposit=Deposit transfer=Transfer ");
}

TEST_F(TransactionEditing, ANewEntryStartsEmptyAndToday) {
    const TransactionEditor editor = newEntry();
    EXPECT_TRUE(editor.isNew());
    EXPECT_EQ(editor.title(), "New Transaction");
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

TEST_F(TransactionEditing, WithoutABankAccountANewEntryTakesTheFirstOpenOne) {
    test.store->mutate("Close", [](Library& library) {
        library.accounts.edit(0).isClosed = true;
        library.accounts.edit(1).isClosed = true;
    });
    const TransactionEditor editor(*test, ActiveSheet::NewTransaction{});
    EXPECT_EQ(editor.accountSelection, card.id);
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

TEST_F(TransactionEditing, LoadsSplitLinesInTheDirectionOfTheirKind) {
    const Transaction payment = splitEntry("Market", "-30", "5");
    const Transaction deposit = splitEntry("Payroll", "1000", "-200");
    enter(payment);
    enter(deposit);
    const TransactionEditor paid = edit(payment.id);
    EXPECT_TRUE(paid.useSplits);
    EXPECT_THAT(paid.splits, ElementsAre(TransactionEditor::SplitDraft{payment.splits[0].id,
                                                                       food.id, "a", amount("30")},
                                         TransactionEditor::SplitDraft{
                                             payment.splits[1].id, home.id, "b", amount("-5")}));
    const TransactionEditor received = edit(deposit.id);
    EXPECT_EQ(received.kind(), Kind::deposit);
    EXPECT_EQ(received.splits[0].amount, amount("1000"));
    EXPECT_EQ(received.splitsTotal(), amount("800"));
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

TEST_F(TransactionEditing, SuggestsPayeesThatHoldTheTermInAnyCase) {
    enter(makeTransaction(everyday.id, day(2026, 3, 2), "Corner Shop", "-1"));
    enter(makeTransaction(everyday.id, day(2026, 3, 2), "Bakery", "-1"));
    EXPECT_THAT(newEntry(" SHOP\t").payeeSuggestions(), ElementsAre("Corner Shop", "Shop"));
    EXPECT_THAT(newEntry("Shop").payeeSuggestions(), ElementsAre("Corner Shop"));
    EXPECT_THAT(newEntry(" ").payeeSuggestions(), IsEmpty());
    EXPECT_THAT(newEntry("Grocer").payeeSuggestions(), IsEmpty());
}

TEST_F(TransactionEditing, SuggestsTheFirstEightPayeesOnly) {
    for (char letter = 'a'; letter <= 'j'; ++letter) {
        enter(makeTransaction(everyday.id, day(2026, 3, 2), std::string("Store ") + letter, "-1"));
    }
    const auto suggestions = newEntry("store").payeeSuggestions();
    ASSERT_EQ(suggestions.size(), 8U);
    EXPECT_EQ(suggestions.front(), "Store a");
    EXPECT_EQ(suggestions.back(), "Store h");
}

TEST_F(TransactionEditing, AMemorizedPayeeFillsInANewEntry) {
    TransactionEditor editor = newEntry(" shop ");
    EXPECT_TRUE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.draft.payee, "Shop");
    EXPECT_EQ(editor.amount, amount("40.25"));
    EXPECT_EQ(editor.draft.categoryID, food.id);
    EXPECT_EQ(editor.kind(), Kind::payment);
    EXPECT_EQ(editor.draft.memo, "");
}

TEST_F(TransactionEditing, AMemorizedPayeeLeavesATypedAmount) {
    TransactionEditor editor = newEntry("Shop");
    editor.amount = amount("7");
    editor.applyMemorizedPayee();
    EXPECT_EQ(editor.amount, amount("7"));
    EXPECT_EQ(editor.draft.categoryID, food.id);
}

TEST_F(TransactionEditing, AnUnknownPayeeFillsInNothing) {
    TransactionEditor editor = newEntry("Somebody");
    EXPECT_FALSE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.draft.payee, "Somebody");
    EXPECT_EQ(editor.amount, Decimal());
}

TEST_F(TransactionEditing, AMemorizedPayeeNeverChangesAnExistingEntry) {
    enter(makeTransaction(everyday.id, day(2026, 3, 9), "Bakery", "-5"));
    TransactionEditor editor = edit(shop.id);
    editor.draft.payee = "bakery";
    EXPECT_FALSE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.draft.payee, "bakery");
    EXPECT_EQ(editor.amount, amount("40.25"));
    EXPECT_EQ(editor.draft.categoryID, food.id);
}

TEST_F(TransactionEditing, AMemorizedDepositBecomesADeposit) {
    enter(makeTransaction(everyday.id, day(2026, 3, 9), "Payroll", "900"));
    TransactionEditor editor = newEntry("Payroll");
    editor.applyMemorizedPayee();
    EXPECT_EQ(editor.kind(), Kind::deposit);
    EXPECT_EQ(editor.amount, amount("900"));
}

TEST_F(TransactionEditing, AMemorizedTransferGoesTheSameWay) {
    rememberLoneLeg("75");
    TransactionEditor editor = newEntry("moved");
    EXPECT_TRUE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.kind(), Kind::transfer);
    EXPECT_EQ(editor.transferSelection, savings.id);
    EXPECT_TRUE(editor.transferIn);
    EXPECT_EQ(editor.amount, amount("75"));
    rememberLoneLeg("-60");
    editor.applyMemorizedPayee();
    EXPECT_FALSE(editor.transferIn);
    EXPECT_TRUE(editor.canSave());
}

TEST_F(TransactionEditing, AMemorizedTransferToTheSelectedAccountCountsByItsCategory) {
    rememberLoneLeg("75");
    TransactionEditor editor(*test, ActiveSheet::NewTransaction{savings.id});
    editor.draft.payee = "Moved";
    editor.draft.categoryID = food.id;
    EXPECT_TRUE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.kind(), Kind::deposit);
    EXPECT_FALSE(editor.transferSelection);
    EXPECT_FALSE(editor.draft.categoryID);
}

TEST_F(TransactionEditing, AMemorizedSplitComesWithNewLines) {
    const Transaction market = splitEntry("Market", "-30", "5");
    enter(market);
    TransactionEditor editor = newEntry("market");
    editor.applyMemorizedPayee();
    EXPECT_TRUE(editor.useSplits);
    EXPECT_EQ(editor.kind(), Kind::payment);
    ASSERT_EQ(editor.splits.size(), 2U);
    EXPECT_EQ(editor.splits[0].categoryID, food.id);
    EXPECT_EQ(editor.splits[0].memo, "a");
    EXPECT_EQ(editor.splits[0].amount, amount("30"));
    EXPECT_EQ(editor.splits[1].amount, amount("-5"));
    EXPECT_NE(editor.splits[0].id, market.splits[0].id);
    editor.save();
    EXPECT_EQ(stored(editor.draft.id).amount, amount("-25"));
    EXPECT_EQ(stored(market.id).splits, market.splits);
}

TEST_F(TransactionEditing, EveryKindNeedsAPayee) {
    TransactionEditor editor = newEntry(" \t");
    editor.amount = amount("5");
    editor.transferSelection = savings.id;
    for (const Kind kind : allCases<Kind>) {
        editor.setKind(kind);
        EXPECT_EQ(editor.obstacle(), "Enter a payee.") << rawValue(kind);
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

TEST_F(TransactionEditing, ATransferCannotBeSavedOnceItsAccountBecomesTheOtherOne) {
    const Transaction out = transfer("-75");
    enter(out);
    TransactionEditor editor = edit(out.id);
    editor.accountSelection = savings.id;
    EXPECT_FALSE(editor.canSave());
    EXPECT_THAT(titles(editor.transferChoices()),
                ElementsAre("Banking", "Everyday", "Credit", "Card"));
}

TEST_F(TransactionEditing, SplitLinesMustAddUpToAnAmount) {
    TransactionEditor editor = newEntry("Market");
    editor.splitAcrossCategories();
    EXPECT_FALSE(editor.canSave());
    editor.splits[0].amount = amount("10");
    editor.splits[1].amount = amount("-10");
    EXPECT_EQ(editor.obstacle(), "The split lines must add up to an amount.");
    editor.splits[1].amount = amount("-3");
    EXPECT_TRUE(editor.canSave());
    editor.splits.clear();
    EXPECT_EQ(editor.obstacle(), "Add a split line.");
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

TEST_F(TransactionEditing, ATransferOfASplitEntryHasNoSplits) {
    const Transaction market = splitEntry("Market", "-30", "5");
    enter(market);
    TransactionEditor editor = edit(market.id);
    editor.setKind(Kind::transfer);
    editor.transferSelection = savings.id;
    EXPECT_FALSE(editor.useSplits);
    editor.save();
    EXPECT_FALSE(stored(market.id).isSplit());
    EXPECT_EQ(stored(market.id).amount, amount("-25"));
}

TEST_F(TransactionEditing, ChangingToATransferAndBackKeepsTheLinesButShowsOneCategory) {
    TransactionEditor editor = newEntry("Market");
    editor.splitAcrossCategories();
    editor.setKind(Kind::transfer);
    editor.setKind(Kind::payment);
    EXPECT_FALSE(editor.useSplits);
    EXPECT_EQ(editor.splits.size(), 2U);
}

TEST_F(TransactionEditing, SplittingStartsWithTheWholeAmountInItsCategory) {
    TransactionEditor editor = edit(shop.id);
    editor.splits = {{.id = UUID::random(), .memo = "earlier"}};
    editor.splitAcrossCategories();
    EXPECT_TRUE(editor.useSplits);
    ASSERT_EQ(editor.splits.size(), 2U);
    EXPECT_EQ(editor.splits[0].categoryID, food.id);
    EXPECT_EQ(editor.splits[0].amount, amount("40.25"));
    EXPECT_EQ(editor.splits[0].memo, "");
    EXPECT_FALSE(editor.splits[1].categoryID);
    EXPECT_EQ(editor.splits[1].amount, Decimal());
    EXPECT_NE(editor.splits[0].id, editor.splits[1].id);
}

TEST_F(TransactionEditing, SplitLinesAreAddedAndRemoved) {
    TransactionEditor editor = edit(shop.id);
    editor.splitAcrossCategories();
    editor.addSplitLine();
    ASSERT_EQ(editor.splits.size(), 3U);
    EXPECT_EQ(editor.splits[2], (TransactionEditor::SplitDraft{.id = editor.splits[2].id}));
    const UUID last = editor.splits[2].id;
    editor.removeSplitLine(editor.splits[1].id);
    ASSERT_EQ(editor.splits.size(), 2U);
    EXPECT_EQ(editor.splits[1].id, last);
    EXPECT_EQ(editor.splitLine(last), &editor.splits[1]);
    EXPECT_EQ(editor.splitLine(UUID::random()), nullptr);
}

TEST_F(TransactionEditing, SavesSplitLinesWithTheSignOfTheKindAndWithoutEmptyOnes) {
    TransactionEditor editor = edit(shop.id);
    editor.splitAcrossCategories();
    editor.addSplitLine();
    editor.splits[0].amount = amount("50");
    editor.splits[1].categoryID = home.id;
    editor.splits[1].memo = "returned";
    editor.splits[1].amount = amount("-8");
    editor.save();
    const Transaction& entry = stored(shop.id);
    EXPECT_THAT(entry.splits,
                ElementsAre(Split{editor.splits[0].id, food.id, "", amount("-50")},
                            Split{editor.splits[1].id, home.id, "returned", amount("8")}));
    EXPECT_EQ(entry.amount, amount("-42"));
    EXPECT_FALSE(entry.categoryID);
}

TEST_F(TransactionEditing, RemovingSplitsKeepsTheirTotalAndTheFirstCategory) {
    TransactionEditor editor = edit(shop.id);
    editor.splitAcrossCategories();
    editor.splits[0].categoryID = home.id;
    editor.splits[1].amount = amount("-60.25");
    editor.removeSplits();
    EXPECT_FALSE(editor.useSplits);
    EXPECT_EQ(editor.amount, amount("-20"));
    EXPECT_EQ(editor.draft.categoryID, home.id);
    editor.save();
    EXPECT_EQ(stored(shop.id).amount, amount("-20"));
    EXPECT_FALSE(stored(shop.id).isSplit());
}

TEST_F(TransactionEditing, RemovingSplitsWithoutLinesLeavesNoCategory) {
    TransactionEditor editor = edit(shop.id);
    editor.splitAcrossCategories();
    editor.splits.clear();
    editor.removeSplits();
    EXPECT_EQ(editor.amount, Decimal());
    EXPECT_FALSE(editor.draft.categoryID);
}

TEST_F(TransactionEditing, TellsWhatIsLeftToAssign) {
    const LocaleForTest locale("en_CA");
    TransactionEditor editor = edit(shop.id);
    EXPECT_EQ(editor.remainderText(), "");
    editor.splitAcrossCategories();
    EXPECT_EQ(editor.remainderText(), "");
    editor.splits[0].amount = amount("30");
    EXPECT_EQ(editor.remainderText(), "$10.25 of $40.25 left to assign");
    editor.splits[1].amount = amount("12");
    EXPECT_EQ(editor.remainderText(), "$1.75 more than $40.25");
    editor.amount = Decimal();
    EXPECT_EQ(editor.remainderText(), "");
}

TEST_F(TransactionEditing, KeepsAClosedAccountAmongTheChoices) {
    const Transaction out = transfer("-75");
    enter(out);
    test.store->mutate("Close", [](Library& library) {
        library.accounts.edit(0).isClosed = true;
        library.accounts.edit(1).isClosed = true;
    });
    TransactionEditor editor = edit(out.id);
    EXPECT_THAT(titles(editor.accountChoices()), ElementsAre("Credit", "Card", "Everyday"));
    EXPECT_THAT(titles(editor.transferChoices()), ElementsAre("Credit", "Card", "Savings"));
    const Library before = test.library();
    editor.save();
    EXPECT_EQ(test.library(), before);
}

TEST_F(TransactionEditing, KeepsWhatItHasNoNameFor) {
    TransactionEditor editor = edit(shop.id);
    editor.transferSelection = UUID::random();
    EXPECT_EQ(editor.transferChoices().back(),
              (PickerRow{.title = "Unknown Account", .id = editor.transferSelection}));
    const UUID lost = UUID::random();
    EXPECT_EQ(editor.categoryChoices(lost).back(),
              (PickerRow{.title = "Unknown Category", .id = lost}));
}

TEST_F(TransactionEditing, ListsEachChoiceOnce) {
    const TransactionEditor editor = edit(shop.id);
    EXPECT_EQ(editor.accountChoices(), accountPickerRows(test.index()));
    EXPECT_EQ(editor.categoryChoices(food.id), categoryPickerRows(test.index()));
    EXPECT_EQ(editor.categoryChoices(std::nullopt), categoryPickerRows(test.index()));
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
    EXPECT_EQ(editor.savedText(), "Saved Bakery, $3.00.");
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
    editor.deleteTransaction();
    EXPECT_EQ(entryCount(), 1U);
    EXPECT_EQ(test.undoManager->undoActionName(), "Delete Transaction");
}

} // namespace oakfen
