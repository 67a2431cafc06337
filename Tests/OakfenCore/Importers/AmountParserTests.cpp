#include "OakfenCore/Importers/AmountParser.h"

#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::money;

namespace {

void expectAmount(std::string_view text, std::string_view value) {
    EXPECT_EQ(AmountParser::parse(text), money(value)) << text;
}

void expectNoAmount(std::string_view text) {
    EXPECT_EQ(AmountParser::parse(text), std::nullopt) << text;
}

} // namespace

TEST(AmountParser, ReadsPlainFigures) {
    expectAmount("12.50", "12.5");
    expectAmount("-4.50", "-4.5");
    expectAmount("0.00", "0");
    expectAmount(".5", "0.5");
    expectAmount("12.", "12");
}

TEST(AmountParser, GivesNothingForATextWithoutAFigure) {
    expectNoAmount("");
    expectNoAmount("  \t ");
    expectNoAmount("\u00A0");
    expectNoAmount("none");
    expectNoAmount(".");
    expectNoAmount("-");
    expectNoAmount("()");
    expectNoAmount("DR");
}

TEST(AmountParser, DropsThousandsMarksNextToAPoint) {
    expectAmount("1,234.56", "1234.56");
    expectAmount("1,234,567.89", "1234567.89");
}

TEST(AmountParser, TakesACommaBeforeTwoDigitsForADecimalComma) {
    expectAmount("1234,56", "1234.56");
    expectAmount("1 234,56", "1234.56");
    expectAmount("1,234,56", "1234.56");
    expectAmount("-0,05", "-0.05");
}

TEST(AmountParser, TakesAnyOtherCommaForAThousandsMark) {
    expectAmount("1,234", "1234");
    expectAmount("12,5", "125");
    expectAmount("1.234,56", "1.23456");
}

TEST(AmountParser, DropsCurrencySignsLettersSpacesAndApostrophes) {
    expectAmount("$1,234.50", "1234.5");
    expectAmount("USD 12.00", "12");
    expectAmount("€ 7,25", "7.25");
    expectAmount("1'234.50", "1234.5");
    expectAmount("+5.00", "5");
}

TEST(AmountParser, ReadsATrailingMinusAsNegative) {
    expectAmount("1,234.50-", "-1234.5");
    expectAmount("7 -", "-7");
}

TEST(AmountParser, ReadsParenthesesAtTheEdgesAsNegative) {
    expectAmount("(1,234.50)", "-1234.5");
    expectAmount(" ($20.00) ", "-20");
}

TEST(AmountParser, DoesNotRecogniseParenthesesBehindACurrencySign) {
    expectAmount("$(20.00)", "20");
    expectAmount("(20.00", "20");
}

TEST(AmountParser, ReadsDebitAndCreditMarksInAnyCase) {
    expectAmount("100.00 DR", "-100");
    expectAmount("100.00dr", "-100");
    expectAmount("100.00 cr", "100");
    expectAmount("-100.00 Cr", "-100");
    expectAmount("100.00 CRDR", "-100");
}

TEST(AmountParser, TakesWhatIsNegativeTwiceForPositive) {
    expectAmount("(-5.00)", "5");
    expectAmount("-5.00-", "5");
    expectAmount("-5.00 DR", "5");
    expectAmount("--5", "5");
}

TEST(AmountParser, GivesNothingForAMinusInsideTheFigure) {
    expectNoAmount("12-34");
    expectNoAmount("5.00- CR.");
    expectNoAmount("---5");
}

TEST(AmountParser, GivesNothingForTwoPoints) {
    expectNoAmount("1.2.3");
    expectNoAmount("1.234.567,00");
}

TEST(AmountParser, LeavesOutADigitThatAMarkCombinesWith) {
    expectAmount("12\u03013", "13");
    expectAmount("1\u20E32", "2");
}

TEST(AmountParser, GivesNothingForAFigureOutOfRange) {
    expectNoAmount(std::string(400, '9'));
}

TEST(AmountParser, NeverGivesANegativeZero) {
    expectAmount("(0.00)", "0");
}

} // namespace oakfen
