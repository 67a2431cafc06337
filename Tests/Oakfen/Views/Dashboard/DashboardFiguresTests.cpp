#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "Tests/Oakfen/Views/Dashboard/DashboardFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;

using DashboardFigures = testing::DashboardFixture;

TEST_F(DashboardFigures, NetWorthIsTodaysAndTheChangeThatOfTheChartsLastPoints) {
    enter(day(2026, 2, 20), "1000");
    enter(day(2026, 3, 10), "-250");
    // Later today: in the figure, not yet in the chart.
    enter(day(2026, 3, 15, 20), "-50");
    const NetWorthCard& card = shown().netWorth;
    EXPECT_EQ(card.today.figure, "$700.00");
    EXPECT_EQ(card.change, (MoneyText{"$250.00", TextTone::negative}));
    EXPECT_EQ(card.changeSymbolName, "arrow.down.right");
    ASSERT_EQ(card.chart.places.size(), 3U);
    EXPECT_EQ(card.chart.places[0].title, "January 2026");
    EXPECT_EQ(card.chart.places[2].label, "Mar");
    EXPECT_EQ(card.chart.value(1, 0).text, "$1,000.00");
    EXPECT_EQ(card.chart.value(2, 0).text, "$750.00");
}

TEST_F(DashboardFigures, WithOnePointTheChangeIsAllOfIt) {
    edit([](Library& library) {
        Account account = library.accounts[0];
        account.openingDate = day(2026, 3, 2);
        account.openingBalance = amount("80");
        upsert(library, account);
    });
    EXPECT_EQ(shown().netWorth.chart.places.size(), 1U);
    EXPECT_EQ(shown().netWorth.change, (MoneyText{"$80.00", TextTone::positive}));
    EXPECT_EQ(shown().netWorth.changeSymbolName, "arrow.up.right");
}

TEST_F(DashboardFigures, CashFlowTellsThePresentMonthAndDrawsAllThree) {
    const UUID pay = addCategory("Pay", CategoryKind::income);
    const UUID food = addCategory("Food");
    enter(day(2026, 1, 20), "2000", pay);
    enter(day(2026, 3, 2), "500", pay);
    enter(day(2026, 3, 3), "-620.50", food);
    // After today: not yet.
    enter(day(2026, 3, 20), "-1", food);
    const CashFlowCard& card = shown().cashFlow;
    EXPECT_EQ(card.income.figure, "$500.00");
    EXPECT_EQ(card.income.tint, TextTone::positive);
    EXPECT_EQ(card.spending.figure, "$620.50");
    EXPECT_EQ(card.spending.tint, TextTone::primary);
    EXPECT_EQ(card.net.figure, "-$120.50");
    EXPECT_EQ(card.net.tint, TextTone::negative);
    ASSERT_EQ(card.chart.places.size(), 3U);
    EXPECT_TRUE(card.chart.places[0].isPale);
    EXPECT_FALSE(card.chart.places[2].isPale);
    EXPECT_EQ(card.chart.value(0, 0).text, "$2,000.00");
    EXPECT_EQ(card.chart.value(2, 1).text, "$620.50");
}

TEST_F(DashboardFigures, NetOfNothingIsGood) {
    EXPECT_EQ(shown().cashFlow.net.figure, "$0.00");
    EXPECT_EQ(shown().cashFlow.net.tint, TextTone::positive);
}

TEST_F(DashboardFigures, TheRingShowsTheSixLargestCategoriesAndTheirSum) {
    for (int each = 1; each <= 8; ++each) {
        const UUID id = addCategory("Category " + std::to_string(each));
        enter(day(2026, 3, 2), std::to_string(-10 * each), id);
    }
    const SpendingCard& card = shown().spending;
    ASSERT_EQ(card.chart.sectors.size(), 6U);
    EXPECT_EQ(card.chart.sectors[0].name, "Category 8");
    EXPECT_EQ(card.chart.sectors[0].value.text, "$80.00");
    EXPECT_EQ(card.chart.sectors[5].name, "Category 3");
    EXPECT_EQ(card.chart.sectors[2].color, ChartColor::orange);
    EXPECT_EQ(card.chart.figure, "$330.00");
    EXPECT_EQ(card.chart.caption, "this month");
}

TEST_F(DashboardFigures, TheRingCountsTheWholeMonthAndRollsUp) {
    const UUID food = addCategory("Food");
    const UUID groceries = addCategory("Groceries", CategoryKind::expense, food);
    enter(day(2026, 3, 30), "-40", groceries);
    enter(day(2026, 3, 1), "-2", food);
    ASSERT_EQ(shown().spending.chart.sectors.size(), 1U);
    EXPECT_EQ(shown().spending.chart.sectors[0].name, "Food");
    EXPECT_EQ(shown().spending.chart.figure, "$42.00");
    EXPECT_EQ(sumOf(shown().spending.lines[0], test.index()), amount("42"));
}

TEST_F(DashboardFigures, WithoutSpendingThereIsNoRing) {
    EXPECT_TRUE(shown().spending.chart.sectors.empty());
    EXPECT_EQ(shown().spending.chart.figure, "");
}

TEST_F(DashboardFigures, BudgetRowsAreThoseUsedUpMostAndParentsCountThemselvesAlone) {
    const UUID food = addCategory("Food");
    const UUID groceries = addCategory("Groceries", CategoryKind::expense, food);
    const UUID fun = addCategory("Fun");
    const UUID pay = addCategory("Pay", CategoryKind::income);
    setBudget(food, "100");
    setBudget(groceries, "200");
    setBudget(fun, "50");
    setBudget(pay, "1000");
    enter(day(2026, 3, 2), "-150", groceries);
    enter(day(2026, 3, 2), "-60", fun);
    const BudgetSummaryCard& card = shown().budget;
    ASSERT_EQ(card.rows.size(), 3U);
    EXPECT_EQ(card.rows[0].name, "Fun");
    EXPECT_EQ(card.rows[0].left, (MoneyText{"-$10.00", TextTone::negative}));
    EXPECT_DOUBLE_EQ(card.rows[0].fraction, 1.2);
    EXPECT_EQ(card.rows[1].name, "Groceries");
    EXPECT_EQ(card.rows[1].left, (MoneyText{"$50.00", TextTone::primary}));
    EXPECT_EQ(card.rows[2].name, "Food");
    EXPECT_DOUBLE_EQ(card.rows[2].fraction, 0);
    EXPECT_EQ(card.spent, "$210.00");
    EXPECT_EQ(card.budgeted, "$350.00");
    EXPECT_EQ(card.percent, "60%");
}

TEST_F(DashboardFigures, EqualBudgetRowsStandByTheirPathsAndNoMoreThanFiveDo) {
    const UUID house = addCategory("House");
    for (const char* name : {"f", "e", "d", "c", "b", "a"}) {
        setBudget(addCategory(name, CategoryKind::expense, house), "10");
    }
    const BudgetSummaryCard& card = shown().budget;
    ASSERT_EQ(card.rows.size(), 5U);
    EXPECT_EQ(card.rows[0].name, "a");
    EXPECT_EQ(card.rows[4].name, "e");
    EXPECT_EQ(card.budgeted, "$60.00");
}

TEST_F(DashboardFigures, WithoutABudgetThereAreNoRows) {
    setBudget(addCategory("Food"), "0");
    EXPECT_TRUE(shown().budget.rows.empty());
}

} // namespace
} // namespace oakfen
