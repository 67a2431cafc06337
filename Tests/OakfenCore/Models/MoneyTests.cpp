#include "OakfenCore/Models/Money.h"

#include <gtest/gtest.h>

#include <vector>

#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::amount;

const Calendar toronto = Calendar::inZone("America/Toronto").value();

Date local(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return toronto.date({year, month, day, hour, minute, second});
}

DateInterval around(DateRangePreset preset, Date now) {
    return interval(preset, now, toronto);
}

TEST(DateRangePreset, HasItsNames) {
    std::string names;
    for (const DateRangePreset preset : allCases<DateRangePreset>) {
        names += std::string(rawValue(preset)) + "=" + std::string(title(preset)) + ";";
    }
    EXPECT_EQ(names, "thisMonth=This Month;lastMonth=Last Month;last3Months=Last 3 Months;"
                     "yearToDate=Year to Date;last12Months=Last 12 Months;lastYear=Last Year;"
                     "allTime=All Dates;");
    EXPECT_EQ(fromRawValue<DateRangePreset>("lastYear"), DateRangePreset::lastYear);
}

TEST(DateRangePreset, ThisMonthRunsToItsEndFutureIncluded) {
    EXPECT_EQ(around(DateRangePreset::thisMonth, local(2024, 2, 10, 15)),
              (DateInterval{local(2024, 2, 1), local(2024, 2, 29, 23, 59, 59)}));
}

TEST(DateRangePreset, LastMonthOnTheLastOfMarchIsFebruary) {
    EXPECT_EQ(around(DateRangePreset::lastMonth, local(2023, 3, 31, 9)),
              (DateInterval{local(2023, 2, 1), local(2023, 2, 28, 23, 59, 59)}));
}

TEST(DateRangePreset, LastMonthInJanuaryIsDecember) {
    EXPECT_EQ(around(DateRangePreset::lastMonth, local(2024, 1, 5)),
              (DateInterval{local(2023, 12, 1), local(2023, 12, 31, 23, 59, 59)}));
}

TEST(DateRangePreset, LastThreeMonthsEndTodayAndHoldThisMonth) {
    const DateInterval period = around(DateRangePreset::last3Months, local(2024, 5, 31, 12));
    EXPECT_EQ(period, (DateInterval{local(2024, 3, 1), local(2024, 5, 31, 23, 59, 59)}));
    EXPECT_EQ(toronto.months(period).size(), 3U);
}

TEST(DateRangePreset, YearToDateEndsToday) {
    EXPECT_EQ(around(DateRangePreset::yearToDate, local(2024, 8, 6, 1)),
              (DateInterval{local(2024, 1, 1), local(2024, 8, 6, 23, 59, 59)}));
}

TEST(DateRangePreset, LastTwelveMonthsHoldTwelve) {
    const DateInterval period = around(DateRangePreset::last12Months, local(2024, 2, 29, 20));
    EXPECT_EQ(period, (DateInterval{local(2023, 3, 1), local(2024, 2, 29, 23, 59, 59)}));
    EXPECT_EQ(toronto.months(period).size(), 12U);
}

TEST(DateRangePreset, LastYearIsTheWholeYearBefore) {
    EXPECT_EQ(around(DateRangePreset::lastYear, local(2024, 12, 31, 23, 59, 59)),
              (DateInterval{local(2023, 1, 1), local(2023, 12, 31, 23, 59, 59)}));
}

TEST(DateRangePreset, AllDatesHoldEverything) {
    EXPECT_EQ(around(DateRangePreset::allTime, local(2024, 1, 1)),
              (DateInterval{Date::distantPast(), Date::distantFuture()}));
}

TEST(DateRangePreset, ADateLateInTheLastSecondOfADayIsOutside) {
    const DateInterval period = around(DateRangePreset::yearToDate, local(2024, 8, 6, 1));
    const Date end = local(2024, 8, 6, 23, 59, 59);
    EXPECT_TRUE(period.contains(end));
    EXPECT_FALSE(period.contains(end.adding(0.5)));
}

TEST(DateRangePreset, AMonthAfterOneWithoutAFirstMidnightStartsAtMidnight) {
    // In Asunción, October 1st of 2017 began at one o'clock.
    const Calendar calendar = Calendar::inZone("America/Asuncion").value();
    const Date now = calendar.date({2017, 10, 20, 12, 0, 0});
    EXPECT_EQ(calendar.civil(interval(DateRangePreset::thisMonth, now, calendar).start),
              (CivilTime{2017, 10, 1, 1, 0, 0}));
    EXPECT_EQ(calendar.civil(interval(DateRangePreset::lastMonth, now, calendar).start),
              (CivilTime{2017, 9, 1, 0, 0, 0}));
}

TEST(Months, AreAtMostTwoHundredAndForty) {
    const DateInterval period{local(2000, 1, 15), local(2025, 1, 15)};
    const std::vector<Date> months = toronto.months(period);
    ASSERT_EQ(months.size(), 240U);
    EXPECT_EQ(months.front(), local(2000, 1, 1));
    EXPECT_EQ(months.back(), local(2019, 12, 1));
}

TEST(Frequency, OnceHasNoNextDate) {
    EXPECT_EQ(next(Frequency::once, local(2024, 1, 1), toronto), std::nullopt);
}

TEST(Frequency, WeeksKeepTheLocalTimeAcrossAClockChange) {
    EXPECT_EQ(next(Frequency::weekly, local(2024, 3, 6, 9), toronto), local(2024, 3, 13, 9));
    EXPECT_EQ(next(Frequency::biweekly, local(2024, 3, 6, 9), toronto), local(2024, 3, 20, 9));
}

TEST(Frequency, MonthsFromTheThirtyFirstLandOnTheLastDayAndStayThere) {
    const Date february = next(Frequency::monthly, local(2024, 1, 31), toronto).value();
    EXPECT_EQ(february, local(2024, 2, 29));
    EXPECT_EQ(next(Frequency::monthly, february, toronto), local(2024, 3, 29));
}

TEST(Frequency, QuartersAndYearsStepByThreeAndTwelveMonths) {
    EXPECT_EQ(next(Frequency::quarterly, local(2023, 11, 30), toronto), local(2024, 2, 29));
    EXPECT_EQ(next(Frequency::yearly, local(2024, 2, 29), toronto), local(2025, 2, 28));
}

TEST(Amounts, CentsAreExact) {
    EXPECT_EQ(Decimal::cents(1999), amount("19.99"));
}

TEST(Amounts, TheSumOfNothingIsZero) {
    EXPECT_EQ(sum(std::vector<Transaction>{}, &Transaction::amount), Decimal());
}

TEST(Amounts, TheSumOfTenthsIsExact) {
    std::vector<Split> lines(3, Split{.amount = amount("0.1")});
    EXPECT_EQ(sum(lines, &Split::amount), amount("0.3"));
}

} // namespace
} // namespace oakfen
