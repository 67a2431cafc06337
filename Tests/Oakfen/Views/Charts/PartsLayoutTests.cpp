#include "Oakfen/Views/Charts/PartsLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "Tests/Oakfen/Views/Charts/ChartSamples.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen::testing {
namespace {

ChartRoom roomOf(double width, double height) {
    return {.width = width, .height = height, .textHeight = 16, .textWidth = [](const auto& text) {
                return 7.0 * static_cast<double>(text.size());
            }};
}

class PartsLayoutTest : public ::testing::Test {
    LocaleForTest locale{"en_CA"};
};

TEST_F(PartsLayoutTest, sectorsAreSharesOfAWholeTurn) {
    const RingLayout layout =
        layOut(ringChart({Decimal(50), Decimal(25), Decimal(25)}), roomOf(450, 150), 150);
    ASSERT_EQ(layout.sectors.size(), 3U);
    EXPECT_DOUBLE_EQ(layout.sectors[0].sweep, 0.5);
    EXPECT_DOUBLE_EQ(layout.sectors[1].start, 0.5);
    EXPECT_DOUBLE_EQ(layout.sectors[2].start, 0.75);
}

TEST_F(PartsLayoutTest, whatIsNotPositiveHasNoPartInTheRing) {
    const RingLayout layout = layOut(
        ringChart({Decimal(50), Decimal(-20), Decimal(), Decimal::nan()}), roomOf(450, 150), 150);
    EXPECT_EQ(layout.sectors[0].sweep, 1);
    EXPECT_EQ(layout.sectors[1].sweep, 0);
    EXPECT_EQ(layout.sectors[3].sweep, 0);
    const RingLayout nothing = layOut(ringChart({Decimal(-20)}), roomOf(450, 150), 150);
    EXPECT_EQ(nothing.sectors[0].sweep, 0);
}

TEST_F(PartsLayoutTest, sharesOfHugeValuesAreNumbers) {
    RingChart chart = ringChart({Decimal(1), Decimal(1)});
    chart.sectors[0].value.value = std::numeric_limits<double>::max();
    chart.sectors[1].value.value = std::numeric_limits<double>::max();
    EXPECT_EQ(layOut(chart, roomOf(450, 150), 150).sectors[0].sweep, 0.5);
}

TEST_F(PartsLayoutTest, aRingAndItsLegendStandInTheirRoomNarrowAndWide) {
    for (const SampleSeries& sample : sampleSeries()) {
        if (sample.amounts.size() > 12) {
            continue;
        }
        for (const double width : {160.0, 900.0}) {
            const RingChart chart = ringChart(sample.amounts);
            const double height = layOut(chart, roomOf(width, 150), 150).neededHeight;
            const RingLayout layout = layOut(chart, roomOf(width, height), 150);
            const ChartRect all{0, 0, width, height};
            EXPECT_TRUE(all.holds(layout.ring)) << sample.name;
            for (const RingLayout::Row& row : layout.rows) {
                EXPECT_TRUE(all.holds(row.whole)) << sample.name;
                EXPECT_FALSE(row.whole.overlaps(layout.ring)) << sample.name;
                EXPECT_FALSE(row.name.overlaps(row.figure)) << sample.name;
                EXPECT_TRUE(row.whole.holds(row.figure)) << sample.name;
            }
        }
    }
}

TEST_F(PartsLayoutTest, thePointerMeansASectorOrItsLegend) {
    const RingLayout layout =
        layOut(ringChart({Decimal(50), Decimal(25), Decimal(25)}), roomOf(450, 150), 150);
    const auto at = [&layout](double turn, double share) {
        const double angle = turn * 2 * std::numbers::pi;
        const double radius = layout.ring.width / 2;
        return layout.sectorAt({layout.ring.x + radius + std::sin(angle) * radius * share,
                                layout.ring.y + radius - std::cos(angle) * radius * share});
    };
    EXPECT_EQ(at(0.25, 0.8), 0U);
    EXPECT_EQ(at(0.6, 0.8), 1U);
    EXPECT_EQ(at(0.9, 0.8), 2U);
    EXPECT_EQ(at(0.9, 0.3), std::nullopt);
    EXPECT_EQ(at(0.75, 1.2), std::nullopt);
    const ChartRect& row = layout.rows[2].whole;
    EXPECT_EQ(layout.sectorAt({row.x + 4, row.y + 4}), 2U);
}

TEST_F(PartsLayoutTest, horizontalBarsStandInTheirRoomNarrowAndWide) {
    for (const SampleSeries& sample : sampleSeries()) {
        for (const double width : {160.0, 900.0}) {
            const HorizontalBarsLayout layout =
                layOut(horizontalBarChart(sample.amounts), roomOf(width, 200));
            const ChartRect all{0, 0, width, 200.001};
            ASSERT_EQ(layout.rows.size(), sample.amounts.size());
            for (const HorizontalBarsLayout::Row& row : layout.rows) {
                EXPECT_TRUE(all.holds(row.whole)) << sample.name;
                EXPECT_TRUE(all.holds(row.bar)) << sample.name << " " << row.bar.right();
                EXPECT_TRUE(all.holds(row.figure)) << sample.name;
                EXPECT_FALSE(row.name.overlaps(row.bar)) << sample.name;
                EXPECT_FALSE(row.figure.overlaps(row.bar)) << sample.name;
            }
        }
    }
}

TEST_F(PartsLayoutTest, aHorizontalBarIsAsLongAsItsShareOfTheLongest) {
    const HorizontalBarsLayout layout =
        layOut(horizontalBarChart({Decimal(400), Decimal(100)}), roomOf(600, 100));
    EXPECT_DOUBLE_EQ(layout.rows[0].bar.width, 4 * layout.rows[1].bar.width);
    EXPECT_EQ(layout.barAt({300, layout.rows[1].whole.y + 2}), 1U);
    EXPECT_EQ(layout.barAt({300, 99}), std::nullopt);
}

TEST_F(PartsLayoutTest, horizontalBarsBelowZeroReachToTheLeft) {
    const HorizontalBarsLayout layout =
        layOut(horizontalBarChart({Decimal(300), Decimal(-100)}), roomOf(600, 100));
    EXPECT_DOUBLE_EQ(layout.rows[0].bar.x, layout.zero);
    EXPECT_DOUBLE_EQ(layout.rows[1].bar.right(), layout.zero);
}

} // namespace
} // namespace oakfen::testing
