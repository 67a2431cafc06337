#include "Oakfen/Views/Components/DateEntry.h"

#include <gtest/gtest.h>

#include "OakfenCore/Testing/FixedClock.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::day;
using testing::LocaleForTest;

namespace {

constexpr CivilTime shownDay{.year = 2026, .month = 3, .day = 15};

std::string read(std::string_view text, DateOrder order = DateOrder::yearMonthDay) {
    const auto day = readDay(text, order, shownDay);
    return day ? std::to_string(day->year) + "-" + std::to_string(day->month) + "-" +
                     std::to_string(day->day)
               : "?";
}

const Calendar toronto = *Calendar::inZone("America/Toronto");
const Calendar kiritimati = *Calendar::inZone("Pacific/Kiritimati");

// Late on March 20th in the one zone is the 21st in the other two.
const Date now = day(2026, 3, 21, 1);
const FixedClock utcClock(now);
const FixedClock torontoClock(now, toronto);
const FixedClock kiritimatiClock(now, kiritimati);

DateEntry entryOn(Date value, const Clock& clock = utcClock) {
    DateEntry entry(clock);
    entry.setValue(value);
    return entry;
}

/// The day that an entry shows once the text was typed and the field left.
std::string shownAfter(std::string_view text, DateEntry entry = entryOn(day(2026, 3, 15, 9))) {
    entry.edit(std::string(text));
    entry.finishEditing();
    return entry.text();
}

} // namespace

TEST(DateReading, TakesThePartsInTheOrderOfTheLocale) {
    EXPECT_EQ(read("2026-04-05"), "2026-4-5");
    EXPECT_EQ(read("5.4.2026", DateOrder::dayMonthYear), "2026-4-5");
    EXPECT_EQ(read("4/5/2026", DateOrder::monthDayYear), "2026-4-5");
}

TEST(DateReading, TakesAYearOfFourDigitsFirstInEveryOrder) {
    EXPECT_EQ(read("2026-04-05", DateOrder::dayMonthYear), "2026-4-5");
    EXPECT_EQ(read("2026-04-05", DateOrder::monthDayYear), "2026-4-5");
}

TEST(DateReading, RefusesAYearAtTheEndWhereItStandsFirst) {
    EXPECT_EQ(read("04/05/2026"), "?");
}

TEST(DateReading, TakesAnythingButLettersBetweenTheParts) {
    EXPECT_EQ(read("2026/4/5"), "2026-4-5");
    EXPECT_EQ(read(" 2026 4 5 "), "2026-4-5");
    EXPECT_EQ(read("2026. 04. 05."), "2026-4-5");
    EXPECT_EQ(read("2026年4月5日"), "2026-4-5");
    EXPECT_EQ(read("2026-04-05T10"), "?");
    EXPECT_EQ(read("April 5"), "?");
    EXPECT_EQ(read("5 мая"), "?");
    EXPECT_EQ(read("5 Μαΐου 2026"), "?");
    EXPECT_EQ(read("\u0665 مايو"), "?");
}

TEST(DateReading, TakesEightDigitsWithoutAnythingBetweenThem) {
    EXPECT_EQ(read("20260405"), "2026-4-5");
    EXPECT_EQ(read("05042026", DateOrder::dayMonthYear), "2026-4-5");
    EXPECT_EQ(read("04052026", DateOrder::monthDayYear), "2026-4-5");
}

TEST(DateReading, TakesTheMissingPartsFromTheShownDay) {
    EXPECT_EQ(read("4-5"), "2026-4-5");
    EXPECT_EQ(read("5.4.", DateOrder::dayMonthYear), "2026-4-5");
    EXPECT_EQ(read("4/5", DateOrder::monthDayYear), "2026-4-5");
    EXPECT_EQ(read("7"), "2026-3-7");
}

TEST(DateReading, TakesShortYearsAsThoseAroundTheTurnOfTheCentury) {
    EXPECT_EQ(read("49-4-5"), "2049-4-5");
    EXPECT_EQ(read("50-4-5"), "1950-4-5");
    EXPECT_EQ(read("0050-4-5"), "50-4-5");
}

TEST(DateReading, TakesTheDigitsOfEveryScript) {
    EXPECT_EQ(read("٢٠٢٦/٠٤/٠٥"), "2026-4-5");
}

TEST(DateReading, RefusesDaysThatDoNotExist) {
    EXPECT_EQ(read("2026-02-29"), "?");
    EXPECT_EQ(read("2028-02-29"), "2028-2-29");
    EXPECT_EQ(read("2026-13-01"), "?");
    EXPECT_EQ(read("2026-00-01"), "?");
    EXPECT_EQ(read("0000-01-01"), "?");
    EXPECT_EQ(read("31-4", DateOrder::dayMonthYear), "?");
    EXPECT_EQ(read("32"), "?");
}

TEST(DateReading, RefusesTooFewOrTooManyNumbers) {
    EXPECT_EQ(read(""), "?");
    EXPECT_EQ(read("-"), "?");
    EXPECT_EQ(read("2026-4-5-6"), "?");
    EXPECT_EQ(read("202604"), "?");
    EXPECT_EQ(read("99999999999999999999"), "?");
}

TEST(DateOrder, FollowsTheUsersLocale) {
    const auto of = [](const char* name) {
        const LocaleForTest locale(name);
        return userDateOrder();
    };
    EXPECT_EQ(of("en_CA"), DateOrder::monthDayYear);
    EXPECT_EQ(of("sv_SE"), DateOrder::yearMonthDay);
    EXPECT_EQ(of("ja_JP"), DateOrder::yearMonthDay);
    EXPECT_EQ(of("en_US"), DateOrder::monthDayYear);
    EXPECT_EQ(of("en_GB"), DateOrder::dayMonthYear);
    EXPECT_EQ(of("de_DE"), DateOrder::dayMonthYear);
    EXPECT_EQ(of("ar_EG"), DateOrder::dayMonthYear);
}

/// Whatever day the program shows can be typed again.
class DateInALocale : public ::testing::TestWithParam<const char*> {};

TEST_P(DateInALocale, ReadsTheDaysThatItShows) {
    const LocaleForTest locale(GetParam());
    const DateEntry shown = entryOn(day(2031, 12, 9));
    DateEntry entry = entryOn(day(2026, 3, 15));
    entry.edit(shown.text());
    EXPECT_EQ(entry.value(), shown.value()) << shown.text();
}

INSTANTIATE_TEST_SUITE_P(Locales, DateInALocale,
                         ::testing::Values("en_CA", "en_US", "en_GB", "fr_CA", "de_DE", "de_CH",
                                           "sv_SE", "hu_HU", "bg_BG", "lv_LV", "ru_RU", "he_IL",
                                           "ar_EG", "fa_IR", "hi_IN", "ja_JP", "ko_KR", "zh_TW",
                                           "th_TH"),
                         [](const auto& each) { return std::string(each.param); });

TEST(DateEntry, ShowsTheDayInTheZoneOfTheCalendar) {
    const LocaleForTest locale("en_CA");
    const Date noon = day(2026, 3, 15, 12);
    EXPECT_EQ(entryOn(noon, torontoClock).text(), "03/15/2026");
    EXPECT_EQ(entryOn(noon, kiritimatiClock).text(), "03/16/2026");
}

TEST(DateEntry, KeepsTheTimeOfDayOnAnotherDay) {
    DateEntry entry = entryOn(day(2026, 3, 15, 9));
    entry.edit("2026-04-01");
    EXPECT_EQ(entry.value(), day(2026, 4, 1, 9));
    entry.moveDays(-1);
    EXPECT_EQ(entry.value(), day(2026, 3, 31, 9));
    entry.setDay(2020, 2, 29);
    EXPECT_EQ(entry.value(), day(2020, 2, 29, 9));
}

TEST(DateEntry, HoldsTheVeryInstantAgainOnceTheDayIsTheRecords) {
    const Date record = day(2026, 3, 15, 9).adding(0.25);
    DateEntry entry = entryOn(record);
    entry.moveDays(1);
    entry.moveDays(-1);
    EXPECT_EQ(entry.value(), record);
    entry.edit("2026-4-1");
    entry.edit("2026-3-15");
    EXPECT_EQ(entry.value(), record);
}

TEST(DateEntry, KeepsTheTimeOfDayAcrossADayThatLacksIt) {
    const auto halfPastTwo = [&](int dayOfMonth) {
        return toronto.date({.year = 2026, .month = 3, .day = dayOfMonth, .hour = 2, .minute = 30});
    };
    DateEntry entry = entryOn(halfPastTwo(7), torontoClock);
    entry.moveDays(1);
    entry.moveDays(1);
    EXPECT_EQ(entry.value(), halfPastTwo(9));
}

TEST(DateEntry, TakesWordsForTodayAndYesterday) {
    const LocaleForTest locale("en_CA");
    for (const char* word : {"t", "T", "today", " Today "}) {
        EXPECT_EQ(shownAfter(word), "03/21/2026") << word;
    }
    for (const char* word : {"y", "Yesterday", "YESTERDAY"}) {
        EXPECT_EQ(shownAfter(word), "03/20/2026") << word;
    }
    EXPECT_EQ(shownAfter("t", entryOn(day(2026, 3, 15), torontoClock)), "03/20/2026");
    EXPECT_EQ(shownAfter("y", entryOn(day(2026, 3, 15), torontoClock)), "03/19/2026");
}

TEST(DateEntry, TakesANumberOfDaysFromTheShownOne) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(shownAfter("+7"), "03/22/2026");
    EXPECT_EQ(shownAfter("-15"), "02/28/2026");
    EXPECT_EQ(shownAfter(" \u2212 3 "), "03/12/2026");
    EXPECT_EQ(shownAfter("+0"), "03/15/2026");
    EXPECT_EQ(shownAfter("+\u0667"), "03/22/2026");
    EXPECT_EQ(shownAfter("+9999"), "07/30/2053");
}

TEST(DateEntry, CountsDaysFromWhatItShowedBeforeTheTyping) {
    DateEntry entry = entryOn(day(2026, 3, 15, 9));
    entry.edit("+7");
    entry.edit("+70");
    EXPECT_EQ(entry.value(), day(2026, 5, 24, 9));
    entry.edit("t");
    EXPECT_EQ(entry.value(), day(2026, 3, 21, 9));
}

TEST(DateEntry, RefusesWordsThatMeanNoDay) {
    for (const char* text :
         {"tt", "tomorrow", "to", "t1", "+", "-", "+3x", "+99999", "+1.5.1.1", "+3w"}) {
        DateEntry entry = entryOn(day(2026, 3, 15, 9));
        entry.edit(text);
        EXPECT_FALSE(entry.explanation().empty()) << text;
        EXPECT_EQ(entry.value(), day(2026, 3, 15, 9)) << text;
    }
}

TEST(DateEntry, KnowsThatTheDayChangedWhileItStoodOpen) {
    FixedClock clock(day(2026, 3, 20, 23));
    DateEntry entry = entryOn(day(2026, 3, 15), clock);
    clock.set(day(2026, 3, 21, 1));
    entry.edit("t");
    EXPECT_EQ(entry.value(), day(2026, 3, 21));
}

TEST(DateEntry, MovesByMonthsToTheLastDayOfAShorterOne) {
    DateEntry entry = entryOn(day(2026, 1, 31));
    entry.moveMonths(1);
    EXPECT_EQ(entry.value(), day(2026, 2, 28));
    entry.moveMonths(-1);
    EXPECT_EQ(entry.value(), day(2026, 1, 28));
}

TEST(DateEntry, LeavesTheValueAndSaysWhyWhenTheTextIsNoDate) {
    const LocaleForTest locale("en_CA");
    DateEntry entry = entryOn(day(2026, 3, 15));
    entry.edit("2026-02-30");
    EXPECT_EQ(entry.value(), day(2026, 3, 15));
    EXPECT_EQ(entry.explanation(), "“2026-02-30” isn’t a date. Enter one, for example 03/15/2026.");
    entry.finishEditing();
    EXPECT_EQ(entry.text(), "2026-02-30");
    entry.edit("");
    EXPECT_EQ(entry.explanation(), "Enter a date, for example 03/15/2026.");
    entry.edit("16");
    entry.finishEditing();
    EXPECT_EQ(entry.explanation(), "");
    EXPECT_EQ(entry.text(), "03/16/2026");
}

TEST(DateEntry, ReachesFromTheFirstYearToTheEndOfTime) {
    const LocaleForTest locale("en_CA");
    DateEntry first = entryOn(Date::distantPast());
    EXPECT_EQ(first.text(), "01/01/1");
    first.moveDays(-1);
    EXPECT_EQ(first.value(), Date::distantPast());
    first.moveDays(1);
    EXPECT_EQ(first.day().day, 2);
    DateEntry last = entryOn(Date::distantFuture());
    EXPECT_EQ(last.text(), "01/01/4001");
    last.moveDays(1);
    EXPECT_EQ(last.value(), Date::distantFuture());
    last.edit("4001-01-02");
    EXPECT_FALSE(last.explanation().empty());
    last.edit("0001-01-01");
    EXPECT_EQ(last.value(), Date::distantPast());
}

TEST(DateEntry, LeavesARecordFromBeyondTheEndOfTimeAsItIs) {
    const Date beyond = day(5000, 1, 1);
    DateEntry entry = entryOn(beyond);
    entry.edit(entry.text());
    entry.finishEditing();
    EXPECT_EQ(entry.value(), beyond);
}

} // namespace oakfen
