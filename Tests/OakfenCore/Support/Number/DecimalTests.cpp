#include "OakfenCore/Support/Number/Decimal.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace oakfen {
namespace {

Decimal decimal(std::string_view text) {
    const auto value = Decimal::parseJSONNumber(text);
    EXPECT_TRUE(value.has_value()) << text;
    return value.value_or(Decimal::nan());
}

std::string nines(int count) {
    return std::string(static_cast<std::size_t>(count), '9');
}
std::string zeros(int count) {
    return std::string(static_cast<std::size_t>(count), '0');
}

Decimal ulp() {
    return decimal("1e-37");
}

TEST(Decimal, IsZeroWhenMade) {
    EXPECT_EQ(Decimal(), Decimal(0));
    EXPECT_TRUE(Decimal().isZero());
    EXPECT_EQ(Decimal().toString(), "0");
}

TEST(Decimal, CentsAreExactHundredths) {
    EXPECT_EQ(Decimal::cents(1999), decimal("19.99"));
    EXPECT_EQ(Decimal::cents(-5), decimal("-0.05"));
    EXPECT_EQ(Decimal::cents(1200), Decimal(12));
}

TEST(Decimal, KeepsTheWholeRangeOfIntegers) {
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()).toString(), "-9223372036854775808");
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()).toString(), "9223372036854775807");
}

TEST(Decimal, HasOneFormForEachValue) {
    EXPECT_EQ(Decimal::make(1250, -2), Decimal::make(125, -1));
    EXPECT_EQ(Decimal::make(1250, -2).coefficient(), 125);
    EXPECT_EQ(Decimal::make(1250, -2).exponent(), -1);
    EXPECT_EQ(Decimal::make(0, 77), Decimal());
    EXPECT_EQ(Decimal::make(100, 126), Decimal::make(10, 127));
    EXPECT_EQ(Decimal::make(1, 128), Decimal::make(10, 127));
    EXPECT_EQ(-Decimal(), Decimal());
}

TEST(Decimal, MakesNotANumberOfWhatIsTooLarge) {
    EXPECT_FALSE(decimal(nines(38) + "e127").isNaN());
    EXPECT_TRUE(Decimal::make(1, 165).isNaN());
    EXPECT_TRUE(Decimal::make(1, std::numeric_limits<int>::max()).isNaN());
    EXPECT_TRUE((decimal("1e100") * decimal("1e100")).isNaN());
    EXPECT_TRUE((decimal(nines(38) + "e127") + decimal(nines(38) + "e127")).isNaN());
}

TEST(Decimal, RoundsWhatIsTooSmallAtTheLowestPlace) {
    EXPECT_EQ(Decimal::make(15, -129), Decimal::make(2, -128));
    EXPECT_EQ(Decimal::make(14, -129), Decimal::make(1, -128));
    EXPECT_EQ(Decimal::make(-5, -129), Decimal::make(-1, -128));
    EXPECT_EQ(Decimal::make(4, -129), Decimal());
    EXPECT_EQ(Decimal::make(1, std::numeric_limits<int>::min()), Decimal());
    EXPECT_EQ(decimal("1e-100") * decimal("1e-100"), Decimal());
}

TEST(Decimal, RoundsOnceWhereBothThePlaceAndThePrecisionEnd) {
    // Rounding 0.49…95 to 38 digits first would make it 0.5, and then 1.
    EXPECT_EQ(decimal("4" + nines(38) + "5e-168"), Decimal());
    EXPECT_EQ(decimal("0." + zeros(127) + "149" + nines(60)), Decimal::make(1, -128));
}

TEST(Decimal, RoundsTheLargestBinaryIntegerTo38Digits) {
    const Int128 largest = std::numeric_limits<Int128>::max();
    EXPECT_EQ(Decimal::make(largest, 0).toString(), "170141183460469231731687303715884105730");
    EXPECT_EQ(Decimal::make(-largest - 1, 0).toString(),
              "-170141183460469231731687303715884105730");
}

TEST(Decimal, AddsAmountsOfDifferentExponents) {
    EXPECT_EQ(decimal("12.5") + Decimal(3), decimal("15.5"));
    EXPECT_EQ(decimal("0.1") + decimal("0.2"), decimal("0.3"));
    EXPECT_EQ(decimal("19.99") - decimal("20"), decimal("-0.01"));
    EXPECT_EQ(decimal("0.75") + decimal("0.25"), Decimal(1));
    EXPECT_EQ(Decimal(7) - Decimal(7), Decimal());
}

TEST(Decimal, AddsBeyondTheShortWay) {
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()) + Decimal(1),
              decimal("9223372036854775808"));
    EXPECT_EQ(decimal("1e20") + decimal("1e-17"),
              decimal("100000000000000000000.00000000000000001"));
    EXPECT_EQ(decimal(nines(38)) + decimal(nines(38)), decimal("2e38"));
    EXPECT_EQ(decimal(nines(38)) + Decimal(1), decimal("1e38"));
}

TEST(Decimal, RoundsASumOfFarApartNumbers) {
    EXPECT_EQ(decimal("1e50") + decimal("1e-50"), decimal("1e50"));
    EXPECT_EQ(decimal("1e50") - decimal("1e-50"), decimal("1e50"));
    EXPECT_EQ(decimal("-1e50") + decimal("1e-50"), decimal("-1e50"));
    EXPECT_EQ(decimal("1e127") - decimal("1e-128"), decimal("1e127"));
    EXPECT_EQ(Decimal(1) + decimal("5e-38"), Decimal(1) + ulp());
    EXPECT_EQ(Decimal(1) + decimal("4.9e-38"), Decimal(1));
}

TEST(Decimal, RoundsADifferenceJustBelowAHalfDown) {
    // 1.5 units of the last place less a trace: the trace decides although it lies far below.
    const Decimal base = decimal("1." + zeros(36) + "2");
    EXPECT_EQ(base - decimal("5e-38"), base);
    EXPECT_EQ(base - decimal("5." + zeros(36) + "1e-38"), base - ulp());
}

TEST(Decimal, MultipliesExactlyWithin38Digits) {
    EXPECT_EQ(decimal("12.5") * decimal("0.8"), Decimal(10));
    EXPECT_EQ(decimal("-1.1") * decimal("1.1"), decimal("-1.21"));
    EXPECT_EQ(decimal("9999999999999999999") * decimal("9999999999999999999"),
              decimal("99999999999999999980000000000000000001"));
    EXPECT_EQ(decimal("0") * decimal("-3"), Decimal());
}

TEST(Decimal, RoundsAWideProductHalfAwayFromZero) {
    EXPECT_EQ(decimal(nines(38)) * decimal(nines(38)), decimal(nines(37) + "8e38"));
    EXPECT_EQ(decimal("1." + zeros(36) + "1") * decimal("1.5"), decimal("1.5" + zeros(35) + "2"));
    EXPECT_EQ(decimal("-1." + zeros(36) + "1") * decimal("1.5"), decimal("-1.5" + zeros(35) + "2"));
}

TEST(Decimal, DividesExactlyOrTo38Digits) {
    EXPECT_EQ(Decimal(10) / Decimal(4), decimal("2.5"));
    EXPECT_EQ(Decimal(1) / Decimal(3), decimal("0." + std::string(38, '3')));
    EXPECT_EQ(Decimal(2) / Decimal(3), decimal("0." + std::string(37, '6') + "7"));
    EXPECT_EQ(Decimal(-2) / Decimal(3), decimal("-0." + std::string(37, '6') + "7"));
    EXPECT_EQ(decimal(nines(38)) / decimal(nines(38)), Decimal(1));
    EXPECT_EQ(Decimal() / Decimal(7), Decimal());
    EXPECT_EQ(decimal("1e-128") / Decimal(2), decimal("1e-128"));
}

TEST(Decimal, HasNoQuotientByZero) {
    EXPECT_TRUE((Decimal(1) / Decimal()).isNaN());
    EXPECT_TRUE((Decimal() / Decimal()).isNaN());
}

TEST(Decimal, NotANumberSpreadsAndKeepsTheLawsOfOrder) {
    const Decimal nan = Decimal::nan();
    EXPECT_EQ(nan, nan);
    EXPECT_LT(nan, decimal("-1e127"));
    EXPECT_FALSE(nan < nan);
    EXPECT_TRUE((nan + nan).isNaN());
    EXPECT_TRUE((nan - Decimal(1)).isNaN());
    EXPECT_TRUE((Decimal(2) * nan).isNaN());
    EXPECT_TRUE((nan / Decimal(2)).isNaN());
    EXPECT_TRUE((-nan).isNaN());
    EXPECT_TRUE(nan.magnitude().isNaN());
    EXPECT_TRUE(nan.rounded(2, RoundingMode::plain).isNaN());
    EXPECT_FALSE(nan.isNegative());
    EXPECT_FALSE(nan.isPositive());
    EXPECT_FALSE(nan.isZero());
    EXPECT_EQ(nan.toString(), "NaN");
}

TEST(Decimal, ComparesExactly) {
    const std::vector<Decimal> ascending = {
        Decimal::nan(),    decimal("-1e127"),  decimal("-100.01"),
        Decimal(-100),     decimal("-0.1"),    Decimal(),
        decimal("1e-128"), decimal("0.99"),    decimal("0." + nines(38)),
        Decimal(1),        Decimal(1) + ulp(), decimal("9"),
        decimal("10"),     decimal("1e20"),    decimal("1e127")};
    for (std::size_t a = 0; a < ascending.size(); ++a) {
        for (std::size_t b = 0; b < ascending.size(); ++b) {
            EXPECT_EQ(ascending[a] <=> ascending[b], a <=> b) << a << ' ' << b;
        }
    }
}

TEST(Decimal, GivesItsMagnitude) {
    EXPECT_EQ(Decimal(-3).magnitude(), Decimal(3));
    EXPECT_EQ(Decimal(3).magnitude(), Decimal(3));
    EXPECT_TRUE(Decimal(-3).isNegative());
    EXPECT_TRUE(Decimal(3).isPositive());
}

struct RoundingCase {
    const char* value;
    int scale;
    const char* plain;
    const char* down;
    const char* up;
    const char* bankers;
};

class DecimalRounding : public testing::TestWithParam<RoundingCase> {};

TEST_P(DecimalRounding, FollowsTheMode) {
    const RoundingCase& c = GetParam();
    const Decimal value = decimal(c.value);
    EXPECT_EQ(value.rounded(c.scale, RoundingMode::plain).toString(), c.plain);
    EXPECT_EQ(value.rounded(c.scale, RoundingMode::down).toString(), c.down);
    EXPECT_EQ(value.rounded(c.scale, RoundingMode::up).toString(), c.up);
    EXPECT_EQ(value.rounded(c.scale, RoundingMode::bankers).toString(), c.bankers);
}

INSTANTIATE_TEST_SUITE_P(Cases, DecimalRounding,
                         testing::Values(RoundingCase{"2.345", 2, "2.35", "2.34", "2.35", "2.34"},
                                         RoundingCase{"2.355", 2, "2.36", "2.35", "2.36", "2.36"},
                                         RoundingCase{"-2.345", 2, "-2.35", "-2.35", "-2.34",
                                                      "-2.34"},
                                         RoundingCase{"2.341", 2, "2.34", "2.34", "2.35", "2.34"},
                                         RoundingCase{"2.3", 2, "2.3", "2.3", "2.3", "2.3"},
                                         RoundingCase{"1250", -2, "1300", "1200", "1300", "1200"},
                                         RoundingCase{"49", -2, "0", "0", "100", "0"},
                                         RoundingCase{"-1", -50, "0",
                                                      "-100000000000000000000000000000000000000000"
                                                      "000000000",
                                                      "0", "0"},
                                         RoundingCase{"0.005", 2, "0.01", "0", "0.01", "0"},
                                         RoundingCase{"99.995", 2, "100", "99.99", "100", "100"},
                                         RoundingCase{"0", -3, "0", "0", "0", "0"}));

TEST(Decimal, RoundsAllOf38Digits) {
    EXPECT_EQ(decimal("0." + nines(38)).rounded(0, RoundingMode::plain), Decimal(1));
    EXPECT_EQ(decimal("0." + nines(38)).rounded(0, RoundingMode::down), Decimal());
    EXPECT_EQ(decimal(nines(38)).rounded(-38, RoundingMode::plain), decimal("1e38"));
    EXPECT_EQ(decimal("5e-128").rounded(127, RoundingMode::plain), decimal("1e-127"));
}

TEST(Decimal, RoundsAtAbsurdScalesWithoutHarm) {
    EXPECT_EQ(Decimal(5).rounded(std::numeric_limits<int>::max(), RoundingMode::plain), Decimal(5));
    EXPECT_EQ(Decimal(5).rounded(std::numeric_limits<int>::min(), RoundingMode::plain), Decimal());
}

TEST(Decimal, SumOfNothingIsZero) {
    EXPECT_EQ(sum(std::vector<Decimal>(), [](const Decimal& d) { return d; }), Decimal());
}

TEST(Decimal, SumsWhatTheClosureGives) {
    const std::vector<int> cents = {110, 220, -5};
    EXPECT_EQ(sum(cents, [](int c) { return Decimal::cents(c); }), decimal("3.25"));
}

TEST(Decimal, RoundsToCentsHalfAwayFromZero) {
    EXPECT_EQ(decimal("1.005").toCents(), decimal("1.01"));
    EXPECT_EQ(decimal("-1.005").toCents(), decimal("-1.01"));
    EXPECT_EQ(decimal("1.0049").toCents(), Decimal(1));
    EXPECT_TRUE(Decimal::nan().toCents().isNaN());
}

TEST(Decimal, ATenthAddedAMillionTimesIsExact) {
    Decimal total;
    for (int i = 0; i < 1'000'000; ++i) {
        total += decimal("0.1");
    }
    EXPECT_EQ(total, Decimal(100'000));
}

class DecimalLaws : public testing::Test {
protected:
    Decimal any() {
        const auto coefficient = static_cast<std::int64_t>(random_()) >> shift_(random_);
        return Decimal::make(Int128{coefficient} * (static_cast<int>(random_() % 1000) + 1),
                             exponent_(random_));
    }

    std::mt19937_64 random_{20260101};
    std::uniform_int_distribution<int> shift_{0, 62};
    std::uniform_int_distribution<int> exponent_{-6, 3};
};

TEST_F(DecimalLaws, AdditionCommutesAndIsUndoneBySubtraction) {
    for (int i = 0; i < 5000; ++i) {
        const Decimal a = any();
        const Decimal b = any();
        EXPECT_EQ(a + b, b + a);
        EXPECT_EQ(a + b - b, a);
        EXPECT_EQ(a - b, -(b - a));
    }
}

TEST_F(DecimalLaws, OrderIsThatOfTheDifferencesSign) {
    for (int i = 0; i < 5000; ++i) {
        const Decimal a = any();
        const Decimal b = any();
        EXPECT_EQ(a < b, (a - b).isNegative());
        EXPECT_EQ(a == b, (a - b).isZero());
    }
}

TEST_F(DecimalLaws, MultiplicationDistributesOverShortNumbers) {
    for (int i = 0; i < 5000; ++i) {
        const Decimal a = Decimal::cents(static_cast<std::int32_t>(random_()));
        const Decimal b = Decimal::cents(static_cast<std::int32_t>(random_()));
        const Decimal c = Decimal::cents(static_cast<std::int32_t>(random_()));
        EXPECT_EQ(a * (b + c), a * b + a * c);
        EXPECT_EQ(c.isZero() ? a : a * c / c, a);
    }
}

} // namespace
} // namespace oakfen
