#include "OakfenCore/LibraryIndex/Holdings.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "OakfenCore/Models/InvestmentAmounts.h"
#include "Tests/Support/Table.h"

namespace oakfen {
namespace {

struct Portfolio {
    std::map<UUID, Security> securities;
    std::vector<InvestmentTransaction> rows;

    UUID add(std::string name, const Decimal& price) {
        Security security{.id = UUID::random(), .name = std::move(name), .price = price};
        securities[security.id] = security;
        return security.id;
    }

    void row(InvestmentAction action, const std::optional<UUID>& security, const Decimal& shares,
             const Decimal& price, const Decimal& commission = {}, double day = 0) {
        rows.push_back({.id = UUID::random(),
                        .securityID = security,
                        .date = Date{day * 86400},
                        .action = action,
                        .shares = shares,
                        .price = price,
                        .commission = commission});
    }

    [[nodiscard]] SecurityLookup lookup() const {
        return [this](const UUID& id) {
            const auto found = securities.find(id);
            return found == securities.end() ? nullptr : &found->second;
        };
    }

    [[nodiscard]] std::vector<Holding> holdings(std::optional<Date> asOf = {}) const {
        std::vector<const InvestmentTransaction*> pointers;
        for (const InvestmentTransaction& row : rows) {
            pointers.push_back(&row);
        }
        return computeHoldings(pointers, lookup(), asOf);
    }
};

using enum InvestmentAction;

TEST(Holdings, SellAtAverageCostWithCommissionOnBothSides) {
    Portfolio portfolio;
    const UUID fund = portfolio.add("Fund", Decimal(9));
    portfolio.row(buy, fund, Decimal(10), Decimal(5), Decimal(1));
    ASSERT_EQ(portfolio.holdings().size(), 1U);
    EXPECT_EQ(portfolio.holdings()[0].costBasis, Decimal(51));
    portfolio.row(sell, fund, Decimal(4), Decimal(8), Decimal(1));
    const Holding holding = portfolio.holdings().at(0);
    EXPECT_EQ(holding.shares, Decimal(6));
    EXPECT_EQ(holding.costBasis, Decimal::cents(3060));
    EXPECT_EQ(holding.realizedGain, Decimal::cents(1060));
    EXPECT_EQ(holding.marketValue(), Decimal(54));
    EXPECT_EQ(holding.gain(), Decimal::cents(2340));
}

TEST(Holdings, NeverSellMoreThanIsHeldAndKeepASoldPositionWithItsGain) {
    Portfolio portfolio;
    const UUID fund = portfolio.add("Fund", Decimal(9));
    portfolio.row(buy, fund, Decimal(10), Decimal(5));
    portfolio.row(sell, fund, Decimal(100), Decimal(8));
    const Holding holding = portfolio.holdings().at(0);
    EXPECT_EQ(holding.shares, Decimal(0));
    EXPECT_EQ(holding.costBasis, Decimal(0));
    EXPECT_EQ(holding.realizedGain, Decimal(30));
}

TEST(Holdings, RemovingSharesTakesTheirBasisAndRealisesNothing) {
    Portfolio portfolio;
    const UUID fund = portfolio.add("Fund", Decimal(9));
    portfolio.row(buy, fund, Decimal(10), Decimal(5));
    portfolio.row(sharesOut, fund, Decimal(4), Decimal(8));
    const Holding holding = portfolio.holdings().at(0);
    EXPECT_EQ(holding.shares, Decimal(6));
    EXPECT_EQ(holding.costBasis, Decimal(30));
    EXPECT_EQ(holding.realizedGain, Decimal(0));
}

TEST(Holdings, PassOverARowWithoutASecurityOrWithADeletedOne) {
    Portfolio portfolio;
    portfolio.row(dividend, std::nullopt, Decimal(), Decimal());
    portfolio.row(buy, UUID::random(), Decimal(1), Decimal(1));
    EXPECT_TRUE(portfolio.holdings().empty());
}

TEST(Holdings, UseTheOldestPriceBeforeAllPricePoints) {
    Portfolio portfolio;
    const UUID fund = portfolio.add("Fund", Decimal(20));
    portfolio.securities[fund].priceHistory = {{Date{900 * 86400.0}, Decimal(7)},
                                               {Date{950 * 86400.0}, Decimal(8)}};
    portfolio.row(buy, fund, Decimal(1), Decimal(5), Decimal(), 100);
    portfolio.row(buy, fund, Decimal(1), Decimal(5), Decimal(), 500);
    const auto early = portfolio.holdings(Date{200 * 86400.0});
    ASSERT_EQ(early.size(), 1U);
    EXPECT_EQ(early[0].price, Decimal(7));
    EXPECT_EQ(early[0].shares, Decimal(1));
    EXPECT_EQ(portfolio.holdings(Date{960 * 86400.0}).at(0).price, Decimal(8));
    EXPECT_EQ(portfolio.holdings().at(0).price, Decimal(20));
}

TEST(Holdings, ForgetAPositionThatLeftNothing) {
    Portfolio portfolio;
    const UUID fund = portfolio.add("Fund", Decimal(9));
    portfolio.row(buy, fund, Decimal(10), Decimal(5));
    portfolio.row(sell, fund, Decimal(10), Decimal(5));
    portfolio.row(dividend, fund, Decimal(), Decimal());
    EXPECT_TRUE(portfolio.holdings().empty());
}

TEST(Holdings, CountTheCommissionOfASaleOfNothingAsALoss) {
    Portfolio portfolio;
    const UUID fund = portfolio.add("Fund", Decimal(9));
    portfolio.row(sell, fund, Decimal(10), Decimal(5), Decimal(3));
    EXPECT_EQ(portfolio.holdings().at(0).realizedGain, Decimal(-3));
}

TEST(Holdings, NeedABuyStoredBeforeASellOfTheSameInstant) {
    Portfolio portfolio;
    const UUID fund = portfolio.add("Fund", Decimal(9));
    portfolio.row(sell, fund, Decimal(1), Decimal(5));
    portfolio.row(buy, fund, Decimal(1), Decimal(5));
    EXPECT_EQ(portfolio.holdings().at(0).shares, Decimal(1));
    std::swap(portfolio.rows[0], portfolio.rows[1]);
    EXPECT_TRUE(portfolio.holdings().empty());
}

TEST(Holdings, StandInOrderOfValueThenName) {
    Portfolio portfolio;
    const UUID b = portfolio.add("B", Decimal(2));
    const UUID a = portfolio.add("A", Decimal(2));
    const UUID rich = portfolio.add("Z", Decimal(50));
    for (const UUID& id : {b, a, rich}) {
        portfolio.row(buy, id, Decimal(1), Decimal(1));
    }
    const auto holdings = portfolio.holdings();
    ASSERT_EQ(holdings.size(), 3U);
    EXPECT_EQ(holdings[0].securityID, rich);
    EXPECT_EQ(holdings[1].securityID, a);
    EXPECT_EQ(holdings[2].securityID, b);
}

TEST(Holdings, MergeOverAccountsWithoutWhatIsSoldOut) {
    Portfolio portfolio;
    const UUID kept = portfolio.add("Kept", Decimal(2));
    const UUID gone = portfolio.add("Gone", Decimal(2));
    const std::vector<Holding> first{{kept, Decimal(1), Decimal(5), Decimal(2), Decimal(3)},
                                     {gone, Decimal(0), Decimal(0), Decimal(2), Decimal(9)}};
    const std::vector<Holding> second{{kept, Decimal(2), Decimal(7), Decimal(2), Decimal(1)}};
    const std::vector<const std::vector<Holding>*> accounts{&first, &second};
    const std::vector<Holding> expected{{kept, Decimal(3), Decimal(12), Decimal(2), Decimal(4)}};
    EXPECT_EQ(mergeHoldings(accounts, portfolio.lookup()), expected);
}

TEST(Holdings, AgreeWithAPortfolioThatWasWorkedOutElsewhere) {
    std::ifstream file(OAKFEN_TEST_DIRECTORY "/worked-portfolio.tsv");
    ASSERT_TRUE(file);
    const auto number = [](const std::string& text) { return Decimal::parse(text).value(); };
    Portfolio portfolio;
    std::map<std::string, UUID> ids;
    std::vector<std::vector<std::string>> expected;
    Decimal expectedCash;
    for (std::string line; std::getline(file, line);) {
        std::vector<std::string> cells;
        std::istringstream stream(line);
        for (std::string cell; std::getline(stream, cell, '\t');) {
            cells.push_back(cell);
        }
        if (cells[0] == "price") {
            ids[cells[1]] = portfolio.add(cells[1], number(cells[2]));
        } else if (cells[0] == "row") {
            portfolio.row(fromRawValue<InvestmentAction>(cells[3]).value(), ids[cells[2]],
                          number(cells[4]), number(cells[5]), number(cells[6]),
                          testing::doubleIn(cells[1]));
            portfolio.rows.back().amount = number(cells[7]);
        } else if (cells[0] == "holding") {
            expected.push_back(cells);
        } else {
            expectedCash = number(cells[1]);
        }
    }
    ASSERT_GE(portfolio.rows.size(), 30U);
    const auto holdings = portfolio.holdings();
    ASSERT_EQ(holdings.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(holdings[i].securityID, ids[expected[i][1]]);
        EXPECT_EQ(holdings[i].shares, number(expected[i][2])) << expected[i][1];
        EXPECT_EQ(holdings[i].costBasis, number(expected[i][3])) << expected[i][1];
        EXPECT_EQ(holdings[i].realizedGain, number(expected[i][4])) << expected[i][1];
    }
    EXPECT_EQ(sum(portfolio.rows, cashEffect), expectedCash);
}

} // namespace
} // namespace oakfen
