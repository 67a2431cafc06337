#include "OakfenCore/Models/Library.h"

#include <gtest/gtest.h>

#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::day;
using testing::makeTransaction;

TEST(Library, StartsEmptyInItsCurrency) {
    const Library library{.currencyCode = "EUR"};
    EXPECT_EQ(library.version, 1);
    EXPECT_EQ(library.currencyCode, "EUR");
    EXPECT_TRUE(library.accounts.empty());
    EXPECT_TRUE(library.categories.empty());
    EXPECT_TRUE(library.transactions.empty());
    EXPECT_TRUE(library.securities.empty());
    EXPECT_TRUE(library.investmentTransactions.empty());
    EXPECT_TRUE(library.scheduled.empty());
    EXPECT_TRUE(library.budget.empty());
    EXPECT_TRUE(library.goals.empty());
}

TEST(Library, DefaultCurrencyIsThatOfTheUsersLocale) {
    for (const auto& [locale, code] : {std::pair("en_CA", "CAD"), std::pair("de_DE", "EUR"),
                                       std::pair("ja_JP", "JPY"), std::pair("eo", "CAD")}) {
        const testing::LocaleForTest userLocale(locale);
        EXPECT_EQ(defaultCurrencyCode(), code) << locale;
    }
}

TEST(Library, DiffersFromOneWithAnotherSplitMemo) {
    Library library{.currencyCode = "CAD"};
    Transaction entry = makeTransaction(UUID::random(), day(2024, 3, 1), "Store", "-10");
    entry.splits.push_back({.id = UUID::random(), .memo = "soap", .amount = entry.amount});
    library.transactions.push_back(entry);

    Library other = library;
    EXPECT_EQ(other, library);
    other.transactions.edit(0).splits[0].memo = "bread";
    EXPECT_NE(other, library);
}

TEST(Library, DiffersFromOneWithAnotherBudget) {
    Library library{.currencyCode = "CAD"};
    Library other = library;
    other.budget[UUID::random()] = Decimal(1);
    EXPECT_NE(other, library);
}

TEST(Transaction, IsATransferWithoutAKnownSecondLeg) {
    Transaction entry = makeTransaction(UUID::random(), day(2024, 3, 1), "Move", "5");
    EXPECT_FALSE(entry.isTransfer());
    entry.transferAccountID = UUID::random();
    EXPECT_TRUE(entry.isTransfer());
}

TEST(Transaction, IsSplitWhenItHasLines) {
    Transaction entry = makeTransaction(UUID::random(), day(2024, 3, 1), "Store", "5");
    EXPECT_FALSE(entry.isSplit());
    entry.splits.push_back({.id = UUID::random()});
    EXPECT_TRUE(entry.isSplit());
}

TEST(ScheduledTransaction, IsATransferWithAnotherAccount) {
    ScheduledTransaction reminder{.id = UUID::random()};
    EXPECT_FALSE(reminder.isTransfer());
    reminder.transferAccountID = UUID::random();
    EXPECT_TRUE(reminder.isTransfer());
}

TEST(RandomLibrary, IsTheSameForTheSameSeed) {
    EXPECT_EQ(testing::RandomLibrary(7).make(50), testing::RandomLibrary(7).make(50));
    EXPECT_NE(testing::RandomLibrary(7).make(50), testing::RandomLibrary(8).make(50));
}

} // namespace
} // namespace oakfen
