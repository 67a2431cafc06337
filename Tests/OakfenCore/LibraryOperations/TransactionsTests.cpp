#include "OakfenCore/LibraryOperations/Transactions.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeTransaction;

/// A document with three accounts' ids to put entries in.
class TransactionsTest : public ::testing::Test {
protected:
    const UUID a = UUID::random();
    const UUID b = UUID::random();
    const UUID c = UUID::random();
    Library library{.currencyCode = "CAD"};

    [[nodiscard]] Transaction entry(std::string_view amountText) const {
        return makeTransaction(a, day(2024, 3, 1), "Metro", amountText);
    }

    /// Stores a transfer from `a` to `b` and gives the leg in `a` as it is stored.
    Transaction storeTransfer(std::string_view amountText) {
        Transaction leg = entry(amountText);
        leg.transferAccountID = b;
        upsert(library, leg);
        return stored(leg.id);
    }

    [[nodiscard]] Transaction stored(const UUID& id) const {
        const Transaction* const found = library.transactions.first(
            [&](const Transaction& candidate) { return candidate.id == id; });
        EXPECT_NE(found, nullptr);
        return found == nullptr ? Transaction{} : *found;
    }

    [[nodiscard]] bool holds(const UUID& id) const {
        return library.transactions.firstIndex([&](const Transaction& candidate) {
            return candidate.id == id;
        }) != std::nullopt;
    }

    [[nodiscard]] std::size_t countIn(const UUID& accountID) const {
        std::size_t count = 0;
        for (const Transaction& candidate : library.transactions) {
            count += candidate.accountID == accountID ? 1U : 0U;
        }
        return count;
    }
};

TEST_F(TransactionsTest, UpsertAppendsANewEntry) {
    const Transaction first = entry("1");
    const Transaction second = entry("2");
    upsert(library, first);
    upsert(library, second);
    EXPECT_EQ(library.transactions, (SharedArray<Transaction>{first, second}));
}

TEST_F(TransactionsTest, UpsertReplacesTheEntryInPlace) {
    Transaction first = entry("1");
    const Transaction second = entry("2");
    upsert(library, first);
    upsert(library, second);
    first.payee = "Changed";
    upsert(library, first);
    EXPECT_EQ(library.transactions, (SharedArray<Transaction>{first, second}));
}

TEST_F(TransactionsTest, UpsertReplacesOnlyTheFirstEntryWithTheID) {
    const Transaction twice = entry("1");
    library.transactions = {twice, twice};
    Transaction changed = twice;
    changed.memo = "changed";
    upsert(library, changed);
    EXPECT_EQ(library.transactions, (SharedArray<Transaction>{changed, twice}));
}

TEST_F(TransactionsTest, ANewTransferMakesItsOtherLeg) {
    const Transaction leg = storeTransfer("-50");
    ASSERT_EQ(library.transactions.size(), 2U);
    ASSERT_TRUE(leg.transferID);
    const Transaction twin = stored(*leg.transferID);
    EXPECT_EQ(twin.accountID, b);
    EXPECT_EQ(twin.transferAccountID, a);
    EXPECT_EQ(twin.transferID, leg.id);
    EXPECT_EQ(twin.amount, amount("50"));
    EXPECT_EQ(twin.date, leg.date);
    EXPECT_EQ(twin.payee, leg.payee);
    EXPECT_EQ(twin.memo, leg.memo);
    EXPECT_EQ(twin.cleared, ClearedState::uncleared);
}

TEST_F(TransactionsTest, ANewOtherLegTakesNothingThatBelongsToTheFirstAlone) {
    Transaction leg = entry("-50");
    leg.transferAccountID = b;
    leg.cleared = ClearedState::cleared;
    leg.checkNumber = "7";
    leg.tags = {"trip"};
    leg.importID = "i";
    upsert(library, leg);
    const Transaction twin = stored(*stored(leg.id).transferID);
    EXPECT_EQ(twin.cleared, ClearedState::uncleared);
    EXPECT_EQ(twin.checkNumber, "");
    EXPECT_TRUE(twin.tags.empty());
    EXPECT_EQ(twin.importID, std::nullopt);
    EXPECT_EQ(stored(leg.id).tags, leg.tags);
}

TEST_F(TransactionsTest, ATransferIsMadeUnderTheOtherIDThatItNames) {
    Transaction leg = entry("-50");
    leg.transferAccountID = b;
    leg.transferID = UUID::random();
    upsert(library, leg);
    EXPECT_EQ(stored(leg.id).transferID, leg.transferID);
    EXPECT_EQ(stored(*leg.transferID).accountID, b);
}

TEST_F(TransactionsTest, EditingEitherLegMovesTheOtherAndLeavesBothStates) {
    const Transaction leg = storeTransfer("-50");
    setCleared(library, ClearedState::reconciled, {leg.id});
    Transaction twin = stored(*leg.transferID);
    twin.amount = amount("60");
    twin.date = day(2024, 3, 9);
    twin.payee = "Savings";
    twin.memo = "monthly";
    twin.cleared = ClearedState::cleared;
    upsert(library, twin);

    const Transaction followed = stored(leg.id);
    EXPECT_EQ(library.transactions.size(), 2U);
    EXPECT_EQ(followed.amount, amount("-60"));
    EXPECT_EQ(followed.date, twin.date);
    EXPECT_EQ(followed.payee, "Savings");
    EXPECT_EQ(followed.memo, "monthly");
    EXPECT_EQ(followed.cleared, ClearedState::reconciled);
    EXPECT_EQ(stored(twin.id).cleared, ClearedState::cleared);
}

TEST_F(TransactionsTest, ATransferWithAForgottenTwinFindsItThroughTheStoredEntry) {
    Transaction leg = storeTransfer("-50");
    const UUID twinID = leg.transferID.value();
    leg.transferID.reset();
    leg.amount = amount("-55");
    upsert(library, leg);
    EXPECT_EQ(library.transactions.size(), 2U);
    EXPECT_EQ(stored(leg.id).transferID, twinID);
    EXPECT_EQ(stored(twinID).amount, amount("55"));
}

TEST_F(TransactionsTest, ATransferThatNamesAnotherTwinThanTheStoredOneIsPairedWithThat) {
    Transaction leg = storeTransfer("-50");
    const UUID former = leg.transferID.value();
    Transaction other = entry("9");
    other.accountID = b;
    upsert(library, other);
    leg.transferID = other.id;
    upsert(library, leg);
    EXPECT_EQ(stored(leg.id).transferID, other.id);
    EXPECT_EQ(stored(other.id).transferID, leg.id);
    EXPECT_EQ(stored(other.id).amount, amount("50"));
    EXPECT_EQ(stored(former).transferID, leg.id); // left as it was
    EXPECT_EQ(library.transactions.size(), 3U);
}

TEST_F(TransactionsTest, ATransferWhoseTwinIsGoneGetsANewOneUnderTheSameID) {
    const Transaction leg = storeTransfer("-50");
    library.transactions.eraseIf(
        [&](const Transaction& candidate) { return candidate.id == leg.transferID; });
    upsert(library, leg);
    EXPECT_EQ(stored(*leg.transferID).accountID, b);
}

TEST_F(TransactionsTest, AnotherDestinationMovesTheOtherLeg) {
    Transaction leg = storeTransfer("-50");
    leg.transferAccountID = c;
    upsert(library, leg);
    EXPECT_EQ(countIn(b), 0U);
    EXPECT_EQ(stored(*leg.transferID).accountID, c);
    EXPECT_EQ(library.transactions.size(), 2U);
}

TEST_F(TransactionsTest, ATransferThatBecomesOrdinaryLosesItsTwin) {
    Transaction leg = storeTransfer("-50");
    leg.transferAccountID.reset();
    upsert(library, leg);
    ASSERT_EQ(library.transactions.size(), 1U);
    EXPECT_EQ(library.transactions[0].transferID, std::nullopt);
    EXPECT_EQ(library.transactions[0].amount, amount("-50"));
}

TEST_F(TransactionsTest, TheTwinGoesAlsoWhenTheCallerForgotIt) {
    Transaction leg = storeTransfer("-50");
    leg.transferAccountID.reset();
    leg.transferID.reset();
    upsert(library, leg);
    ASSERT_EQ(library.transactions.size(), 1U);
    EXPECT_EQ(library.transactions[0].id, leg.id);
}

TEST_F(TransactionsTest, TheStoredTwinIsDroppedRatherThanTheOneNamed) {
    Transaction leg = storeTransfer("-50");
    const UUID twinID = leg.transferID.value();
    const Transaction bystander = entry("1");
    upsert(library, bystander);
    leg.transferAccountID.reset();
    leg.transferID = bystander.id;
    upsert(library, leg);
    EXPECT_FALSE(holds(twinID));
    EXPECT_TRUE(holds(bystander.id));
}

TEST_F(TransactionsTest, AnEntryThatWasStoredAsNoTransferDropsTheTwinItNames) {
    const Transaction bystander = entry("1");
    upsert(library, bystander);
    Transaction ordinary = entry("2");
    ordinary.transferID = bystander.id;
    upsert(library, ordinary);
    EXPECT_FALSE(holds(bystander.id));
    EXPECT_EQ(stored(ordinary.id).transferID, std::nullopt);
}

TEST_F(TransactionsTest, ATransferHasNeitherCategoryNorSplits) {
    Transaction leg = entry("-50");
    leg.transferAccountID = b;
    leg.categoryID = UUID::random();
    leg.splits = {{UUID::random(), {}, "", amount("-20")}};
    upsert(library, leg);
    const Transaction kept = stored(leg.id);
    EXPECT_EQ(kept.categoryID, std::nullopt);
    EXPECT_TRUE(kept.splits.empty());
    EXPECT_EQ(kept.amount, amount("-50"));
    const Transaction twin = stored(*kept.transferID);
    EXPECT_EQ(twin.categoryID, std::nullopt);
    EXPECT_TRUE(twin.splits.empty());
}

TEST_F(TransactionsTest, AnOrdinaryEntryThatBecomesTheTwinLosesCategoryAndSplits) {
    Transaction other = entry("5");
    other.accountID = b;
    other.categoryID = UUID::random();
    other.splits = {{UUID::random(), {}, "", amount("5")}};
    other.tags = {"kept"};
    library.transactions.push_back(other);
    Transaction leg = entry("-5");
    leg.transferAccountID = b;
    leg.transferID = other.id;
    upsert(library, leg);
    EXPECT_EQ(library.transactions.size(), 2U);
    EXPECT_EQ(stored(other.id).categoryID, std::nullopt);
    EXPECT_TRUE(stored(other.id).splits.empty());
    EXPECT_EQ(stored(other.id).tags, other.tags);
}

TEST_F(TransactionsTest, ATransferToItsOwnAccountIsOrdinary) {
    Transaction leg = entry("-50");
    leg.transferAccountID = a;
    leg.categoryID = UUID::random();
    upsert(library, leg);
    ASSERT_EQ(library.transactions.size(), 1U);
    EXPECT_FALSE(library.transactions[0].isTransfer());
    EXPECT_EQ(library.transactions[0].categoryID, leg.categoryID);
}

TEST_F(TransactionsTest, ATransferThatNamesItselfAsTwinIsStoredOnce) {
    Transaction leg = entry("-50");
    leg.transferAccountID = b;
    leg.transferID = leg.id;
    upsert(library, leg);
    EXPECT_EQ(library.transactions, (SharedArray<Transaction>{leg}));
}

TEST_F(TransactionsTest, ASplitEntryHasTheSumOfItsLinesAndNoCategory) {
    Transaction split = entry("99");
    split.categoryID = UUID::random();
    split.splits = {{UUID::random(), UUID::random(), "", amount("10")},
                    {UUID::random(), {}, "", amount("-3")}};
    upsert(library, split);
    EXPECT_EQ(library.transactions[0].amount, amount("7"));
    EXPECT_EQ(library.transactions[0].categoryID, std::nullopt);
    EXPECT_EQ(library.transactions[0].splits, split.splits);
}

TEST_F(TransactionsTest, AnEntryWithoutLinesKeepsAmountAndCategory) {
    Transaction plain = entry("99");
    plain.categoryID = UUID::random();
    upsert(library, plain);
    EXPECT_EQ(library.transactions, (SharedArray<Transaction>{plain}));
}

TEST_F(TransactionsTest, DeletingOneLegDeletesBoth) {
    const Transaction leg = storeTransfer("-50");
    upsert(library, entry("1"));
    deleteTransactions(library, {*leg.transferID});
    EXPECT_EQ(library.transactions.size(), 1U);
    EXPECT_FALSE(holds(leg.id));
}

TEST_F(TransactionsTest, DeletingBothLegsDeletesTheTwo) {
    const Transaction leg = storeTransfer("-50");
    upsert(library, entry("1"));
    deleteTransactions(library, {leg.id, *leg.transferID});
    EXPECT_EQ(library.transactions.size(), 1U);
}

TEST_F(TransactionsTest, DeletingALegWhoseTwinIsGoneDeletesIt) {
    Transaction leg = entry("-50");
    leg.transferAccountID = b;
    leg.transferID = UUID::random();
    library.transactions.push_back(leg);
    deleteTransactions(library, {leg.id});
    EXPECT_TRUE(library.transactions.empty());
}

TEST_F(TransactionsTest, DeletingUnknownEntriesDoesNothing) {
    upsert(library, entry("1"));
    const Library before = library;
    deleteTransactions(library, {UUID::random()});
    deleteTransactions(library, {});
    EXPECT_EQ(library, before);
}

TEST_F(TransactionsTest, SetClearedLeavesTheOtherLegAlone) {
    const Transaction leg = storeTransfer("-50");
    setCleared(library, ClearedState::cleared, {leg.id, UUID::random()});
    EXPECT_EQ(stored(leg.id).cleared, ClearedState::cleared);
    EXPECT_EQ(stored(*leg.transferID).cleared, ClearedState::uncleared);
}

TEST_F(TransactionsTest, SetCategorySkipsTransfers) {
    const Transaction leg = storeTransfer("-50");
    const Transaction ordinary = entry("1");
    upsert(library, ordinary);
    const UUID food = UUID::random();
    setCategory(library, food, {leg.id, ordinary.id});
    EXPECT_EQ(stored(leg.id).categoryID, std::nullopt);
    EXPECT_EQ(stored(ordinary.id).categoryID, food);
    setCategory(library, std::nullopt, {ordinary.id});
    EXPECT_EQ(stored(ordinary.id).categoryID, std::nullopt);
}

TEST_F(TransactionsTest, SetCategoryDropsSplitsAndKeepsTheTotal) {
    Transaction split = entry("0");
    split.splits = {{UUID::random(), {}, "", amount("10")}, {UUID::random(), {}, "", amount("-3")}};
    upsert(library, split);
    const UUID food = UUID::random();
    setCategory(library, food, {split.id});
    EXPECT_TRUE(library.transactions[0].splits.empty());
    EXPECT_EQ(library.transactions[0].amount, amount("7"));
    EXPECT_EQ(library.transactions[0].categoryID, food);
}

TEST_F(TransactionsTest, EditsLeaveTheOtherChunksShared) {
    std::vector<Transaction> entries;
    for (int count = 0; count < 1'000; ++count) {
        entries.push_back(entry("1"));
    }
    library.transactions = SharedArray<Transaction>(entries);
    const auto sharedAfter = [&](auto&& change) {
        Library edited = library;
        change(edited);
        std::size_t count = 0;
        for (std::size_t chunk = 0; chunk < library.transactions.chunks().size(); ++chunk) {
            count += edited.transactions.chunks()[chunk] == library.transactions.chunks()[chunk];
        }
        return count;
    };
    const std::size_t chunks = library.transactions.chunks().size();
    ASSERT_GT(chunks, 2U);
    const UUIDSet ids{entries[300].id};
    EXPECT_EQ(sharedAfter([&](Library& edited) { setCleared(edited, ClearedState::cleared, ids); }),
              chunks - 1);
    EXPECT_EQ(
        sharedAfter([&](Library& edited) { setCleared(edited, ClearedState::uncleared, ids); }),
        chunks);
    EXPECT_EQ(sharedAfter([&](Library& edited) { deleteTransactions(edited, ids); }), chunks - 1);
    EXPECT_EQ(sharedAfter([&](Library& edited) {
                  Transaction changed = entries[300];
                  changed.memo = "changed";
                  upsert(edited, changed);
              }),
              chunks - 1);
}

} // namespace
} // namespace oakfen
