#include <gmock/gmock.h>

#include <string>

#include "Tests/Oakfen/Views/Editors/TransactionFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {

using testing::amount;
using ::testing::ElementsAre;
using testing::LocaleForTest;
using Kind = TransactionEditor::Kind;
using TransactionSplits = testing::TransactionFixture;

TEST_F(TransactionSplits, LoadsSplitLinesInTheDirectionOfTheirKind) {
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

TEST_F(TransactionSplits, AMemorizedSplitComesWithNewLines) {
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

TEST_F(TransactionSplits, SplitLinesMustAddUpToAnAmount) {
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

/// The largest amount there is: twice that is none.
const Decimal largest = amount(std::string(38, '9') + std::string(127, '0'));

TEST_F(TransactionSplits, LinesThatAddUpToMoreThanAnAmountHoldsCannotBeSaved) {
    TransactionEditor editor = edit(shop.id);
    editor.splitAcrossCategories();
    editor.splits[0].amount = largest;
    EXPECT_TRUE(editor.canSave());
    editor.splits[1].amount = largest;
    EXPECT_EQ(editor.obstacle(), "The split lines add up to more than can be kept.");
}

TEST_F(TransactionSplits, WhatIsNoAmountAfterRemovingTheSplitsCannotBeSaved) {
    for (const Kind kind : {Kind::payment, Kind::deposit, Kind::transfer}) {
        TransactionEditor editor = edit(shop.id);
        editor.splitAcrossCategories();
        editor.splits[0].amount = largest;
        editor.splits[1].amount = largest;
        editor.removeSplits();
        editor.setKind(kind);
        editor.transferSelection = savings.id;
        EXPECT_EQ(editor.obstacle(), "The amount is too large to keep. Enter another.");
        editor.amount = amount("12");
        EXPECT_TRUE(editor.canSave());
    }
}

TEST_F(TransactionSplits, AnEntryThatCannotBeKeptIsRefusedAndTheNextOneIsSaved) {
    TransactionEditor editor = edit(shop.id);
    editor.splitAcrossCategories();
    editor.splits[0].amount = largest;
    editor.splits[1].amount = largest;
    editor.save();
    EXPECT_TRUE(test.store->lastError());
    EXPECT_EQ(stored(shop.id), shop);
    test.store->clearError();
    editor.splits[1].amount = amount("12");
    editor.save();
    test.store->saveNow();
    EXPECT_FALSE(test.store->lastError());
    EXPECT_EQ(stored(shop.id).splits.size(), 2U);
}

TEST_F(TransactionSplits, ATransferOfASplitEntryHasNoSplits) {
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

TEST_F(TransactionSplits, ATransferThatAFileHoldsWithSplitLinesIsATransfer) {
    Transaction leg = transfer("-75");
    leg.splits = splitEntry("Market", "-30", "5").splits;
    test.store->mutate("Load", [&](Library& library) { library.transactions.push_back(leg); });
    TransactionEditor editor = edit(leg.id);
    EXPECT_EQ(editor.kind(), Kind::transfer);
    EXPECT_FALSE(editor.useSplits);
    EXPECT_EQ(editor.amount, amount("75"));
    EXPECT_EQ(editor.remainderText(), "");
    EXPECT_TRUE(editor.canSave());
    editor.amount = amount("80");
    editor.save();
    EXPECT_FALSE(stored(leg.id).isSplit());
    EXPECT_EQ(stored(leg.id).amount, amount("-80"));
    EXPECT_EQ(stored(leg.id).transferAccountID, savings.id);
}

TEST_F(TransactionSplits, ATransferWithSplitLinesThatBecomesAPaymentShowsOneCategory) {
    Transaction leg = transfer("-75");
    leg.splits = splitEntry("Market", "-30", "5").splits;
    test.store->mutate("Load", [&](Library& library) { library.transactions.push_back(leg); });
    TransactionEditor editor = edit(leg.id);
    editor.setKind(Kind::payment);
    EXPECT_FALSE(editor.useSplits);
    editor.save();
    EXPECT_EQ(stored(leg.id).amount, amount("-75"));
    EXPECT_FALSE(stored(leg.id).isSplit());
}

TEST_F(TransactionSplits, ChangingToATransferAndBackKeepsTheLinesButShowsOneCategory) {
    TransactionEditor editor = newEntry("Market");
    editor.splitAcrossCategories();
    editor.setKind(Kind::transfer);
    editor.setKind(Kind::payment);
    EXPECT_FALSE(editor.useSplits);
    EXPECT_EQ(editor.splits.size(), 2U);
}

TEST_F(TransactionSplits, SplittingStartsWithTheWholeAmountInItsCategory) {
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

TEST_F(TransactionSplits, SplitLinesAreAddedAndRemoved) {
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

TEST_F(TransactionSplits, SavesSplitLinesWithTheSignOfTheKindAndWithoutEmptyOnes) {
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

TEST_F(TransactionSplits, RemovingSplitsKeepsTheirTotalAndTheFirstCategory) {
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

TEST_F(TransactionSplits, RemovingSplitsWithoutLinesLeavesNoCategory) {
    TransactionEditor editor = edit(shop.id);
    editor.splitAcrossCategories();
    editor.splits.clear();
    editor.removeSplits();
    EXPECT_EQ(editor.amount, Decimal());
    EXPECT_FALSE(editor.draft.categoryID);
}

TEST_F(TransactionSplits, TellsWhatIsLeftToAssign) {
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

} // namespace oakfen
