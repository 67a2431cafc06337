#include "Oakfen/Views/Components/Calculation.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace oakfen {

namespace {

std::string calculated(std::string_view text) {
    const auto value = calculate(text, '.', ',');
    return value ? value->toString() : "?";
}

/// A calculation as it is typed, and what it comes to by the rules of a pocket calculator.
struct Written {
    std::string text;
    Decimal value;
    bool isPercentage = false;
};

/// Writes calculations of every shape that can be typed.
class RandomCalculations {
public:
    Written sum(int depth) {
        Written result = product(depth);
        for (int more = below(3); more > 0; --more) {
            const bool adds = below(2) == 0;
            const Written next = product(depth);
            const Decimal change = next.isPercentage ? result.value * next.value : next.value;
            result.value = adds ? result.value + change : result.value - change;
            result.text += blank() + (adds ? "+" : "-") + next.text;
        }
        return result;
    }

private:
    Written product(int depth) {
        Written result = factor(depth);
        for (int more = below(3); more > 0; --more) {
            const bool multiplies = below(3) > 0;
            const Written next = factor(depth);
            result.value = multiplies ? result.value * next.value : result.value / next.value;
            result.text += blank() + (multiplies ? "*" : "/") + next.text;
            result.isPercentage = false;
        }
        return result;
    }

    Written factor(int depth) {
        Written result;
        if (depth > 0 && below(3) == 0) {
            result = sum(depth - 1);
            result.text = "(" + result.text + blank() + ")";
        } else {
            result.value = Decimal::cents(below(100000));
            result.text = result.value.toString();
        }
        if (below(4) == 0) {
            result.text = "-" + blank() + result.text;
            result.value = -result.value;
        }
        result.isPercentage = below(4) == 0;
        if (result.isPercentage) {
            result.text += blank() + "%";
            result.value = result.value / Decimal(100);
        }
        result.text = blank() + result.text;
        return result;
    }

    std::string blank() { return below(5) == 0 ? " " : ""; }
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

    std::mt19937 random_{20261121};
};

} // namespace

TEST(Calculation, TakesASumInParenthesesForANumber) {
    EXPECT_EQ(calculated("(100-20)*1.13"), "90.4");
    EXPECT_EQ(calculated("2*(3+4)*(5-1)"), "56");
    EXPECT_EQ(calculated("100-(20-5)"), "85");
    EXPECT_EQ(calculated("-(3+2)"), "-5");
    EXPECT_EQ(calculated("( (1 + 2) * (3) ) / 3"), "3");
    EXPECT_EQ(calculated("5+(100)"), "105");
}

TEST(Calculation, RefusesParenthesesThatDoNotMatch) {
    for (const char* text : {"(", ")", "()", "(1", "1)", "(1+2", "1+2)", "(1))", "((1)", ")1(",
                             "2(3)", "(2)3", "(1+)", "(1)(2)", "1+()"}) {
        EXPECT_EQ(calculated(text), "?") << text;
    }
}

TEST(Calculation, TakesAnAddedPercentageFromTheSumBeforeIt) {
    EXPECT_EQ(calculated("100+13%"), "113");
    EXPECT_EQ(calculated("100-20%"), "80");
    EXPECT_EQ(calculated("50+50+13%"), "113");
    EXPECT_EQ(calculated("100+5%+10%"), "115.5");
    EXPECT_EQ(calculated("3*20-10%"), "54");
    EXPECT_EQ(calculated("100 + 13 %"), "113");
    EXPECT_EQ(calculated("100+(10+3)%"), "113");
    EXPECT_EQ(calculated("100+-13%"), "87");
    EXPECT_EQ(calculated("10+(100+13%)"), "123");
}

TEST(Calculation, TakesAnyOtherPercentageForHundredths) {
    EXPECT_EQ(calculated("50%"), "0.5");
    EXPECT_EQ(calculated("200*15%"), "30");
    EXPECT_EQ(calculated("15%*200"), "30");
    EXPECT_EQ(calculated("30/15%"), "200");
    EXPECT_EQ(calculated("100+200*15%"), "130");
    EXPECT_EQ(calculated("100+(13%)"), "100.13");
    EXPECT_EQ(calculated("50%+1"), "1.5");
}

TEST(Calculation, RefusesAPercentSignWithoutItsNumber) {
    for (const char* text : {"%", "%5", "5%%", "5%5", "5%(2)", "(%)", "5+%"}) {
        EXPECT_EQ(calculated(text), "?") << text;
    }
}

TEST(Calculation, HasNoResultWhereAnythingIsDividedByNothing) {
    EXPECT_EQ(calculated("1/(2-2)"), "NaN");
    EXPECT_EQ(calculated("1/0%"), "NaN");
    EXPECT_EQ(calculated("(1/0)*0+5%"), "NaN");
}

TEST(Calculation, ComesToWhatItsPartsComeTo) {
    RandomCalculations random;
    for (int round = 0; round < 5000; ++round) {
        const Written written = random.sum(4);
        EXPECT_EQ(calculated(written.text), written.value.toString()) << written.text;
    }
}

TEST(Calculation, ReadsEveryDepthThatAFieldHasRoomFor) {
    const auto nested = [](std::size_t depth) {
        return std::string(depth, '(') + "7" + std::string(depth, ')');
    };
    EXPECT_EQ(calculated(nested(150)), "7");
    EXPECT_EQ(calculated(nested(10000)), "?");
}

TEST(Calculation, RefusesHostileTextAtOnce) {
    constexpr std::size_t many = 10000;
    for (const char* piece :
         {"(", ")", "()", "%", "(1+", "-(", "1*(", "((1)", "1%+", "+", " ", "-"}) {
        std::string text;
        for (std::size_t count = 0; count < many; ++count) {
            text += piece;
        }
        EXPECT_EQ(calculated(text), "?") << piece;
    }
}

} // namespace oakfen
