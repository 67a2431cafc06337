#include <gtest/gtest.h>

#include "OakfenCore/Models/InvestmentAmounts.h"

namespace oakfen {
namespace {

InvestmentTransaction makeRow(InvestmentAction action) {
    return {.action = action,
            .shares = Decimal(10),
            .price = Decimal(5),
            .commission = Decimal(1),
            .amount = Decimal(77)};
}

TEST(InvestmentAmounts, OfAPurchaseTakeTheGrossAndTheCommission) {
    const InvestmentTransaction row = makeRow(InvestmentAction::buy);
    EXPECT_EQ(cashEffect(row), Decimal(-51));
    EXPECT_EQ(grossValue(row), Decimal(50));
    EXPECT_EQ(shareDelta(row), Decimal(10));
}

TEST(InvestmentAmounts, OfASaleBringTheGrossLessTheCommission) {
    const InvestmentTransaction row = makeRow(InvestmentAction::sell);
    EXPECT_EQ(cashEffect(row), Decimal(49));
    EXPECT_EQ(grossValue(row), Decimal(50));
    EXPECT_EQ(shareDelta(row), Decimal(-10));
}

TEST(InvestmentAmounts, OfEarningsAreTheAmountOfTheRow) {
    for (const auto action : {InvestmentAction::dividend, InvestmentAction::interest}) {
        const InvestmentTransaction row = makeRow(action);
        EXPECT_EQ(cashEffect(row), Decimal(77));
        EXPECT_EQ(grossValue(row), Decimal(77));
        EXPECT_EQ(shareDelta(row), Decimal());
    }
}

TEST(InvestmentAmounts, OfReinvestedEarningsMoveNoCashWhateverTheAmount) {
    InvestmentTransaction row = makeRow(InvestmentAction::reinvest);
    row.shares = Decimal(2);
    row.price = Decimal(10);
    EXPECT_EQ(cashEffect(row), Decimal());
    EXPECT_EQ(grossValue(row), Decimal(20));
    EXPECT_EQ(shareDelta(row), Decimal(2));
}

TEST(InvestmentAmounts, OfSharesMovedInOrOutLeaveTheCashAlone) {
    const InvestmentTransaction in = makeRow(InvestmentAction::sharesIn);
    const InvestmentTransaction out = makeRow(InvestmentAction::sharesOut);
    EXPECT_EQ(cashEffect(in), Decimal());
    EXPECT_EQ(cashEffect(out), Decimal());
    EXPECT_EQ(grossValue(out), Decimal(50));
    EXPECT_EQ(shareDelta(in), Decimal(10));
    EXPECT_EQ(shareDelta(out), Decimal(-10));
}

} // namespace
} // namespace oakfen
