#include "Oakfen/Views/Charts/ValueScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "Tests/Support/LocaleForTest.h"

namespace oakfen::testing {
namespace {

std::vector<std::string> labels(const std::vector<double>& values, bool showsZero = false) {
    std::vector<std::string> result;
    for (const ValueTick& tick : valueScale(values, "CAD", showsZero).ticks) {
        result.push_back(tick.label);
    }
    return result;
}

using Labels = std::vector<std::string>;

class ValueScaleTest : public ::testing::Test {
    LocaleForTest locale{"en_CA"};
};

TEST_F(ValueScaleTest, ticksAreRoundAndReachAroundTheValues) {
    EXPECT_EQ(labels({9598.13, 13900, 500}), (Labels{"$0", "$5K", "$10K", "$15K"}));
    EXPECT_EQ(labels({-261000, -230700}),
              (Labels{"-$270K", "-$260K", "-$250K", "-$240K", "-$230K"}));
}

TEST_F(ValueScaleTest, zeroIsInSightWhereItIsAskedFor) {
    EXPECT_EQ(labels({7975, 5156.93}, true), (Labels{"$0", "$2K", "$4K", "$6K", "$8K"}));
    EXPECT_EQ(labels({-500, -300}, true), (Labels{"-$600", "-$400", "-$200", "$0"}));
}

TEST_F(ValueScaleTest, zeroIsInSightWhereTheValuesComeNearIt) {
    EXPECT_EQ(valueScale({400, 1000}, "CAD", false).low, 0);
    EXPECT_GT(valueScale({800, 1000}, "CAD", false).low, 0);
}

TEST_F(ValueScaleTest, equalValuesStandAboveZero) {
    EXPECT_EQ(labels({100, 100}), (Labels{"$0", "$25", "$50", "$75", "$100"}));
    EXPECT_EQ(labels({-100}), (Labels{"-$100", "-$75", "-$50", "-$25", "$0"}));
}

TEST_F(ValueScaleTest, withoutAnyValueZeroIsTheOnlyTick) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(labels({}), Labels{"$0"});
    EXPECT_EQ(labels({0, 0}, true), Labels{"$0"});
    EXPECT_EQ(labels({nan, std::numeric_limits<double>::infinity()}), Labels{"$0"});
}

TEST_F(ValueScaleTest, whatLabelsCannotTellApartIsNotMagnified) {
    EXPECT_EQ(labels({10000, 10003}), (Labels{"$9.9K", "$10K", "$10.1K"}));
    EXPECT_EQ(labels({12345678, 12345999}), (Labels{"$12.2M", "$12.3M", "$12.4M"}));
    EXPECT_EQ(labels({112000, 118000}), (Labels{"$112K", "$114K", "$116K", "$118K"}));
}

TEST_F(ValueScaleTest, hugeAndTinyValuesHaveAScaleToo) {
    for (const auto& values : {std::vector{1e300, -1e300}, {5e-324, 1e-200}, {1e15, 1.1e15}}) {
        const ValueScale scale = valueScale(values, "CAD", false);
        EXPECT_LT(scale.low, scale.high);
        EXPECT_LE(scale.ticks.size(), 5U);
        EXPECT_TRUE(std::isfinite(scale.fraction(values.front())));
    }
}

TEST_F(ValueScaleTest, everyScaleHasThreeToFiveDistinctTicksAndHoldsItsValues) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> exponent(-1, 10);
    std::uniform_real_distribution<double> share(-1, 1);
    for (int round = 0; round < 5000; ++round) {
        const double size = std::pow(10, exponent(random));
        const std::vector<double> values = {size, size * share(random), size * share(random)};
        const ValueScale scale = valueScale(values, "CAD", round % 2 == 0);
        ASSERT_GE(scale.ticks.size(), 3U) << values[0] << " " << values[1] << " " << values[2];
        ASSERT_LE(scale.ticks.size(), 5U) << values[0] << " " << values[1] << " " << values[2];
        for (const double value : values) {
            ASSERT_GE(value, scale.low - size * 1e-8);
            ASSERT_LE(value, scale.high + size * 1e-8);
        }
        for (std::size_t index = 1; index < scale.ticks.size(); ++index) {
            ASSERT_LT(scale.ticks[index - 1].value, scale.ticks[index].value);
            ASSERT_NE(scale.ticks[index - 1].label, scale.ticks[index].label);
        }
    }
}

TEST_F(ValueScaleTest, aFractionStaysBetweenFootAndHead) {
    const ValueScale scale = valueScale({0, 100}, "CAD", false);
    EXPECT_EQ(scale.fraction(25), 0.25);
    EXPECT_EQ(scale.fraction(-10), 0);
    EXPECT_EQ(scale.fraction(1000), 1);
    EXPECT_EQ(ValueScale({.low = 3, .high = 3}).fraction(3), 0);
}

} // namespace
} // namespace oakfen::testing
