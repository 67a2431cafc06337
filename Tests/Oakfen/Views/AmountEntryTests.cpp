#include "Oakfen/Views/AmountEntry.h"

#include <gtest/gtest.h>

#include <tuple>

#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::LocaleForTest;
using testing::amount;

namespace {

const NumberPunctuation english{.decimal = '.', .grouping = ","};
const NumberPunctuation german{.decimal = ',', .grouping = "."};
const NumberPunctuation french{.decimal = ',', .grouping = ""};

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
}

TEST(AmountReading, Calculates) {
    EXPECT_EQ(read("12.50+3*2"), "18.5");
    EXPECT_EQ(read("100 - 12.50 - 7.50"), "80");
    EXPECT_EQ(read("3*-2"), "-6");
    EXPECT_EQ(read("-3+5"), "2");
    EXPECT_EQ(read("10/4"), "2.5");
    EXPECT_EQ(read("1,200.00+1,200.00"), "2400");
    EXPECT_EQ(read("6 \u00D7 7"), "42");
}

TEST(AmountReading, RefusesAnUnfinishedCalculation) {
    EXPECT_EQ(read("12+"), "?");
    EXPECT_EQ(read("*3"), "?");
    EXPECT_EQ(read("1+2-"), "?");
    EXPECT_EQ(read("-"), "?");
}

TEST(AmountReading, ExplainsWhyTextHasNoValue) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(readAmount("abc").explanation,
              "“abc” isn’t an amount. Enter a number, for example 1,234.50, or a sum such as "
              "12.50+3*2.");
    EXPECT_EQ(readAmount("  ").explanation, "Enter an amount, for example 1,234.50.");
    EXPECT_EQ(readAmount("1/0").explanation, "This calculation has no result.");
}

TEST(AmountReading, KeepsEveryDigit) {
    EXPECT_EQ(read("0.123456789"), "0.123456789");
}

TEST(AmountEntry, ShowsTwoDecimals) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(AmountEntry(amount("1234.5")).text(), "1,234.50");
    EXPECT_EQ(AmountEntry().text(), "0.00");
}

TEST(AmountEntry, NeverRoundsTheHeldValueByShowingIt) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry(amount("12.3456"));
    EXPECT_EQ(entry.text(), "12.35");
    entry.edit("12.35");
    entry.finishEditing();
    EXPECT_EQ(entry.value(), amount("12.3456"));
}

TEST(AmountEntry, GetsTheHeldValueBackWhenItsTextIsTypedAgain) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry(amount("12.3456"));
    entry.edit("12.3");
    EXPECT_EQ(entry.value(), amount("12.3"));
    entry.edit("12.35");
    EXPECT_EQ(entry.value(), amount("12.3456"));
}

TEST(AmountEntry, LeavesTheTextAloneWhileItIsTyped) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry;
    entry.edit("12.5");
    EXPECT_EQ(entry.text(), "12.5");
    entry.finishEditing();
    EXPECT_EQ(entry.text(), "12.50");
    EXPECT_EQ(entry.value(), amount("12.5"));
}

TEST(AmountEntry, KeepsTheEarlierValueWhenTheEntryCannotBeRead) {
    AmountEntry entry(amount("40"));
    entry.edit("12");
    entry.edit("12+");
    EXPECT_EQ(entry.value(), amount("40"));
    EXPECT_FALSE(entry.explanation().empty());
    entry.finishEditing();
    EXPECT_EQ(entry.text(), "12+");
}

TEST(AmountEntry, ForgetsTheExplanationWithTheNextGoodEntry) {
    AmountEntry entry;
    entry.edit("x");
    entry.edit("3");
    EXPECT_EQ(entry.explanation(), "");
    EXPECT_EQ(entry.value(), amount("3"));
}

TEST(AmountEntry, ShowsAValueThatIsSetFromOutside) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry;
    entry.edit("x");
    entry.setValue(amount("-7"));
    EXPECT_EQ(entry.text(), "-7.00");
    EXPECT_EQ(entry.explanation(), "");
}

} // namespace oakfen
