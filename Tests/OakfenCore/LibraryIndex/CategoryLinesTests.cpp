#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace testing;

const DateInterval january{day(2026, 1, 1, 0), day(2026, 1, 31, 23)};

TEST(CategoryLines, HoldOneLineForAPlainEntry) {
    OneAccount ledger;
    const UUID food = UUID::random();
    const UUID id = ledger.add(day(2026, 1, 5), "Shop", "-12.50");
    ledger.library.transactions.edit(0).categoryID = food;
    const auto lines = indexOf(ledger.library)->categoryLines(january);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0],
              (CategoryLine{id, ledger.id(), day(2026, 1, 5), "Shop", food, amount("-12.50")}));
}

TEST(CategoryLines, HoldEachSplitAndNothingOfItsEntry) {
    OneAccount ledger;
    const UUID food = UUID::random();
    ledger.add(day(2026, 1, 5), "Shop", "-10");
    Transaction& entry = ledger.library.transactions.edit(0);
    entry.categoryID = food;
    entry.splits = {{.id = UUID::random(), .amount = amount("-4")},
                    {.id = UUID::random(), .categoryID = food, .amount = amount("-6")}};
    const auto lines = indexOf(ledger.library)->categoryLines(january);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].categoryID, std::nullopt);
    EXPECT_EQ(lines[0].amount, amount("-4"));
    EXPECT_EQ(lines[1].categoryID, food);
    EXPECT_EQ(lines[1].amount, amount("-6"));
    EXPECT_EQ(lines[1].transactionID, ledger.library.transactions[0].id);
}

TEST(CategoryLines, LeaveOutTransfersEvenWithSplitLines) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 5), "Transfer", "-10");
    ledger.library.transactions.edit(0).transferAccountID = UUID::random();
    ledger.library.transactions.edit(0).splits.resize(2);
    EXPECT_TRUE(indexOf(ledger.library)->categoryLines(january).empty());
}

TEST(CategoryLines, LeaveOutTransfersEvenWithACategory) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 5), "Transfer", "-10");
    Transaction& entry = ledger.library.transactions.edit(0);
    entry.transferAccountID = UUID::random();
    entry.categoryID = UUID::random();
    EXPECT_TRUE(indexOf(ledger.library)->categoryLines(january).empty());
}

TEST(CategoryLines, IncludeBothEndsOfTheInterval) {
    OneAccount ledger;
    ledger.add(january.end.adding(1), "After", "1");
    ledger.add(january.end, "End", "1");
    ledger.add(january.start, "Start", "1");
    ledger.add(january.start.adding(-1), "Before", "1");
    const auto lines = indexOf(ledger.library)->categoryLines(january);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].payee, "End");
    EXPECT_EQ(lines[1].payee, "Start");
}

TEST(CategoryLines, IncludeClosedAndMissingAccounts) {
    OneAccount ledger;
    ledger.library.accounts.edit(0).isClosed = true;
    ledger.add(day(2026, 1, 5), "Closed", "1");
    ledger.library.transactions.push_back(
        makeTransaction(UUID::random(), day(2026, 1, 6), "Missing", "1"));
    EXPECT_EQ(indexOf(ledger.library)->categoryLines(january).size(), 2U);
}

TEST(IncomeLine, FollowsTheKindOfItsCategoryWhateverItsSign) {
    Library library{.currencyCode = "CAD"};
    const Category food = makeCategory("Food");
    const Category wages = makeCategory("Wages", CategoryKind::income);
    library.categories = {food, wages};
    const auto index = indexOf(library);
    EXPECT_FALSE(index->isIncomeLine({.categoryID = food.id, .amount = amount("5")}));
    EXPECT_TRUE(index->isIncomeLine({.categoryID = wages.id, .amount = amount("-5")}));
}

TEST(IncomeLine, FollowsTheSignWhereNoCategoryIsStored) {
    const auto index = indexOf(Library{.currencyCode = "CAD"});
    EXPECT_TRUE(index->isIncomeLine({.amount = amount("5")}));
    EXPECT_FALSE(index->isIncomeLine({.amount = amount("-5")}));
    EXPECT_FALSE(index->isIncomeLine({.amount = amount("0")}));
    EXPECT_TRUE(index->isIncomeLine({.categoryID = UUID::random(), .amount = amount("5")}));
}

TEST(UncategorizedCount, CountsEntriesWithoutTransferSplitsAndCategory) {
    OneAccount ledger;
    for (int count = 0; count < 5; ++count) {
        ledger.add(day(2026, 1, 5), "A", "1");
    }
    ledger.library.transactions.edit(0).transferAccountID = UUID::random();
    ledger.library.transactions.edit(1).splits.resize(1);
    ledger.library.transactions.edit(2).categoryID = UUID::random();
    EXPECT_EQ(indexOf(ledger.library)->uncategorizedCount(), 2);
}

} // namespace
} // namespace oakfen
