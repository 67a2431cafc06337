#include <algorithm>

#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace testing;

TEST(RegisterRows, CarryTheEntryAndItsDerivedTexts) {
    OneAccount ledger("100");
    const Category food = makeCategory("Food");
    ledger.library.categories = {food};
    Transaction entry = makeTransaction(ledger.id(), day(2026, 1, 5), " Shop ", "-12.50");
    entry.categoryID = food.id;
    entry.memo = "bread";
    entry.checkNumber = "101";
    entry.cleared = ClearedState::cleared;
    entry.tags = {"b", "a"};
    ledger.library.transactions.push_back(entry);
    const auto rows = indexOf(ledger.library)->registerRows(ledger.id());
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], (RegisterRow{.id = entry.id,
                                    .date = entry.date,
                                    .checkNumber = "101",
                                    .payee = " Shop ",
                                    .categoryName = "Food",
                                    .memo = "bread",
                                    .amount = amount("-12.50"),
                                    .balance = amount("87.50"),
                                    .cleared = ClearedState::cleared,
                                    .tags = {"b", "a"}}));
}

TEST(RegisterRows, SayWhatIsATransferAndWhatIsSplit) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 1), "Transfer", "1");
    ledger.add(day(2026, 1, 2), "Split", "1");
    ledger.library.transactions.edit(0).transferAccountID = UUID::random();
    ledger.library.transactions.edit(1).splits.resize(2);
    const auto rows = indexOf(ledger.library)->registerRows(ledger.id());
    EXPECT_TRUE(rows[0].isTransfer);
    EXPECT_FALSE(rows[0].isSplit);
    EXPECT_EQ(rows[0].categoryName, "[Deleted Account]");
    EXPECT_FALSE(rows[1].isTransfer);
    EXPECT_TRUE(rows[1].isSplit);
    EXPECT_EQ(rows[1].categoryName, "— Split (2) —");
}

TEST(RegisterRows, DescribeATransferWithSplitLinesAsATransfer) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 1), "Transfer", "1");
    ledger.library.transactions.edit(0).transferAccountID = ledger.id();
    ledger.library.transactions.edit(0).splits.resize(2);
    const auto rows = indexOf(ledger.library)->registerRows(ledger.id());
    EXPECT_TRUE(rows[0].isTransfer);
    EXPECT_EQ(rows[0].categoryName, "[" + ledger.library.accounts[0].name + "]");
}

TEST(RegisterRows, ComeInLedgerOrderAndEndAtAllCashWithoutInvestments) {
    OneAccount ledger("100");
    ledger.add(day(2026, 6, 1), "Future", "-30");
    ledger.add(day(2026, 1, 1), "Past", "5");
    ledger.library.investmentTransactions.push_back({.id = UUID::random(),
                                                     .accountID = ledger.id(),
                                                     .date = day(2026, 1, 5),
                                                     .action = InvestmentAction::dividend,
                                                     .amount = amount("40")});
    const auto rows = indexOf(ledger.library)->registerRows(ledger.id());
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].payee, "Past");
    EXPECT_EQ(rows[0].balance, amount("105"));
    EXPECT_EQ(rows[1].balance, amount("75"));
}

TEST(RegisterRows, OfAMissingAccountHaveNoBalance) {
    OneAccount ledger("100");
    const UUID missing = UUID::random();
    ledger.library.transactions.push_back(makeTransaction(missing, day(2026, 1, 1), "A", "5"));
    const auto rows = indexOf(ledger.library)->registerRows(missing);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].balance, Decimal());
    EXPECT_EQ(rows[0].amount, amount("5"));
}

TEST(RegisterRows, OfAnUnknownOrEmptyAccountAreNone) {
    const OneAccount ledger("100");
    const auto index = indexOf(ledger.library);
    EXPECT_TRUE(index->registerRows(UUID::random()).empty());
    EXPECT_TRUE(index->registerRows(ledger.id()).empty());
}

TEST(RegisterRow, SplitsTheAmountIntoPaymentAndDeposit) {
    const RegisterRow paid{.amount = amount("-12.50")};
    EXPECT_EQ(paid.payment(), amount("12.50"));
    EXPECT_EQ(paid.deposit(), Decimal());
    const RegisterRow received{.amount = amount("3")};
    EXPECT_EQ(received.payment(), Decimal());
    EXPECT_EQ(received.deposit(), amount("3"));
    const RegisterRow nothing;
    EXPECT_EQ(nothing.payment(), Decimal());
    EXPECT_EQ(nothing.deposit(), Decimal());
}

TEST(RegisterRow, SortsItsStateByTheWord) {
    std::vector<RegisterRow> rows(3);
    rows[0].cleared = ClearedState::uncleared;
    rows[1].cleared = ClearedState::reconciled;
    rows[2].cleared = ClearedState::cleared;
    std::ranges::sort(rows, {}, &RegisterRow::clearedSort);
    EXPECT_EQ(rows[0].cleared, ClearedState::cleared);
    EXPECT_EQ(rows[1].cleared, ClearedState::reconciled);
    EXPECT_EQ(rows[2].cleared, ClearedState::uncleared);
}

} // namespace
} // namespace oakfen
