#include "Oakfen/Views/Charts/PlotLayout.h"

#include <gtest/gtest.h>

#include <cmath>

#include "Tests/Oakfen/Views/Charts/ChartSamples.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen::testing {
namespace {

ChartRoom roomOf(double width, double height) {
    return {.width = width, .height = height, .textHeight = 14, .textWidth = [](const auto& text) {
                return 6.5 * static_cast<double>(text.size());
            }};
}

void expectApart(const std::vector<PlacedText>& labels) {
    for (std::size_t a = 0; a < labels.size(); ++a) {
        for (std::size_t b = a + 1; b < labels.size(); ++b) {
            EXPECT_FALSE(labels[a].rect.overlaps(labels[b].rect))
                << labels[a].text << " and " << labels[b].text;
        }
    }
}

/// Everything stands inside of the room, and no label lies on another.
void expectSound(const PlotChart& chart, const ChartRoom& room) {
    const PlotLayout layout = layOut(chart, room);
    const ChartRect all{0, 0, room.width, room.height};
    EXPECT_TRUE(all.holds(layout.plot));
    EXPECT_GT(layout.plot.width, room.width / 2);
    std::vector<PlacedText> labels = layout.valueLabels;
    labels.insert(labels.end(), layout.placeLabels.begin(), layout.placeLabels.end());
    for (const PlacedText& label : labels) {
        EXPECT_TRUE(all.holds(label.rect)) << label.text;
    }
    expectApart(labels);
    for (const auto& series : layout.bars) {
        for (const auto& bar : series) {
            EXPECT_TRUE(!bar || layout.plot.holds(bar->rect)) << bar->rect.x << " " << bar->rect.y;
        }
    }
    for (const auto& line : layout.lines) {
        for (const auto& spot : line) {
            EXPECT_TRUE(!spot || layout.plot.contains(*spot));
        }
    }
    for (const auto& mark : layout.marks) {
        if (mark && !mark->label.text.empty()) {
            // Near enough to be taken for the mark's.
            const ChartRect& label = mark->label.rect;
            const ChartRect near{label.x - 9, label.y - 30, label.width + 18, label.height + 60};
            EXPECT_TRUE(near.contains(mark->spot));
        }
        EXPECT_TRUE(!mark || mark->label.text.empty() || layout.plot.holds(mark->label.rect));
    }
    std::vector<PlacedText> names;
    for (const auto& entry : layout.legend) {
        EXPECT_TRUE(all.holds(entry.name.rect));
        EXPECT_FALSE(entry.name.rect.overlaps(layout.plot));
        EXPECT_EQ(entry.name.rect.width, room.textWidth(entry.name.text));
        names.push_back(entry.name);
    }
    expectApart(names);
    EXPECT_TRUE(names.empty() || names.size() == chart.seriesCount());
}

class PlotLayoutTest : public ::testing::Test {
    LocaleForTest locale{"en_CA"};
};

TEST_F(PlotLayoutTest, everySeriesStandsInItsRoomNarrowAndWide) {
    for (const SampleSeries& sample : sampleSeries()) {
        for (const double width : {160.0, 900.0}) {
            for (const double height : {86.0, 210.0}) {
                SCOPED_TRACE(sample.name + " at " + std::to_string(width) + " × " +
                             std::to_string(height));
                expectSound(lineChart(sample.amounts), roomOf(width, height));
                expectSound(barChart(sample.amounts), roomOf(width, height));
            }
        }
    }
}

TEST_F(PlotLayoutTest, aRoomWithoutAnyExtentIsBorne) {
    for (const SampleSeries& sample : sampleSeries()) {
        for (const PlotChart& chart : {lineChart(sample.amounts), barChart(sample.amounts)}) {
            const PlotLayout layout = layOut(chart, roomOf(0, 0));
            EXPECT_EQ(layout.plot.height, 0) << sample.name;
            EXPECT_EQ(layout.centers.size(), sample.amounts.size()) << sample.name;
        }
    }
}

TEST_F(PlotLayoutTest, firstAndLastLabelStayInsideOfThePlot) {
    const PlotLayout layout =
        layOut(lineChart(wavingAmounts(31, 900000, 300000)), roomOf(900, 210));
    ASSERT_GE(layout.placeLabels.size(), 2U);
    EXPECT_EQ(layout.placeLabels.front().rect.x, layout.plot.x);
    EXPECT_EQ(layout.placeLabels.back().rect.right(), layout.plot.right());
}

TEST_F(PlotLayoutTest, labelsAreThinnedEvenlyAndTheLastPlaceKeepsItsOwnWherePossible) {
    const auto strideOf = [](std::size_t count, const std::string& label, double distance) {
        std::vector<double> centers;
        for (std::size_t place = 0; place < count; ++place) {
            centers.push_back(distance * static_cast<double>(place));
        }
        return labelStride(std::vector<std::string>(count, label), centers, roomOf(900, 100),
                           {0, 0, centers.back(), 14});
    };
    // Every fourth would fit, every fifth meets the last one.
    EXPECT_EQ(strideOf(31, "Nov 26", 20), 5U);
    EXPECT_EQ(strideOf(12, "Nov", 30), 2U);
    EXPECT_EQ(strideOf(12, "Nov", 50), 1U);
}

TEST_F(PlotLayoutTest, withoutValuesThereIsNoFrame) {
    for (const std::vector<Decimal>& amounts : {std::vector<Decimal>(), {Decimal::nan()}}) {
        const PlotLayout layout = layOut(lineChart(amounts), roomOf(400, 100));
        EXPECT_TRUE(layout.gridLines.empty());
        EXPECT_TRUE(layout.valueLabels.empty());
        EXPECT_EQ(layout.ruleLine, std::nullopt);
        EXPECT_EQ(layout.pointAt({200, 50}), std::nullopt);
        EXPECT_EQ(layout.spotOf({0, 0}), std::nullopt);
        EXPECT_TRUE(layOut(barChart(amounts), roomOf(400, 100)).legend.empty());
    }
}

TEST_F(PlotLayoutTest, aSinglePointStandsInTheMiddle) {
    const PlotLayout layout = layOut(lineChart({Decimal(5)}), roomOf(400, 100));
    ASSERT_EQ(layout.centers.size(), 1U);
    EXPECT_EQ(layout.centers[0], layout.plot.x + layout.plot.width / 2);
}

TEST_F(PlotLayoutTest, aGapPartsALine) {
    const PlotLayout layout =
        layOut(lineChart({Decimal(1), Decimal(2), Decimal::nan(), Decimal(4)}), roomOf(400, 100));
    const auto runs = runsOf(layout.lines[0]);
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0].size(), 2U);
    EXPECT_EQ(runs[1].size(), 1U);
}

TEST_F(PlotLayoutTest, barsStandSideBySideOnZeroAndHangBelowIt) {
    const PlotLayout layout = layOut(barChart({Decimal(-100), Decimal(100)}), roomOf(400, 120));
    ASSERT_TRUE(layout.zeroLine);
    const PlotLayout::Bar& below = *layout.bars[0][0];
    const PlotLayout::Bar& above = *layout.bars[0][1];
    EXPECT_TRUE(below.isNegative);
    EXPECT_DOUBLE_EQ(below.rect.y, *layout.zeroLine);
    EXPECT_DOUBLE_EQ(above.rect.bottom(), *layout.zeroLine);
    EXPECT_FALSE(above.rect.overlaps(layout.bars[1][1]->rect));
    EXPECT_EQ(above.rect.width, 32);
    EXPECT_EQ(layout.bars[1][1]->rect.x - above.rect.right(), 2);
}

TEST_F(PlotLayoutTest, theSmallestBarCanBeSeenAndZeroHasNone) {
    const PlotLayout layout =
        layOut(barChart({Decimal::cents(2), Decimal(1000000), Decimal()}), roomOf(400, 120));
    EXPECT_EQ(layout.bars[0][0]->rect.height, 1);
    EXPECT_EQ(layout.bars[0][2]->rect.height, 0);
}

TEST_F(PlotLayoutTest, inALowChartZeroKeepsItsLabel) {
    const PlotLayout layout = layOut(barChart({Decimal(8000)}), roomOf(400, 72));
    ASSERT_FALSE(layout.valueLabels.empty());
    EXPECT_LT(layout.valueLabels.size(), 5U);
    EXPECT_EQ(layout.valueLabels.front().text, "$0");
}

TEST_F(PlotLayoutTest, thePointerMeansTheNearestPlaceAndSeries) {
    const PlotChart chart = barChart({Decimal(100), Decimal(200), Decimal(300)});
    const PlotLayout layout = layOut(chart, roomOf(600, 150));
    for (std::size_t place = 0; place < 3; ++place) {
        for (std::size_t series = 0; series < 2; ++series) {
            const ChartRect& bar = layout.bars[series][place]->rect;
            EXPECT_EQ(layout.pointAt({bar.x + bar.width / 2, layout.plot.bottom() - 2}),
                      (ChartPoint{place, series}));
        }
        EXPECT_EQ(layout.pointAt(*layout.lines[0][place]), (ChartPoint{place, 2}));
        EXPECT_EQ(layout.spotOf({place, 2}), layout.lines[0][place]);
    }
    EXPECT_EQ(layout.pointAt({1, layout.plot.y}), std::nullopt);
    EXPECT_EQ(layout.spotOf({3, 0}), std::nullopt);
    EXPECT_EQ(layout.spotOf({0, 3}), std::nullopt);
}

TEST_F(PlotLayoutTest, ofTwoLinesThePointerMeansTheNearer) {
    PlotChart chart = lineChart({Decimal(900), Decimal(900)});
    chart.lines.push_back(
        {.series = chartSeries("What if", ChartColor::orange, {Decimal(200), Decimal(200)}, "CAD"),
         .isDashed = true});
    chart = scaled(chart, "CAD");
    const PlotLayout layout = layOut(chart, roomOf(400, 200));
    const double x = layout.centers[1];
    EXPECT_EQ(layout.pointAt({x, layout.plot.y}), (ChartPoint{1, 0}));
    EXPECT_EQ(layout.pointAt({x, layout.plot.bottom()}), (ChartPoint{1, 1}));
}

TEST_F(PlotLayoutTest, aMarkIsNamedBesideTheLineAndNotOnIt) {
    const PlotChart chart =
        lineChart({Decimal(9000), Decimal(5000), Decimal(5000), Decimal(9000), Decimal(9500)});
    const PlotLayout layout = layOut(chart, roomOf(700, 210));
    ASSERT_TRUE(layout.marks[0]);
    EXPECT_EQ(layout.marks[0]->spot, layout.lines[0][1]);
    EXPECT_FALSE(layout.marks[0]->label.text.empty());
    for (const auto& run : runsOf(layout.lines[0])) {
        EXPECT_FALSE(crosses(run, layout.marks[0]->label.rect));
    }
}

TEST_F(PlotLayoutTest, aTooltipKeepsToItsBoundsAndOffItsPlace) {
    for (const SampleSeries& sample : sampleSeries()) {
        const PlotChart chart = lineChart(sample.amounts);
        const ChartRoom room = roomOf(600, 210);
        const PlotLayout layout = layOut(chart, room);
        const ChartRect all{0, 0, room.width, room.height};
        for (std::size_t place = 0; place < chart.places.size(); ++place) {
            const auto spot = layout.spotOf({place, 0});
            if (!spot) {
                continue;
            }
            const ChartRect beside = layout.tooltipPlace({place, 0}, false, 180, 70, all);
            EXPECT_TRUE(all.holds(beside)) << sample.name;
            EXPECT_TRUE(beside.x >= spot->x + 12 || beside.right() <= spot->x - 12) << sample.name;
            const ChartRect oneLine = layout.tooltipPlace({place, 0}, true, 150, 28, all);
            EXPECT_TRUE(all.holds(oneLine)) << sample.name;
            EXPECT_FALSE(oneLine.contains(*spot)) << sample.name;
        }
    }
}

TEST_F(PlotLayoutTest, aTooltipCoversNoBarOfItsPlace) {
    const PlotLayout layout =
        layOut(barChart({Decimal(100), Decimal(200), Decimal(300)}), roomOf(600, 150));
    const ChartRect all{0, 0, 600, 150};
    for (std::size_t place = 0; place < 3; ++place) {
        for (std::size_t series = 0; series < 3; ++series) {
            const ChartRect tooltip = layout.tooltipPlace({place, series}, false, 160, 70, all);
            EXPECT_TRUE(all.holds(tooltip));
            EXPECT_FALSE(tooltip.overlaps(layout.bars[0][place]->rect));
            EXPECT_FALSE(tooltip.overlaps(layout.bars[1][place]->rect));
        }
    }
}

} // namespace
} // namespace oakfen::testing
