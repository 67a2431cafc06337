#include "Oakfen/Views/Charts/ChartTable.h"

#include <gtest/gtest.h>

#include "Tests/Oakfen/Views/Charts/ChartSamples.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen::testing {
namespace {

class ChartTableTest : public ::testing::Test {
    LocaleForTest locale{"en_CA"};
};

TEST_F(ChartTableTest, aSeriesTellsExactFiguresAndLeavesOutWhatIsNoNumber) {
    const ChartSeries series =
        chartSeries("Income", ChartColor::green, {Decimal::cents(123456), Decimal::nan()}, "CAD");
    EXPECT_EQ(series.values[0].text, "$1,234.56");
    EXPECT_EQ(series.values[0].value, 1234.56);
    EXPECT_EQ(series.values[1].value, std::nullopt);
}

TEST_F(ChartTableTest, theLowestPlaceIsTheFirstOfTheLowest) {
    const auto lowest = [](const std::vector<Decimal>& amounts) {
        return lowestPlace(chartSeries("Balance", ChartColor::blue, amounts, "CAD"));
    };
    EXPECT_EQ(lowest({Decimal(3), Decimal::nan(), Decimal(1), Decimal(1)}), 2U);
    EXPECT_EQ(lowest({Decimal::nan()}), std::nullopt);
    EXPECT_EQ(lowest({}), std::nullopt);
}

TEST_F(ChartTableTest, thePaletteStartsAgainAfterItsLastColour) {
    EXPECT_EQ(seriesColor(11), ChartColor::red);
    EXPECT_EQ(seriesColor(12), ChartColor::blue);
}

TEST_F(ChartTableTest, aBarIsSpokenWithItsPlaceAndSeries) {
    const ChartTable table = chartTable(barChart({Decimal(200), Decimal(300)}));
    EXPECT_EQ(table.columns, (std::vector<std::string>{"Income", "Expenses", "Net"}));
    EXPECT_EQ(table.spoken({.place = 1, .series = 1}), "Feb 2026, Expenses: $150.00");
    EXPECT_EQ(table.summary, "Income, Expenses and Net, Jan 2026 to Feb 2026.");
}

TEST_F(ChartTableTest, aLoneSeriesIsNotNamedWithEachValue) {
    const ChartTable table = chartTable(lineChart({Decimal(200), Decimal(300)}));
    EXPECT_EQ(table.spoken({.place = 1, .series = 0}), "Feb 2026: $300.00");
    EXPECT_EQ(table.summary, "Jan 2026: $200.00 to Feb 2026: $300.00; Low balance: $500.00.");
}

TEST_F(ChartTableTest, partsAreSummedUpByTheLargest) {
    EXPECT_EQ(chartTable(ringChart({Decimal(2), Decimal(5)})).summary,
              "2 values, the largest Category 2: $5.00. $4,857.54 this month.");
    EXPECT_EQ(chartTable(horizontalBarChart({Decimal(7)})).summary,
              "1 value, the largest Payee 1: $7.00.");
    EXPECT_EQ(chartTable(horizontalBarChart({})).summary, "No values.");
}

TEST_F(ChartTableTest, aShareIsSpokenAfterItsAmount) {
    RingChart chart = ringChart({Decimal(2)});
    chart.sectors[0].share = "100%";
    EXPECT_EQ(chartTable(chart).spoken({}), "Category 1: $2.00, 100%");
}

TEST_F(ChartTableTest, stepsEndAtTheEdges) {
    const ChartTable table = chartTable(barChart({Decimal(1), Decimal(2), Decimal(3)}));
    const ChartPoint middle{.place = 1, .series = 1};
    EXPECT_EQ(moved(middle, ChartMove::nextPlace, table), (ChartPoint{2, 1}));
    EXPECT_EQ(moved({2, 1}, ChartMove::nextPlace, table), (ChartPoint{2, 1}));
    EXPECT_EQ(moved(middle, ChartMove::previousSeries, table), (ChartPoint{1, 0}));
    EXPECT_EQ(moved({1, 0}, ChartMove::previousSeries, table), (ChartPoint{1, 0}));
    EXPECT_EQ(moved(middle, ChartMove::nextSeries, table), (ChartPoint{1, 2}));
    EXPECT_EQ(moved(middle, ChartMove::lastPlace, table), (ChartPoint{2, 1}));
    EXPECT_EQ(moved(middle, ChartMove::firstPlace, table), (ChartPoint{0, 1}));
    EXPECT_EQ(moved({9, 9}, ChartMove::previousPlace, table), (ChartPoint{2, 2}));
}

TEST_F(ChartTableTest, aTooltipTellsAllValuesOfItsPlaceAndWhatHappensThere) {
    PlotChart chart = barChart({Decimal(200)});
    chart.places[0].notes = {{.title = "New sofa", .amount = {.text = "-$2,400.00"}}};
    const ChartTooltip tooltip = chartTooltip(chart, 0);
    EXPECT_EQ(tooltip.title, "Jan 2026");
    ASSERT_EQ(tooltip.rows.size(), 3U);
    EXPECT_EQ(tooltip.rows[1],
              (ChartTooltip::Row{"Expenses", "$100.00", std::optional(ChartColor::teal)}));
    EXPECT_EQ(tooltip.notes, chart.places[0].notes);
    EXPECT_EQ(chartTable(chart).notes, std::vector<std::string>{"New sofa -$2,400.00"});
    EXPECT_FALSE(tooltip.isSingleLine());
    EXPECT_TRUE(chartTooltip(lineChart({Decimal(1)}), 0).isSingleLine());
}

TEST_F(ChartTableTest, notesThatHaveNoRoomAreCounted) {
    ChartTooltip tooltip{.title = "Today", .rows = {}};
    for (int index = 0; index < 5; ++index) {
        tooltip.notes.push_back({.title = "Bill", .amount = {.text = "-$1.00"}});
    }
    EXPECT_EQ(withMostNotes(tooltip, 5).notes.size(), 5U);
    const ChartTooltip short3 = withMostNotes(tooltip, 3);
    ASSERT_EQ(short3.notes.size(), 3U);
    EXPECT_EQ(short3.notes.back().title, "3 more");
    EXPECT_TRUE(withMostNotes(tooltip, 0).notes.empty());
}

} // namespace
} // namespace oakfen::testing
