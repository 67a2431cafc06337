#include "OakfenCore/LibraryOperations/Accounts.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::makeTransaction;

TEST(UpsertAccount, AppendsThenReplacesInPlace) {
    Library library{.currencyCode = "CAD"};
    Account main = makeAccount("Main");
    const Account savings = makeAccount("Savings");
    upsert(library, main);
    upsert(library, savings);
    main.name = "Everyday";
    upsert(library, main);
    EXPECT_EQ(library.accounts, (SharedArray<Account>{main, savings}));
}

/// A document with an account to delete and one to keep.
class DeleteAccountTest : public ::testing::Test {
protected:
    const Account doomed = makeAccount("Doomed");
    const Account kept = makeAccount("Kept");
    Library library = [this] {
        Library document{.currencyCode = "CAD"};
        document.accounts = {doomed, kept};
        return document;
    }();
};

TEST_F(DeleteAccountTest, RemovesTheAccountAndItsEntries) {
    library.transactions = {makeTransaction(doomed.id, day(2024, 1, 1), "Gone", "1"),
                            makeTransaction(kept.id, day(2024, 1, 1), "Stays", "2")};
    deleteAccount(library, doomed.id);
    EXPECT_EQ(library.accounts, (SharedArray<Account>{kept}));
    ASSERT_EQ(library.transactions.size(), 1U);
    EXPECT_EQ(library.transactions[0].payee, "Stays");
}

TEST_F(DeleteAccountTest, KeepsTheOtherLegOfATransferAsAnOrdinaryEntry) {
    Transaction leg = makeTransaction(doomed.id, day(2024, 1, 1), "Move", "-75");
    leg.transferAccountID = kept.id;
    upsert(library, leg);
    deleteAccount(library, doomed.id);
    ASSERT_EQ(library.transactions.size(), 1U);
    const Transaction& twin = library.transactions[0];
    EXPECT_EQ(twin.accountID, kept.id);
    EXPECT_EQ(twin.amount, amount("75"));
    EXPECT_EQ(twin.transferAccountID, std::nullopt);
    EXPECT_EQ(twin.transferID, std::nullopt);
    EXPECT_EQ(twin.categoryID, std::nullopt);
}

TEST_F(DeleteAccountTest, RemovesItsInvestmentRowsOnly) {
    InvestmentTransaction gone{.id = UUID::random(), .accountID = doomed.id};
    InvestmentTransaction stays{.id = UUID::random(), .accountID = kept.id};
    library.investmentTransactions = {gone, stays};
    deleteAccount(library, doomed.id);
    EXPECT_EQ(library.investmentTransactions, (SharedArray<InvestmentTransaction>{stays}));
}

TEST_F(DeleteAccountTest, RemovesRemindersThatTouchItFromEitherSide) {
    ScheduledTransaction own{.id = UUID::random(), .accountID = doomed.id};
    ScheduledTransaction into{.id = UUID::random(), .accountID = kept.id};
    into.transferAccountID = doomed.id;
    ScheduledTransaction stays{.id = UUID::random(), .accountID = kept.id};
    library.scheduled = {own, into, stays};
    deleteAccount(library, doomed.id);
    EXPECT_EQ(library.scheduled, (SharedArray<ScheduledTransaction>{stays}));
}

TEST_F(DeleteAccountTest, LeavesBudgetGoalsAndSecuritiesAlone) {
    library.budget[UUID::random()] = amount("5");
    library.goals = {{.id = UUID::random(), .name = "Trip"}};
    library.securities = {{.id = UUID::random(), .priceHistory = {{day(2024, 1, 1), amount("3")}}}};
    Library expected = library;
    expected.accounts = {kept};
    deleteAccount(library, doomed.id);
    EXPECT_EQ(library, expected);
}

TEST_F(DeleteAccountTest, IgnoresAnUnknownID) {
    library.transactions = {makeTransaction(kept.id, day(2024, 1, 1), "Stays", "2")};
    const Library before = library;
    deleteAccount(library, UUID::random());
    EXPECT_EQ(library, before);
}

} // namespace
} // namespace oakfen
