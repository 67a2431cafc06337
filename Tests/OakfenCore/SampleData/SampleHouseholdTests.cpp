// What the sample household is made of, by name: a misspelled payee or category path is found here.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "Tests/OakfenCore/SampleData/SampleFixture.h"

namespace oakfen {
namespace {

using testing::autumnSample;
using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

TEST(SampleHousehold, FilesAllButTwoEntries) {
    const Library library = autumnSample();
    std::vector<std::string> unfiled;
    for (const Transaction& entry : library.transactions) {
        if (!entry.isTransfer() && !entry.isSplit() && !entry.categoryID) {
            unfiled.push_back(entry.payee);
        }
        for (const Split& split : entry.splits) {
            EXPECT_TRUE(split.categoryID) << entry.payee;
        }
    }
    EXPECT_THAT(unfiled, UnorderedElementsAre("Pop-up Market", "Mobile Deposit"));
    for (const ScheduledTransaction& reminder : library.scheduled) {
        EXPECT_NE(reminder.categoryID.has_value(), reminder.isTransfer()) << reminder.payee;
    }
}

TEST(SampleHousehold, BudgetsForNamedCategories) {
    const Library library = autumnSample();
    std::set<std::string> budgeted;
    for (const Category& category : library.categories) {
        if (library.budget.contains(category.id)) {
            budgeted.insert(category.name);
            EXPECT_EQ(category.kind, CategoryKind::expense);
        }
    }
    EXPECT_THAT(budgeted,
                ElementsAre("Auto Insurance", "Clothing", "Coffee Shops", "Electricity", "Fuel",
                            "Groceries", "Gym", "Household", "Internet", "Mobile Phone",
                            "Movies & Events", "Natural Gas", "Pets", "Restaurants", "Streaming"));
    EXPECT_EQ(library.budget.size(), budgeted.size());
}

TEST(SampleHousehold, HasItsAccountsAtTheirInstitutions) {
    const Library library = autumnSample();
    std::vector<std::pair<std::string, std::string>> accounts;
    for (const Account& account : library.accounts) {
        accounts.emplace_back(account.name, account.institution);
    }
    EXPECT_THAT(accounts, ElementsAre(Pair("Everyday Chequing", "Northern Maple Bank"),
                                      Pair("High-Interest Savings", "Northern Maple Bank"),
                                      Pair("Rewards Visa", ""), Pair("TFSA", "Lakeshore Investing"),
                                      Pair("Mortgage", "Prairie Credit Union"),
                                      Pair("Car Loan", "Prairie Credit Union")));
}

TEST(SampleHousehold, HasItsSecuritiesAtTheirFirstPrices) {
    const Library library = autumnSample();
    std::vector<std::tuple<std::string, std::string, std::string>> securities;
    for (const Security& security : library.securities) {
        const bool hasNoWalk = security.kind == SecurityKind::gic;
        securities.emplace_back(security.symbol, security.name,
                                hasNoWalk ? "" : security.priceHistory.front().price.toString());
    }
    using Row = std::tuple<std::string, std::string, std::string>;
    EXPECT_THAT(securities, ElementsAre(Row("XEQT", "iShares Core Equity ETF Portfolio", "28.4"),
                                        Row("VFV", "Vanguard S&P 500 Index ETF", "118.2"),
                                        Row("XBB", "iShares Core Canadian Universe Bond", "28.1"),
                                        Row("SHOP", "Shopify Inc.", "96.5"),
                                        Row("RY", "Royal Bank of Canada", "136.75"),
                                        Row("GIC-1Y", "1-Year GIC 4.25%", "")));
}

TEST(SampleHousehold, NamesItsPayeesAndMemos) {
    const Library library = autumnSample();
    std::set<std::string> payees;
    std::set<std::pair<std::string, std::string>> memos;
    for (const Transaction& entry : library.transactions) {
        payees.insert(entry.payee);
        memos.emplace(entry.payee, entry.memo);
        for (const Split& split : entry.splits) {
            memos.emplace(entry.payee, split.memo);
        }
    }
    EXPECT_THAT(payees, IsSupersetOf({"Aurora Software Inc.",
                                      "Bright Hydro",
                                      "Prairie Gas Co.",
                                      "Cityline Internet",
                                      "Pinnacle Mobile",
                                      "StreamFlix",
                                      "Summit Fitness",
                                      "Lakeside Auto Insurance",
                                      "Lakeview Home Insurance",
                                      "City of Lakeview",
                                      "Skyway Airlines",
                                      "Harbourfront Hotel",
                                      "ByteMart Electronics",
                                      "Lakeview Food Bank",
                                      "Bright Smile Dental",
                                      "Paws & Claws",
                                      "Gift Nook",
                                      "Pop-up Market",
                                      "Riverside Pharmacy",
                                      "Transfer to Savings",
                                      "TFSA Contribution",
                                      "RRSP Contribution",
                                      "Mortgage Payment",
                                      "Car Loan Payment",
                                      "Rewards Visa Payment"}));
    EXPECT_THAT(memos, IsSupersetOf({std::pair<std::string, std::string>(
                                         "Aurora Software Inc.", "Annual performance bonus"),
                                     {"Aurora Software Inc.", "Federal & provincial tax"},
                                     {"City of Lakeview", "Quarterly instalment"},
                                     {"Skyway Airlines", "Flights to Halifax"}}));
}

TEST(SampleHousehold, SavesForGoalsWithIcons) {
    const Library library = autumnSample();
    std::vector<std::string> icons;
    for (const SavingsGoal& goal : library.goals) {
        icons.push_back(goal.symbolName);
        EXPECT_LT(goal.saved, goal.target) << goal.name;
    }
    EXPECT_THAT(icons, ElementsAre("lifepreserver", "airplane", "car"));
}

} // namespace
} // namespace oakfen
