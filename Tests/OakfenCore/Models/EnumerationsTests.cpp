#include "OakfenCore/Models/Enumerations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace oakfen {
namespace {

using ::testing::ElementsAre;

template <typename Enumeration>
std::vector<std::string> rawValues() {
    std::vector<std::string> values;
    for (const Enumeration value : allCases<Enumeration>) {
        values.emplace_back(rawValue(value));
    }
    return values;
}

template <typename Enumeration>
std::vector<std::string> titles() {
    std::vector<std::string> values;
    for (const Enumeration value : allCases<Enumeration>) {
        values.emplace_back(title(value));
    }
    return values;
}

template <typename Enumeration>
std::vector<std::string> symbolNames() {
    std::vector<std::string> values;
    for (const Enumeration value : allCases<Enumeration>) {
        values.emplace_back(symbolName(value));
    }
    return values;
}

template <typename Enumeration, typename Property>
std::vector<Enumeration> casesWith(Property&& property) {
    std::vector<Enumeration> values;
    for (const Enumeration value : allCases<Enumeration>) {
        if (property(value)) {
            values.push_back(value);
        }
    }
    return values;
}

TEST(Enumerations, AccountGroupsHaveTheirNames) {
    EXPECT_THAT(rawValues<AccountGroup>(),
                ElementsAre("banking", "credit", "investing", "propertyDebt"));
    EXPECT_THAT(titles<AccountGroup>(),
                ElementsAre("Banking", "Credit", "Investments", "Property & Debt"));
}

TEST(Enumerations, AccountTypesHaveTheirNamesAndIcons) {
    EXPECT_THAT(rawValues<AccountType>(),
                ElementsAre("chequing", "savings", "cash", "creditCard", "lineOfCredit",
                            "brokerage", "retirement", "asset", "liability", "loan"));
    EXPECT_THAT(titles<AccountType>(),
                ElementsAre("Chequing", "Savings", "Cash", "Credit Card", "Line of Credit",
                            "Brokerage / TFSA", "Retirement (RRSP)", "Asset", "Liability",
                            "Loan / Mortgage"));
    EXPECT_THAT(symbolNames<AccountType>(),
                ElementsAre("building.columns", "banknote", "dollarsign.circle", "creditcard",
                            "arrow.left.arrow.right.circle", "chart.line.uptrend.xyaxis",
                            "beach.umbrella", "house", "doc.text", "percent"));
}

TEST(Enumerations, AccountTypesStandInTheirGroups) {
    const auto typesOf = [](AccountGroup wanted) {
        return casesWith<AccountType>([&](AccountType type) { return group(type) == wanted; });
    };
    EXPECT_THAT(typesOf(AccountGroup::banking),
                ElementsAre(AccountType::chequing, AccountType::savings, AccountType::cash));
    EXPECT_THAT(typesOf(AccountGroup::credit),
                ElementsAre(AccountType::creditCard, AccountType::lineOfCredit));
    EXPECT_THAT(typesOf(AccountGroup::investing),
                ElementsAre(AccountType::brokerage, AccountType::retirement));
    EXPECT_THAT(typesOf(AccountGroup::propertyDebt),
                ElementsAre(AccountType::asset, AccountType::liability, AccountType::loan));
}

TEST(Enumerations, FourAccountTypesAreLiabilities) {
    EXPECT_THAT(casesWith<AccountType>(isLiability),
                ElementsAre(AccountType::creditCard, AccountType::lineOfCredit,
                            AccountType::liability, AccountType::loan));
}

TEST(Enumerations, TwoAccountTypesHoldInvestments) {
    EXPECT_THAT(casesWith<AccountType>(isInvestment),
                ElementsAre(AccountType::brokerage, AccountType::retirement));
}

TEST(Enumerations, InvestmentActionsHaveTheirNamesAndIcons) {
    EXPECT_THAT(rawValues<InvestmentAction>(), ElementsAre("buy", "sell", "dividend", "interest",
                                                           "reinvest", "sharesIn", "sharesOut"));
    EXPECT_THAT(titles<InvestmentAction>(),
                ElementsAre("Buy", "Sell", "Dividend", "Interest", "Reinvest Dividend",
                            "Add Shares", "Remove Shares"));
    EXPECT_THAT(symbolNames<InvestmentAction>(),
                ElementsAre("plus.circle", "minus.circle", "dollarsign.arrow.circlepath",
                            "dollarsign.arrow.circlepath", "arrow.triangle.2.circlepath",
                            "arrow.down.to.line", "arrow.up.to.line"));
}

TEST(Enumerations, OnlyEarningsInCashMoveNoShares) {
    EXPECT_THAT(
        casesWith<InvestmentAction>([](InvestmentAction action) { return !usesShares(action); }),
        ElementsAre(InvestmentAction::dividend, InvestmentAction::interest));
}

TEST(Enumerations, TheSmallOnesHaveTheirNames) {
    EXPECT_THAT(rawValues<CategoryKind>(), ElementsAre("income", "expense"));
    EXPECT_THAT(titles<CategoryKind>(), ElementsAre("Income", "Expense"));
    EXPECT_THAT(rawValues<ClearedState>(), ElementsAre("uncleared", "cleared", "reconciled"));
    EXPECT_THAT(titles<ClearedState>(), ElementsAre("Uncleared", "Cleared", "Reconciled"));
    EXPECT_THAT(rawValues<SecurityKind>(),
                ElementsAre("stock", "etf", "mutualFund", "bond", "gic", "crypto", "other"));
    EXPECT_THAT(titles<SecurityKind>(),
                ElementsAre("Stock", "ETF", "Mutual Fund", "Bond", "GIC", "Crypto", "Other"));
    EXPECT_THAT(rawValues<Frequency>(),
                ElementsAre("once", "weekly", "biweekly", "monthly", "quarterly", "yearly"));
    EXPECT_THAT(titles<Frequency>(),
                ElementsAre("Once", "Weekly", "Every 2 Weeks", "Monthly", "Quarterly", "Yearly"));
}

TEST(Enumerations, AStoredTextNamesItsCaseToTheLetter) {
    for (const AccountType type : allCases<AccountType>) {
        EXPECT_EQ(fromRawValue<AccountType>(rawValue(type)), type);
    }
    EXPECT_EQ(fromRawValue<AccountType>("Chequing"), std::nullopt);
    EXPECT_EQ(fromRawValue<AccountType>("checking"), std::nullopt);
    EXPECT_EQ(fromRawValue<AccountType>(""), std::nullopt);
}

} // namespace
} // namespace oakfen
