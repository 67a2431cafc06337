#include "OakfenCore/LibraryOperations/Securities.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

const Calendar calendar = *Calendar::inZone("America/Toronto");

Date on(int year, int month, int day, int hour = 0, int minute = 0) {
    return calendar.date({year, month, day, hour, minute, 0});
}

struct Portfolio {
    Security fund{.id = UUID::random(), .symbol = "FND", .price = Decimal(10)};
    Library library;

    Portfolio() { upsert(library, fund); }
    const Security& stored() const { return library.securities.front(); }
};

TEST(Securities, KeepOnePriceADayTheLastEntered) {
    Portfolio portfolio;
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(11), on(2026, 3, 5, 9), calendar);
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(12), on(2026, 3, 5, 16), calendar);
    const std::vector<PricePoint> expected{{on(2026, 3, 5, 16), Decimal(12)}};
    EXPECT_EQ(portfolio.stored().priceHistory, expected);
    EXPECT_EQ(portfolio.stored().price, Decimal(12));
}

TEST(Securities, KeepThePricesOfTwoLocalDaysThatAreTwoHoursApart) {
    Portfolio portfolio;
    const Date lateEvening = on(2028, 2, 29, 22, 30);
    const Date afterMidnight = on(2028, 3, 1, 0, 30);
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(11), lateEvening, calendar);
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(12), afterMidnight, calendar);
    const std::vector<PricePoint> expected{{lateEvening, Decimal(11)},
                                           {afterMidnight, Decimal(12)}};
    EXPECT_EQ(portfolio.stored().priceHistory, expected);
}

TEST(Securities, KeepOnePriceForALocalDayOverTwoOfUniversalTime) {
    Portfolio portfolio;
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(11), on(2026, 3, 5, 9), calendar);
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(12), on(2026, 3, 5, 22), calendar);
    const std::vector<PricePoint> expected{{on(2026, 3, 5, 22), Decimal(12)}};
    EXPECT_EQ(portfolio.stored().priceHistory, expected);
}

TEST(Securities, TakeABackDatedPriceAsCurrentAndFileItInOrder) {
    Portfolio portfolio;
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(12), on(2026, 3, 5), calendar);
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(9), on(2026, 2, 5), calendar);
    EXPECT_EQ(portfolio.stored().price, Decimal(9));
    ASSERT_EQ(portfolio.stored().priceHistory.size(), 2U);
    EXPECT_EQ(portfolio.stored().priceHistory.front().date, on(2026, 2, 5));
}

TEST(Securities, RefuseAPriceThatIsNotAboveZero) {
    Portfolio portfolio;
    const Library before = portfolio.library;
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(-1), on(2026, 3, 5), calendar);
    updatePrice(portfolio.library, portfolio.fund.id, Decimal(0), on(2026, 3, 5), calendar);
    updatePrice(portfolio.library, UUID::random(), Decimal(5), on(2026, 3, 5), calendar);
    EXPECT_EQ(portfolio.library, before);
}

TEST(Securities, AreDeletedWithTheRowsThatNameThem) {
    Portfolio portfolio;
    const InvestmentTransaction named{.id = UUID::random(), .securityID = portfolio.fund.id};
    const InvestmentTransaction unnamed{.id = UUID::random()};
    const Security other{.id = UUID::random(), .symbol = "OTH"};
    const InvestmentTransaction ofOther{.id = UUID::random(), .securityID = other.id};
    upsert(portfolio.library, other);
    upsert(portfolio.library, named);
    upsert(portfolio.library, unnamed);
    upsert(portfolio.library, ofOther);
    deleteSecurity(portfolio.library, portfolio.fund.id);
    EXPECT_EQ(portfolio.library.securities, SharedArray{other});
    EXPECT_EQ(portfolio.library.investmentTransactions, (SharedArray{unnamed, ofOther}));
}

TEST(Securities, RowsAreReplacedInPlaceAndDeletedByID) {
    Portfolio portfolio;
    InvestmentTransaction row{.id = UUID::random(), .shares = Decimal(1)};
    upsert(portfolio.library, row);
    row.shares = Decimal(2);
    upsert(portfolio.library, row);
    ASSERT_EQ(portfolio.library.investmentTransactions.size(), 1U);
    EXPECT_EQ(portfolio.library.investmentTransactions.front().shares, Decimal(2));
    deleteInvestmentTransactions(portfolio.library, {row.id});
    EXPECT_TRUE(portfolio.library.investmentTransactions.empty());
}

} // namespace
} // namespace oakfen
