#include "OakfenCore/Support/Text/Formatting.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

#include "OakfenCore/Support/Text/MonthText.h"

namespace oakfen {
namespace {

Decimal decimal(std::string_view text) {
    return Decimal::parse(text).value();
}

class Formatting : public testing::Test {
protected:
    Formatting() { setUserLocale("en_CA"); }
    ~Formatting() override { setUserLocales(before_); }

private:
    UserLocales before_ = userLocales();
};

TEST_F(Formatting, TellsTheCurrencyOfTheLocale) {
    EXPECT_EQ(localeCurrencyCode(), "CAD");
    setUserLocale("de_DE");
    EXPECT_EQ(localeCurrencyCode(), "EUR");
    setUserLocale("eo");
    EXPECT_EQ(localeCurrencyCode(), "CAD");
}

TEST_F(Formatting, NamesCurrencies) {
    EXPECT_EQ(currencyName("CAD"), "Canadian Dollar");
    EXPECT_EQ(currencyName("XQZ"), "");
    EXPECT_EQ(currencyName(""), "");
    EXPECT_EQ(currencyName("dollars"), "");
    setUserLocale("fr_CA");
    EXPECT_EQ(currencyName("CAD"), "dollar canadien");
}

TEST_F(Formatting, ListsTheCurrenciesInUse) {
    const auto& codes = currencyCodes();
    EXPECT_TRUE(std::is_sorted(codes.begin(), codes.end()));
    EXPECT_EQ(std::adjacent_find(codes.begin(), codes.end()), codes.end());
    for (const char* code : {"CAD", "USD", "EUR", "JPY"}) {
        EXPECT_TRUE(std::binary_search(codes.begin(), codes.end(), code)) << code;
    }
    EXPECT_FALSE(std::binary_search(codes.begin(), codes.end(), "DEM"));
}

TEST_F(Formatting, WritesMoneyWithTheCurrencysDigits) {
    EXPECT_EQ(currencyText(decimal("1234.5"), "CAD"), "$1,234.50");
    EXPECT_EQ(currencyText(decimal("-1234.5"), "CAD"), "-$1,234.50");
    EXPECT_EQ(currencyText(decimal("1234.5"), "JPY"), "JP\u00A51,235");
    EXPECT_EQ(currencyText(Decimal(), "CAD"), "$0.00");
    setUserLocale("en_US");
    EXPECT_EQ(currencyText(decimal("5"), "USD"), "$5.00");
}

TEST_F(Formatting, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(currencyText(decimal("2.345"), "CAD"), "$2.35");
    EXPECT_EQ(currencyText(decimal("2.335"), "CAD"), "$2.34");
    EXPECT_EQ(currencyText(decimal("-2.345"), "CAD"), "-$2.35");
    EXPECT_EQ(numberText(decimal("0.125"), 2), "0.13");
    EXPECT_EQ(percentText(0.125), "13%");
}

TEST_F(Formatting, GroupsTheDigitsOfACount) {
    EXPECT_EQ(countText(0), "0");
    EXPECT_EQ(countText(100'000), "100,000");
    setUserLocale("de_DE");
    EXPECT_EQ(countText(100'000), "100.000");
}

TEST_F(Formatting, KeepsAllDigitsOfALargeAmount) {
    EXPECT_EQ(currencyText(decimal("123456789012345678901234567890123456.78"), "CAD"),
              "$123,456,789,012,345,678,901,234,567,890,123,456.78");
}

TEST_F(Formatting, WritesABareNumberForACodeThatIsNone) {
    EXPECT_EQ(currencyText(decimal("1234.5"), ""), "1,234.50");
    EXPECT_EQ(currencyText(decimal("1234.5"), "$$$"), "1,234.50");
    EXPECT_EQ(compactCurrencyText(decimal("1200"), "dollars"), "1.2K");
}

TEST_F(Formatting, WritesNotANumberWithoutHarm) {
    EXPECT_EQ(numberText(Decimal::nan(), 2), "NaN");
    EXPECT_EQ(currencyText(Decimal::nan(), "CAD"), "$NaN");
}

TEST_F(Formatting, WritesMoneyInFewCharacters) {
    EXPECT_EQ(compactCurrencyText(decimal("1200"), "CAD"), "$1.2K");
    EXPECT_EQ(compactCurrencyText(decimal("-1250000"), "CAD"), "-$1.25M");
    EXPECT_EQ(compactCurrencyText(decimal("50"), "CAD"), "$50");
    EXPECT_EQ(compactCurrencyText(Decimal(), "CAD"), "$0");
}

TEST_F(Formatting, WritesNumbersWithSoManyDecimals) {
    EXPECT_EQ(numberText(decimal("12345.675"), 2), "12,345.68");
    EXPECT_EQ(numberText(decimal("7"), 4), "7.0000");
    EXPECT_EQ(numberText(decimal("7.5"), 0), "8");
    EXPECT_EQ(numberText(decimal("7.5"), -3), "8");
    setUserLocale("de_DE");
    EXPECT_EQ(numberText(decimal("12345.675"), 2), "12.345,68");
}

TEST_F(Formatting, WritesPercentages) {
    EXPECT_EQ(percentText(0.45), "45%");
    EXPECT_EQ(percentText(-0.333), "-33%");
    EXPECT_EQ(percentText(12.5), "1,250%");
    EXPECT_EQ(percentText(0, 1), "0.0%");
    EXPECT_EQ(percentText(0.1234, 1), "12.3%");
}

TEST_F(Formatting, WritesDatesInTheLocalesOrder) {
    const Calendar calendar = Calendar::utc();
    const Date date = calendar.date({2024, 3, 5, 23, 59, 59});
    EXPECT_EQ(numericDateText(date, calendar), "03/05/2024");
    EXPECT_EQ(abbreviatedMonthDayText(date, calendar), "Mar 5");
    EXPECT_EQ(weekdayMonthDayText(date, calendar), "Tuesday, March 5");
    EXPECT_EQ(abbreviatedDateText(date, calendar), "Mar 5, 2024");
    EXPECT_EQ(abbreviatedMonthYearText(date, calendar), "Mar 2024");
    EXPECT_EQ(completeDateText(date, calendar), "Tuesday, March 5, 2024");
    EXPECT_EQ(monthYearText(date, calendar), "March 2024");
    EXPECT_EQ(abbreviatedMonthText(date, calendar), "Mar");
    setUserLocale("de_DE");
    EXPECT_EQ(numericDateText(date, calendar), "05.03.2024");
    EXPECT_EQ(abbreviatedDateText(date, calendar), "5. M\u00E4rz 2024");
    EXPECT_EQ(completeDateText(date, calendar), "Dienstag, 5. M\u00E4rz 2024");
    EXPECT_EQ(monthYearText(date, calendar), "M\u00E4rz 2024");
}

TEST_F(Formatting, WritesTheDayOfTheCalendarsZone) {
    const Calendar utc = Calendar::utc();
    const Date evening = utc.date({2024, 3, 6, 2, 0, 0});
    EXPECT_EQ(abbreviatedMonthDayText(evening, utc), "Mar 6");
    EXPECT_EQ(abbreviatedMonthDayText(evening, *Calendar::inZone("America/Toronto")), "Mar 5");
}

TEST_F(Formatting, WritesDatesOfAnyYear) {
    const Calendar calendar = Calendar::utc();
    EXPECT_EQ(completeDateText(calendar.date({20245, 1, 1}), calendar),
              "Wednesday, January 1, 20245");
    EXPECT_EQ(numericDateText(calendar.date({1500, 3, 1}), calendar), "03/01/1500");
    EXPECT_FALSE(numericDateText(Date{std::numeric_limits<double>::infinity()}, calendar).empty());
}

TEST_F(Formatting, ServesManyThreadsAtOnce) {
    std::vector<std::thread> threads;
    std::vector<std::string> texts(4);
    for (auto& text : texts) {
        threads.emplace_back([&text] {
            for (int i = 0; i < 200; ++i) {
                text = currencyText(Decimal::cents(i), "EUR") +
                       numericDateText(Date{8e8}, Calendar::utc());
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(std::count(texts.begin(), texts.end(), texts.front()), 4);
}

} // namespace
} // namespace oakfen
