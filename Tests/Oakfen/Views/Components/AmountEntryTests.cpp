#include "Oakfen/Views/Components/AmountEntry.h"

#include <gtest/gtest.h>

#include <utility>

#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::amount;
using testing::LocaleForTest;

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

TEST(AmountEntry, RoundsCalculatedMoneyToTheCentHalfAwayFromZero) {
    const LocaleForTest locale("en_CA");
    for (const auto& [typed, cents] :
         {std::pair("100/3", 3333), std::pair("200/3", 6667), std::pair("0.01/2", 1),
          std::pair("-0.01/2", -1), std::pair("1.005*1", 101), std::pair("-2/3", -67)}) {
        AmountEntry entry;
        entry.edit(typed);
        EXPECT_EQ(entry.value(), Decimal::cents(cents)) << typed;
        EXPECT_EQ(entry.text(), typed);
        entry.finishEditing();
        EXPECT_EQ(entry.value(), Decimal::cents(cents)) << typed;
    }
}

TEST(AmountEntry, RoundsMoneyThatIsTypedWithMoreDecimalsThanItShows) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry;
    entry.edit("12.3456");
    EXPECT_EQ(entry.value(), amount("12.35"));
    entry.finishEditing();
    EXPECT_EQ(entry.text(), "12.35");
    entry.edit("0.004");
    EXPECT_TRUE(entry.value().isZero());
}

TEST(AmountEntry, HoldsSharesPricesAndRatesAsTheyAreTyped) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry(AmountKind::number);
    entry.edit("5.125");
    entry.finishEditing();
    EXPECT_EQ(entry.value(), amount("5.125"));
    entry.edit("1/8");
    EXPECT_EQ(entry.value(), amount("0.125"));
    entry.edit("200/3");
    EXPECT_EQ(entry.value(), Decimal(200) / Decimal(3));
}

TEST(AmountEntry, HoldsARateInPercentWithOrWithoutItsSign) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry(AmountKind::rate);
    for (const char* typed : {"5.125", "5.125%", "5.125 %", "4.125% + 1%", "5.125\u066A"}) {
        entry.edit(typed);
        EXPECT_EQ(entry.value(), amount("5.125")) << typed;
    }
    entry.edit("%");
    EXPECT_FALSE(entry.explanation().empty());
}

TEST(AmountEntry, RoundsAPercentageOfMoneyToTheCent) {
    const LocaleForTest locale("en_CA");
    AmountEntry entry;
    entry.edit("19.99+13%");
    EXPECT_EQ(entry.value(), amount("22.59"));
}

TEST(AmountEntry, KeepsTheValueWhenTheFieldIsEmptied) {
    AmountEntry entry(amount("40"));
    entry.edit("");
    EXPECT_EQ(entry.value(), amount("40"));
    EXPECT_FALSE(entry.explanation().empty());
}

TEST(AmountEntry, ShowsAndReadsTheDigitsOfTheLocale) {
    const LocaleForTest locale("ar_EG");
    AmountEntry entry;
    EXPECT_EQ(entry.text(), "٠٫٠٠");
    entry.edit("١٢٫٥");
    EXPECT_EQ(entry.value(), amount("12.5"));
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
