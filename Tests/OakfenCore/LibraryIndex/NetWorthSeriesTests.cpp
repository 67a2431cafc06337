#include "OakfenCore/LibraryIndex/NetWorthSeries.h"

#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;

std::vector<NetWorthPoint> series(const Library& library, int months) {
    return netWorthSeries(*indexOf(library), months, Calendar::utc());
}

Date endOf(int year, int month) {
    return Calendar::utc().endOfMonth(day(year, month, 1));
}

TEST(NetWorthSeries, IsOnePointOfZerosWithoutAccounts) {
    const std::vector<NetWorthPoint> expected{{.date = today()}};
    EXPECT_EQ(series(Library{}, 12), expected);
    EXPECT_TRUE(series(Library{}, 0).empty());
}

TEST(NetWorthSeries, HasNoPointBeforeAllAccountsAreOpened) {
    OneAccount ledger("100");
    ledger.library.accounts.edit(0).openingDate = day(2026, 4, 1);
    EXPECT_TRUE(series(ledger.library, 12).empty());
    ledger.library.accounts.edit(0).openingDate = day(2026, 3, 31); // later this month
    const std::vector<NetWorthPoint> expected{{.date = today()}};
    EXPECT_EQ(series(ledger.library, 12), expected);
}

TEST(NetWorthSeries, BeginsInTheMonthOfTheFirstOpening) {
    OneAccount ledger("100");
    ledger.library.accounts.edit(0).openingDate = day(2025, 10, 14);
    const auto points = series(ledger.library, 12);
    ASSERT_EQ(points.size(), 6U);
    EXPECT_EQ(points.front(), (NetWorthPoint{endOf(2025, 10), Decimal(100), Decimal(0)}));
    EXPECT_EQ(points.back().date, today());
    EXPECT_EQ(series(ledger.library, 2).size(), 2U);
}

TEST(NetWorthSeries, ShowsAnAccountFromTheMonthItWasOpened) {
    OneAccount ledger("100");
    ledger.library.accounts.edit(0).openingDate = day(2025, 12, 1);
    Account loan = accountWith("-40", "Loan", AccountType::loan);
    loan.openingDate = day(2026, 2, 15);
    ledger.library.accounts.push_back(loan);
    const auto points = series(ledger.library, 4);
    ASSERT_EQ(points.size(), 4U);
    EXPECT_EQ(points[1].liabilities, Decimal(0));
    EXPECT_EQ(points[2].liabilities, Decimal(-40));
    EXPECT_EQ(points[2].netWorth(), Decimal(60));
}

TEST(NetWorthSeries, CountsClosedAccountsAndNothingLaterToday) {
    OneAccount ledger("100");
    ledger.library.accounts.edit(0).openingDate = day(2026, 3, 1);
    ledger.library.accounts.edit(0).isClosed = true;
    ledger.add(today().adding(60), "Later", "-5");
    EXPECT_EQ(series(ledger.library, 1).at(0).assets, Decimal(100));
}

TEST(NetWorthSeries, ValuesHoldingsAtThePriceOfTheirTime) {
    OneAccount ledger("0");
    Account& account = ledger.library.accounts.edit(0);
    account.type = AccountType::brokerage;
    account.openingDate = day(2025, 11, 1);
    const Security fund{
        .id = UUID::random(),
        .name = "Fund",
        .price = Decimal(99),
        .priceHistory = {{day(2026, 1, 10), Decimal(20)}, {day(2026, 2, 10), Decimal(30)}}};
    ledger.library.securities.push_back(fund);
    ledger.library.investmentTransactions.push_back({.id = UUID::random(),
                                                     .accountID = ledger.id(),
                                                     .securityID = fund.id,
                                                     .date = day(2025, 11, 5),
                                                     .action = InvestmentAction::sharesIn,
                                                     .shares = Decimal(2),
                                                     .price = Decimal(10)});
    std::vector<Decimal> values;
    for (const NetWorthPoint& point : series(ledger.library, 5)) {
        values.push_back(point.assets);
    }
    const std::vector<Decimal> expected{Decimal(40), Decimal(40), Decimal(40), Decimal(60),
                                        Decimal(60)};
    EXPECT_EQ(values, expected);
}

} // namespace
} // namespace oakfen
