#include "OakfenCore/LibraryOperations/Reconciliation.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Generators/RandomLibrary.h"

namespace oakfen {
namespace {

struct Ledger {
    UUID account = UUID::random();
    UUID other = UUID::random();
    Transaction payment{.id = UUID::random(), .accountID = account, .amount = Decimal(-5)};
    Transaction moved{.id = UUID::random(),
                      .accountID = account,
                      .amount = Decimal(-7),
                      .transferAccountID = other};
    Library library;

    Ledger() {
        upsert(library, payment);
        upsert(library, moved);
    }
};

TEST(Reconciliation, MarksTheChosenEntriesAndNotTheirTwins) {
    Ledger ledger;
    reconcile(ledger.library, ledger.account, {ledger.moved.id}, Date{}, Decimal());
    for (const Transaction& entry : ledger.library.transactions) {
        EXPECT_EQ(entry.cleared,
                  entry.id == ledger.moved.id ? ClearedState::reconciled : ClearedState::uncleared);
    }
    EXPECT_EQ(ledger.library.transactions.size(), 3U);
}

TEST(Reconciliation, EntersARemainingDifferenceOnTheStatementsDate) {
    Ledger ledger;
    const Date date{1234};
    reconcile(ledger.library, ledger.account, {}, date, Decimal::cents(-250));
    ASSERT_EQ(ledger.library.transactions.size(), 4U);
    const Transaction& adjustment = ledger.library.transactions.back();
    EXPECT_EQ(adjustment.payee, "Balance Adjustment");
    EXPECT_EQ(adjustment.memo, "Created during reconciliation");
    EXPECT_EQ(adjustment.accountID, ledger.account);
    EXPECT_EQ(adjustment.amount, Decimal::cents(-250));
    EXPECT_EQ(adjustment.date, date);
    EXPECT_EQ(adjustment.cleared, ClearedState::reconciled);
    EXPECT_FALSE(adjustment.categoryID);
}

TEST(Reconciliation, ChangesNothingWithoutEntriesAndDifference) {
    Ledger ledger;
    const Library before = ledger.library;
    reconcile(ledger.library, ledger.account, {}, Date{}, Decimal());
    EXPECT_EQ(ledger.library, before);
}

TEST(Reconciliation, LeavesAReconciledEntryReconciled) {
    Ledger ledger;
    reconcile(ledger.library, ledger.account, {ledger.payment.id}, Date{}, Decimal());
    const Library before = ledger.library;
    reconcile(ledger.library, ledger.account, {ledger.payment.id}, Date{}, Decimal());
    EXPECT_EQ(ledger.library, before);
}

TEST(KeepingTicks, ClearsTheTickedAndUnclearsTheOthers) {
    Ledger ledger;
    setCleared(ledger.library, ClearedState::cleared, {ledger.moved.id});
    keepTicks(ledger.library, ledger.account, {ledger.payment.id});
    const auto stateOf = [&](const Transaction& entry) {
        return ledger.library.transactions
            .first([&](const Transaction& each) { return each.id == entry.id; })
            ->cleared;
    };
    EXPECT_EQ(stateOf(ledger.payment), ClearedState::cleared);
    EXPECT_EQ(stateOf(ledger.moved), ClearedState::uncleared);
}

/// What `keepTicks` may do to an entry.
void expectKept(const Transaction& before, const Transaction& after, const UUID& accountID,
                const UUIDSet& ticked) {
    Transaction expected = before;
    if (before.accountID == accountID && before.cleared != ClearedState::reconciled) {
        expected.cleared =
            ticked.contains(before.id) ? ClearedState::cleared : ClearedState::uncleared;
    }
    EXPECT_EQ(after, expected);
}

TEST(KeepingTicks, ChangesOnlyTheStatesOfTheAccountsOpenEntriesInAnyLedger) {
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        testing::RandomLibrary random(seed);
        const Library before = random.make(100);
        const UUID account = before.accounts[random.below(before.accounts.size())].id;
        UUIDSet ticked;
        for (const Transaction& entry : before.transactions) {
            // Those of other accounts too, which must not mind.
            if (random.chance(3)) {
                ticked.insert(entry.id);
            }
        }
        Library after = before;
        keepTicks(after, account, ticked);
        ASSERT_EQ(after.transactions.size(), before.transactions.size());
        for (std::size_t each = 0; each < before.transactions.size(); ++each) {
            expectKept(before.transactions[each], after.transactions[each], account, ticked);
        }
        Library rest = after;
        rest.transactions = before.transactions;
        EXPECT_EQ(rest, before);
        Library again = after;
        keepTicks(again, account, ticked);
        EXPECT_EQ(again, after);
    }
}

} // namespace
} // namespace oakfen
