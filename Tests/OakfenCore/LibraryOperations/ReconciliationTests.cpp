#include "OakfenCore/LibraryOperations/Reconciliation.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Transactions.h"

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

} // namespace
} // namespace oakfen
