#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "OakfenCore/Support/Number/Decimal.h"

namespace oakfen {
namespace {

std::string parsed(std::string_view text) {
    const auto value = Decimal::parse(text);
    return value ? value->toString() : "nothing";
}

std::string parsedJSON(std::string_view text) {
    const auto value = Decimal::parseJSONNumber(text);
    return value ? value->toString() : "nothing";
}

TEST(DecimalText, IsPlainDigits) {
    EXPECT_EQ(Decimal::make(-125, -1).toString(), "-12.5");
    EXPECT_EQ(Decimal::make(1, 2).toString(), "100");
    EXPECT_EQ(Decimal::make(1, -6).toString(), "0.000001");
    EXPECT_EQ(Decimal::make(-5, -1).toString(), "-0.5");
    EXPECT_EQ(Decimal::make(1, -128).toString(), "0." + std::string(127, '0') + "1");
    EXPECT_EQ(Decimal::make(7, 127).toString(), "7" + std::string(127, '0'));
}

TEST(DecimalText, KeepsZerosInsideALongNumber) {
    EXPECT_EQ(parsed("10000000000000000000000000000000000001"),
              "10000000000000000000000000000000000001");
    EXPECT_EQ(parsed("12345678901234567890.00000000000000012"),
              "12345678901234567890.00000000000000012");
}

TEST(DecimalText, IsAppendedToWhatStandsThere) {
    std::string text = "[1";
    Decimal::make(-5, -3).appendTo(text);
    EXPECT_EQ(text, "[1-0.005");
}

TEST(DecimalText, ReadsWhatBanksWrite) {
    EXPECT_EQ(parsed("12.50"), "12.5");
    EXPECT_EQ(parsed("-0012.50"), "-12.5");
    EXPECT_EQ(parsed(".5"), "0.5");
    EXPECT_EQ(parsed("12."), "12");
    EXPECT_EQ(parsed("-.5"), "-0.5");
    EXPECT_EQ(parsed("-0"), "0");
    EXPECT_EQ(parsed("0.00"), "0");
}

TEST(DecimalText, ReadsNothingElse) {
    for (const char* text : {"", "-", ".", "-.", "1.2.3", "+1", "1e5", " 1", "1 ", "--1", "1-",
                             "1,5", "NaN", "0x10", "\xD9\xA1"}) {
        EXPECT_EQ(parsed(text), "nothing") << text;
    }
    EXPECT_EQ(parsed(std::string_view("1\0", 2)), "nothing");
}

TEST(DecimalText, RoundsDigitsPastThe38th) {
    const std::string digits = "12345678901234567890123456789012345678";
    EXPECT_EQ(parsed(digits + "4"), digits + "0");
    EXPECT_EQ(parsed(digits + "5"), "123456789012345678901234567890123456790");
    EXPECT_EQ(parsed("0." + digits + "49999"), "0." + digits);
    EXPECT_EQ(parsed("-0." + digits + "5"), "-0.12345678901234567890123456789012345679");
    EXPECT_EQ(parsed(std::string(39, '9')), "1" + std::string(39, '0'));
}

TEST(DecimalText, ReadsHostileLengthsInOnePass) {
    const std::string zeros(3'000'000, '0');
    EXPECT_EQ(parsed(zeros + "7"), "7");
    EXPECT_EQ(parsed("7." + zeros), "7");
    EXPECT_EQ(parsed("0." + zeros + "7"), "0");
    EXPECT_EQ(parsed("7" + zeros), "nothing");
    EXPECT_EQ(parsed(std::string(3'000'000, '9')), "nothing");
    EXPECT_EQ(parsedJSON("7" + zeros + "e-3000000"), "7");
    EXPECT_EQ(parsedJSON("0." + zeros + "7e3000001"), "7");
    EXPECT_EQ(parsedJSON("1e" + std::string(3'000'000, '9')), "nothing");
}

TEST(DecimalText, ReadsNumbersOfJSON) {
    EXPECT_EQ(parsedJSON("0"), "0");
    EXPECT_EQ(parsedJSON("-0.0"), "0");
    EXPECT_EQ(parsedJSON("12.50"), "12.5");
    EXPECT_EQ(parsedJSON("1e3"), "1000");
    EXPECT_EQ(parsedJSON("1.5E+2"), "150");
    EXPECT_EQ(parsedJSON("-25e-4"), "-0.0025");
    EXPECT_EQ(parsedJSON("1e-999"), "0");
    EXPECT_EQ(parsedJSON("0e999999999999999999999"), "0");
}

TEST(DecimalText, RefusesWhatJSONRefuses) {
    for (const char* text : {"", "-", "01", "-01", ".5", "5.", "+1", "1e", "1e+", "e5", "1.e5",
                             "1e5.0", "1e5e5", "0x1", "NaN", "Infinity", " 1", "1 ", "1.2.3"}) {
        EXPECT_EQ(parsedJSON(text), "nothing") << text;
    }
}

TEST(DecimalText, RefusesWhatIsTooLarge) {
    EXPECT_EQ(parsedJSON("1e165"), "nothing");
    EXPECT_EQ(parsedJSON("-1e9999"), "nothing");
    EXPECT_NE(parsedJSON("1e164"), "nothing");
}

TEST(DecimalText, ReadsBackWhatItWrites) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 5000; ++i) {
        const Int128 coefficient = Int128{static_cast<std::int64_t>(random())} *
                                   static_cast<std::int64_t>(random() % 1'000'000'000'000);
        const Decimal value = Decimal::make(coefficient, static_cast<int>(random() % 256) - 128);
        EXPECT_EQ(Decimal::parse(value.toString()), value);
        EXPECT_EQ(Decimal::parseJSONNumber(value.toString()), value);
    }
}

TEST(DecimalText, GivesTheNearestBinaryNumber) {
    EXPECT_EQ(Decimal::cents(10).doubleValue(), 0.1);
    EXPECT_EQ(Decimal::cents(-123456).doubleValue(), -1234.56);
    EXPECT_EQ(Decimal::make(1, 127).doubleValue(), 1e127);
    EXPECT_EQ(Decimal::make(1, -128).doubleValue(), 1e-128);
    EXPECT_EQ(Decimal::parse("-9007199254740993.5")->doubleValue(), -9007199254740994.0);
    EXPECT_EQ(Decimal::parse("3.1415926535897932384626433832795028842")->doubleValue(), M_PI);
    EXPECT_TRUE(std::isnan(Decimal::nan().doubleValue()));
}

} // namespace
} // namespace oakfen
