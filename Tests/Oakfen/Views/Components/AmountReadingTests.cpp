#include "Oakfen/Views/Components/AmountReading.h"

#include <gtest/gtest.h>

#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {

using testing::LocaleForTest;

namespace {

const NumberPunctuation english{.decimal = '.', .grouping = ','};
const NumberPunctuation german{.decimal = ',', .grouping = '.'};
const NumberPunctuation french{.decimal = ',', .grouping = ' '};

std::string read(std::string_view text, const NumberPunctuation& punctuation = english) {
    const AmountReading reading = readAmount(text, punctuation);
    EXPECT_EQ(reading.value.has_value(), reading.explanation.empty()) << text;
    return reading.value ? reading.value->toString() : "?";
}

} // namespace

TEST(AmountReading, TakesPlainNumbers) {
    EXPECT_EQ(read("12.50"), "12.5");
    EXPECT_EQ(read("7"), "7");
    EXPECT_EQ(read(".5"), "0.5");
    EXPECT_EQ(read("12."), "12");
    EXPECT_EQ(read("007"), "7");
}

TEST(AmountReading, TakesTheLocalesGrouping) {
    EXPECT_EQ(read("1,234"), "1234");
    EXPECT_EQ(read("1,234,567.89"), "1234567.89");
    EXPECT_EQ(read("12,34,567"), "1234567");
    EXPECT_EQ(read("1.234", german), "1234");
    EXPECT_EQ(read("1.234,50", german), "1234.5");
    EXPECT_EQ(read("1 234,50", french), "1234.5");
}

TEST(AmountReading, TakesThePunctuationOfTheLocaleBeforeTheOther) {
    EXPECT_EQ(read("1.234"), "1.234");
    EXPECT_EQ(read("1.234", german), "1234");
    EXPECT_EQ(read("1.234", french), "1.234");
    EXPECT_EQ(read("1,234"), "1234");
    EXPECT_EQ(read("1,234", german), "1.234");
    EXPECT_EQ(read("1,234", french), "1.234");
    EXPECT_EQ(read("1,5"), "1.5");
}

TEST(AmountReading, TakesNoGroupAfterALoneZero) {
    EXPECT_EQ(read("0.500", german), "0.5");
    EXPECT_EQ(read("0,500"), "0.5");
}

TEST(AmountReading, FallsBackToTheOtherPunctuation) {
    EXPECT_EQ(read("12,50"), "12.5");
    EXPECT_EQ(read("1.234,50"), "1234.5");
    EXPECT_EQ(read("1.234.567"), "1234567");
    EXPECT_EQ(read("12.50", german), "12.5");
    EXPECT_EQ(read("1,234.50", german), "1234.5");
    EXPECT_EQ(read("12.50", french), "12.5");
    EXPECT_EQ(read("1,234.50", french), "1234.5");
    EXPECT_EQ(read("1.234,50", french), "1234.5");
}

TEST(AmountReading, TakesBlanksAndApostrophesBetweenGroups) {
    EXPECT_EQ(read("1 234,50", french), "1234.5");
    EXPECT_EQ(read("1\u00A0234,50", french), "1234.5");
    EXPECT_EQ(read("1\u202F234\u202F567"), "1234567");
    EXPECT_EQ(read("1'234.50"), "1234.5");
    EXPECT_EQ(read("1\u2019234.50"), "1234.5");
}

TEST(AmountReading, RefusesGroupsThatAreNone) {
    EXPECT_EQ(read("12 50"), "?");
    EXPECT_EQ(read("1,2,3"), "?");
    EXPECT_EQ(read("12.03.2026"), "?");
    EXPECT_EQ(read("1,234.50.1"), "?");
    EXPECT_EQ(read(",234.5"), "?");
}

TEST(AmountReading, TakesAMinusOnEitherSide) {
    EXPECT_EQ(read("-12.50"), "-12.5");
    EXPECT_EQ(read("12.50-"), "-12.5");
    EXPECT_EQ(read("- 12.50"), "-12.5");
    EXPECT_EQ(read("\u221212.50"), "-12.5");
    EXPECT_EQ(read("(12.50)"), "-12.5");
    EXPECT_EQ(read("+12.50"), "12.5");
    EXPECT_EQ(read("12.50 -"), "-12.5");
    EXPECT_EQ(read("\u200E-12.50"), "-12.5");
}

TEST(AmountReading, TakesADashInPlaceOfTheCentsForNone) {
    EXPECT_EQ(read("20.\u2013"), "20");
    EXPECT_EQ(read("20,-"), "20");
    EXPECT_EQ(read("1.250,\u2014", german), "1250");
    EXPECT_EQ(read("CHF 20.\u2013"), "20");
    EXPECT_EQ(read("20,\u2013 €", german), "20");
    EXPECT_EQ(read("-20.\u2013"), "-20");
}

TEST(AmountReading, RefusesACurrencySignBetweenDigits) {
    EXPECT_EQ(read("5€50"), "?");
    EXPECT_EQ(read("12$50"), "?");
    EXPECT_EQ(read("5 $ 500"), "?");
}

TEST(AmountReading, RefusesTwoMinuses) {
    EXPECT_EQ(read("-12.50-"), "?");
    EXPECT_EQ(read("--12"), "?");
    EXPECT_EQ(read("(-12)"), "?");
}

TEST(AmountReading, TakesWhatWasPastedWithItsCurrency) {
    EXPECT_EQ(read("$1,234.50"), "1234.5");
    EXPECT_EQ(read("-$1,234.50"), "-1234.5");
    EXPECT_EQ(read("$-5"), "-5");
    EXPECT_EQ(read("CA$12.50"), "12.5");
    EXPECT_EQ(read("12,50 €"), "12.5");
    EXPECT_EQ(read("£3"), "3");
    EXPECT_EQ(read("CAD 12.50"), "12.5");
    EXPECT_EQ(read("12.50 usd"), "12.5");
    EXPECT_EQ(read("  12.50\n"), "12.5");
    EXPECT_EQ(read("1 234,50 $ US", french), "1234.5");
    EXPECT_EQ(read("1 234,50 $CA", french), "1234.5");
    EXPECT_EQ(read("₹12,34,567.00"), "1234567");
}

TEST(AmountReading, TakesBracketsOnEitherSideOfTheCurrency) {
    EXPECT_EQ(read("($1,234.50)"), "-1234.5");
    EXPECT_EQ(read("$(1,234.50)"), "-1234.5");
    EXPECT_EQ(read("(CAD 12.50)"), "-12.5");
    EXPECT_EQ(read("CAD (12.50)"), "-12.5");
    EXPECT_EQ(read("12.50- EUR"), "-12.5");
}

TEST(AmountReading, TakesTheCurrencyOfThePlaceByItsName) {
    const NumberPunctuation swedish{.decimal = ',', .grouping = ' ', .currency = "kr"};
    EXPECT_EQ(read("1 234,50 kr", swedish), "1234.5");
    EXPECT_EQ(read("-5 kr", swedish), "-5");
    EXPECT_EQ(read("kr 5", swedish), "5");
    EXPECT_EQ(read("5 kr"), "?");
}

TEST(AmountReading, TakesTheNameOfACurrencyWithItsPointAndWithout) {
    NumberPunctuation danish{.decimal = ',', .grouping = '.', .currency = "kr"};
    EXPECT_EQ(read("5 kr", danish), "5");
    EXPECT_EQ(read("5,50 kr.", danish), "5.5");
    EXPECT_EQ(read("kr. 5", danish), "5");
    EXPECT_EQ(read("kr 5", danish), "5");
}

TEST(AmountReading, TakesTheDigitsOfEveryScript) {
    EXPECT_EQ(read("١٬٢٣٤٫٥٠"), "1234.5");
    EXPECT_EQ(read("\u061C-۱۲٫۵"), "-12.5");
    EXPECT_EQ(read("١٬٢٣٤٫٥٠", german), "1234.5");
    EXPECT_EQ(read("￥１，２３４"), "1234");
}

TEST(AmountReading, RefusesWhatIsNoNumber) {
    EXPECT_EQ(read("NaN"), "?");
    EXPECT_EQ(read("inf"), "?");
    EXPECT_EQ(read("1e5"), "?");
    EXPECT_EQ(read("CAD"), "?");
    EXPECT_EQ(read("$"), "?");
    EXPECT_EQ(read("."), "?");
    EXPECT_EQ(read("0x10"), "?");
    EXPECT_EQ(read("()"), "?");
}

TEST(AmountReading, KeepsThirtyEightDigitsOfAHugeNumberAndRefusesALargerOne) {
    EXPECT_EQ(read("99999999999999999999999999999999999999"),
              "99999999999999999999999999999999999999");
    EXPECT_EQ(read(std::string(200, '9')), "?");
    EXPECT_EQ(read("1" + std::string(100, '0') + "*1" + std::string(100, '0')), "?");
}

TEST(AmountReading, Calculates) {
    EXPECT_EQ(read("12.50+3*2"), "18.5");
    EXPECT_EQ(read("100 - 12.50 - 7.50"), "80");
    EXPECT_EQ(read("3*-2"), "-6");
    EXPECT_EQ(read("-3+5"), "2");
    EXPECT_EQ(read("10/4"), "2.5");
    EXPECT_EQ(read("1,200.00+1,200.00"), "2400");
    EXPECT_EQ(read("6 \u00D7 7"), "42");
    EXPECT_EQ(read("(100-20)*1.13"), "90.4");
    EXPECT_EQ(read("(100,00-20)*1,13", german), "90.4");
    EXPECT_EQ(read("$100+13%"), "113");
    EXPECT_EQ(read("(100-20)"), "80");
    EXPECT_EQ(read("(100)*2"), "200");
}

TEST(AmountReading, TakesBracketsAroundOneNumberForANegativeAsStatementsDo) {
    EXPECT_EQ(read("(100)"), "-100");
    EXPECT_EQ(read("((100))"), "100");
}

TEST(AmountReading, TakesThePercentSignOfEveryScript) {
    EXPECT_EQ(read("\u0661\u0660\u0660+\u0661\u0663\u066A"), "113");
    EXPECT_EQ(read("100+13\uFF05"), "113");
    EXPECT_EQ(read("13\u00A0%"), "0.13");
}

TEST(AmountReading, RefusesAnUnfinishedCalculation) {
    EXPECT_EQ(read("12+"), "?");
    EXPECT_EQ(read("*3"), "?");
    EXPECT_EQ(read("1+2-"), "?");
    EXPECT_EQ(read("(100-20"), "?");
    EXPECT_EQ(read("100-20)"), "?");
    EXPECT_EQ(read("-"), "?");
}

TEST(AmountReading, ExplainsWhyTextHasNoValue) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(readAmount("abc").explanation,
              "“abc” isn’t an amount. Enter a number, for example 1,234.50, or a sum such as "
              "12.50+3*2.");
    for (const char* unfinished : {"12+", "*3", "-", "."}) {
        EXPECT_EQ(readAmount(unfinished).explanation,
                  "“" + std::string(unfinished) +
                      "” isn’t an amount. Enter a number, for example 1,234.50, or a sum such as "
                      "12.50+3*2.");
    }
    EXPECT_EQ(readAmount("  ").explanation, "Enter an amount, for example 1,234.50.");
    EXPECT_EQ(readAmount("1/0").explanation, "This calculation has no result.");
    const std::string thousands = "1" + std::string(100, '0');
    EXPECT_EQ(readAmount(thousands + "*" + thousands).explanation,
              "This calculation has no result.");
    EXPECT_EQ(readAmount(std::string(200, '9')).explanation, "This amount is too large.");
    EXPECT_EQ(readAmount("-" + std::string(200, '9')).explanation, "This amount is too large.");
}

TEST(AmountReading, ShowsItsExamplesInTheLocalesPunctuation) {
    const LocaleForTest locale("de_DE");
    EXPECT_EQ(readAmount("").explanation, "Enter an amount, for example 1.234,50.");
    EXPECT_EQ(exampleCalculation(), "12,50+3*2");
    EXPECT_EQ(readAmount(exampleCalculation()).value, Decimal::cents(1850));
}

TEST(NumberPunctuation, FollowsTheUsersLocale) {
    const auto of = [](const char* name) {
        const LocaleForTest locale(name);
        return NumberPunctuation::user();
    };
    EXPECT_EQ(of("en_CA"), english);
    EXPECT_EQ(of("en_IN"), english);
    EXPECT_EQ(of("ja_JP"), english);
    EXPECT_EQ(of("de_DE"), german);
    EXPECT_EQ(of("fr_CA"), french);
    EXPECT_EQ(of("de_CH"), (NumberPunctuation{'.', ' ', "CHF"}));
    EXPECT_EQ(of("sv_SE"), (NumberPunctuation{',', ' ', "kr"}));
    EXPECT_EQ(of("ar_EG").decimal, '.');
    EXPECT_EQ(of("fa_IR").grouping, ',');
}

/// Whatever the program shows can be copied and typed again.
class AmountInALocale : public ::testing::TestWithParam<const char*> {};

TEST_P(AmountInALocale, ReadsTheNumbersThatItShows) {
    const LocaleForTest locale(GetParam());
    for (const char* digits : {"0", "0.05", "12.5", "-0.5", "1234.5", "-1234.56", "1234567.89"}) {
        const Decimal value = Decimal::parse(digits).value();
        const std::string text = numberText(value, 2);
        EXPECT_EQ(readAmount(text).value, value) << text;
    }
}

TEST_P(AmountInALocale, ReadsTheMoneyThatItShows) {
    const LocaleForTest locale(GetParam());
    for (const std::string& code :
         {localeCurrencyCode(), std::string("USD"), std::string("EUR"), std::string("CAD")}) {
        for (const int whole : {0, 7, -1234, 1234567}) {
            const std::string text = currencyText(Decimal(whole), code);
            EXPECT_EQ(readAmount(text).value, Decimal(whole)) << text;
        }
    }
}

TEST_P(AmountInALocale, ReadsWhatIsTypedOnAnyKeyboard) {
    const LocaleForTest locale(GetParam());
    EXPECT_EQ(readAmount("12.50").value, Decimal::cents(1250));
    EXPECT_EQ(readAmount("12,50").value, Decimal::cents(1250));
    EXPECT_EQ(readAmount("$1,234.50").value, Decimal::cents(123450));
    EXPECT_EQ(readAmount("1.234,50 €").value, Decimal::cents(123450));
}

INSTANTIATE_TEST_SUITE_P(Locales, AmountInALocale,
                         ::testing::Values("en_CA", "en_US", "en_IN", "en_ZA", "fr_CA", "fr_FR",
                                           "fr_CH", "de_DE", "de_AT", "de_CH", "es_ES", "es_MX",
                                           "pt_BR", "it_IT", "nl_NL", "pl_PL", "cs_CZ", "hu_HU",
                                           "sv_SE", "nb_NO", "da_DK", "fi_FI", "ru_RU", "uk_UA",
                                           "tr_TR", "he_IL", "ar_EG", "ar_MA", "ar_SA", "fa_IR",
                                           "hi_IN", "mr_IN", "bn_BD", "my_MM", "ja_JP", "ko_KR",
                                           "zh_CN", "zh_TW", "th_TH", "vi_VN"),
                         [](const auto& each) { return std::string(each.param); });

TEST(AmountReading, KeepsEveryDigit) {
    EXPECT_EQ(read("0.123456789"), "0.123456789");
}

} // namespace oakfen
