#include "OakfenCore/Support/Time/Calendar.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <thread>

#include "Tests/Support/EnvironmentVariable.h"

namespace oakfen {
namespace {

Calendar zone(std::string_view name) {
    const auto calendar = Calendar::inZone(name);
    EXPECT_TRUE(calendar.has_value()) << name;
    return calendar.value_or(Calendar::utc());
}

Date utc(const CivilTime& time) {
    return Calendar::utc().date(time);
}

const Calendar& toronto() {
    static const Calendar calendar = zone("America/Toronto");
    return calendar;
}

/// `TZ` for one test.
class ZoneVariable : testing::EnvironmentVariable {
public:
    explicit ZoneVariable(const char* value) : EnvironmentVariable("TZ", value) {}
};

TEST(Calendar, KnowsTheZonesOfTheSystem) {
    EXPECT_EQ(toronto().zoneName(), "America/Toronto");
    EXPECT_EQ(Calendar::inZone("Nowhere/Special"), std::nullopt);
    EXPECT_EQ(Calendar::inZone(""), std::nullopt);
    EXPECT_EQ(Calendar::inZone("../../etc/passwd"), std::nullopt);
    EXPECT_EQ(zone("America/Toronto"), toronto());
    EXPECT_NE(zone("America/Halifax"), toronto());
    EXPECT_EQ(zone("Etc/UTC"), Calendar::utc());
}

TEST(Calendar, TheMachinesZoneIsThatOfTheVariable) {
    const ZoneVariable variable("Pacific/Apia");
    EXPECT_EQ(Calendar::current(), zone("Pacific/Apia"));
}

TEST(Calendar, TheVariableMayHaveAColonOrAPath) {
    const ZoneVariable colon(":America/Toronto");
    EXPECT_EQ(Calendar::current(), toronto());
    const ZoneVariable path("/usr/share/zoneinfo/America/Toronto");
    EXPECT_EQ(Calendar::current(), toronto());
}

TEST(Calendar, AVariableThatNamesNoZoneIsAsIfItWereNotThere) {
    std::optional<Calendar> system;
    {
        const ZoneVariable none(nullptr);
        system = Calendar::current();
    }
    const ZoneVariable variable("No/Zone");
    EXPECT_EQ(Calendar::current(), system);
}

TEST(Calendar, ReadsTheLocalClock) {
    EXPECT_EQ(toronto().civil(utc({2024, 7, 1, 3, 59, 59})), (CivilTime{2024, 6, 30, 23, 59, 59}));
    EXPECT_EQ(toronto().civil(utc({2024, 1, 1, 5, 0, 0})), (CivilTime{2024, 1, 1, 0, 0, 0}));
    EXPECT_EQ(toronto().civil(utc({2024, 1, 1, 5, 0, 0}).adding(-0.25)),
              (CivilTime{2023, 12, 31, 23, 59, 59}));
}

TEST(Calendar, MakesTheInstantOfALocalTime) {
    EXPECT_EQ(toronto().date({2024, 7, 1}), utc({2024, 7, 1, 4}));
    EXPECT_EQ(toronto().date({2024, 1, 31, 23, 59, 59}), utc({2024, 2, 1, 4, 59, 59}));
}

TEST(Calendar, MonthsAndDaysCarryOver) {
    const Calendar calendar = Calendar::utc();
    EXPECT_EQ(calendar.date({2024, 2, 31}), calendar.date({2024, 3, 2}));
    EXPECT_EQ(calendar.date({2023, 2, 31}), calendar.date({2023, 3, 3}));
    EXPECT_EQ(calendar.date({2024, 14, 1}), calendar.date({2025, 2, 1}));
    EXPECT_EQ(calendar.date({2024, 0, 1}), calendar.date({2023, 12, 1}));
    EXPECT_EQ(calendar.date({2024, 3, 0}), calendar.date({2024, 2, 29}));
    EXPECT_EQ(calendar.date({2024, 1, 1, 24, 0, 0}), calendar.date({2024, 1, 2}));
}

TEST(Calendar, ReadsBackEveryDayOfFourCenturies) {
    Date day = utc({1899, 12, 31});
    CivilTime before = Calendar::utc().civil(day);
    for (int count = 0; count < 146097; ++count) {
        day = day.adding(86400);
        const CivilTime civil = Calendar::utc().civil(day);
        ASSERT_EQ(Calendar::utc().date(civil), day);
        const bool isNextDay = civil.day == before.day + 1 && civil.month == before.month;
        const bool isNextMonth = civil.day == 1 && before.day >= 28;
        ASSERT_TRUE(isNextDay || isNextMonth) << civil.year << '-' << civil.month;
        before = civil;
    }
    EXPECT_EQ(before, (CivilTime{2299, 12, 31}));
}

TEST(Calendar, ASkippedHourIsTheFirstInstantAfterIt) {
    EXPECT_EQ(toronto().date({2024, 3, 10, 2, 30, 0}), utc({2024, 3, 10, 7, 0, 0}));
    EXPECT_EQ(toronto().civil(toronto().date({2024, 3, 10, 2, 30, 0})),
              (CivilTime{2024, 3, 10, 3, 0, 0}));
}

TEST(Calendar, ARepeatedHourIsTheEarlierOne) {
    EXPECT_EQ(toronto().date({2024, 11, 3, 1, 30, 0}), utc({2024, 11, 3, 5, 30, 0}));
    EXPECT_EQ(toronto().civil(utc({2024, 11, 3, 6, 30, 0})), (CivilTime{2024, 11, 3, 1, 30, 0}));
}

TEST(Calendar, TheDayOfAClockChangeIsWholeAllTheSame) {
    const Date spring = toronto().date({2024, 3, 10, 12, 0, 0});
    EXPECT_EQ(toronto().startOfDay(spring), utc({2024, 3, 10, 5}));
    EXPECT_EQ(toronto().endOfDay(spring), utc({2024, 3, 11, 3, 59, 59}));
    const Date autumn = toronto().date({2024, 11, 3, 12, 0, 0});
    EXPECT_EQ(toronto().startOfDay(autumn), utc({2024, 11, 3, 4}));
    EXPECT_EQ(toronto().endOfDay(autumn), utc({2024, 11, 4, 4, 59, 59}));
}

TEST(Calendar, ADayThatApiaSkippedHasNoTime) {
    const Calendar apia = zone("Pacific/Apia");
    const Date thursday = apia.date({2011, 12, 29, 12, 0, 0});
    EXPECT_EQ(apia.endOfDay(thursday), apia.date({2011, 12, 29, 23, 59, 59}));
    const Date saturday = apia.date({2011, 12, 31});
    EXPECT_EQ(apia.date({2011, 12, 30, 15, 0, 0}), saturday);
    EXPECT_EQ(apia.endOfDay(thursday).adding(1), saturday);
    EXPECT_EQ(apia.addingDays(apia.startOfDay(thursday), 1), saturday);
    EXPECT_EQ(apia.addingDays(apia.startOfDay(thursday), 2), saturday);
    EXPECT_EQ(apia.startOfDay(saturday.adding(3600)), saturday);
}

TEST(Calendar, AMidnightThatHavanaRepeatsIsTheEarlierOne) {
    const Calendar havana = zone("America/Havana");
    const Date noon = havana.date({2024, 11, 3, 12, 0, 0});
    EXPECT_EQ(havana.startOfDay(noon), utc({2024, 11, 3, 4}));
    // The second run of that first hour belongs to the same day.
    EXPECT_EQ(havana.startOfDay(utc({2024, 11, 3, 5, 30})), utc({2024, 11, 3, 4}));
    EXPECT_EQ(havana.endOfDay(havana.date({2024, 11, 2})), utc({2024, 11, 3, 3, 59, 59}));
}

TEST(Calendar, AMidnightThatHavanaSkipsIsTheFirstInstantOfTheDay) {
    const Calendar havana = zone("America/Havana");
    const Date noon = havana.date({2024, 3, 10, 12, 0, 0});
    EXPECT_EQ(havana.startOfDay(noon), utc({2024, 3, 10, 5}));
    EXPECT_EQ(havana.civil(havana.startOfDay(noon)), (CivilTime{2024, 3, 10, 1, 0, 0}));
    EXPECT_EQ(havana.endOfDay(havana.date({2024, 3, 9})), utc({2024, 3, 10, 4, 59, 59}));
}

TEST(Calendar, AMidnightThatStJohnsRepeatsIsTheEarlierOne) {
    const Calendar stJohns = zone("America/St_Johns");
    const Date noon = stJohns.date({2010, 11, 7, 12, 0, 0});
    EXPECT_EQ(stJohns.startOfDay(noon), utc({2010, 11, 7, 2, 30}));
    EXPECT_EQ(stJohns.endOfDay(stJohns.date({2010, 11, 6, 12, 0, 0})),
              utc({2010, 11, 7, 2, 29, 59}));
}

TEST(Calendar, FollowsTheRulesOfAsuncionAsTheyChanged) {
    const Calendar asuncion = zone("America/Asuncion");
    EXPECT_EQ(asuncion.startOfDay(asuncion.date({2023, 10, 1, 12, 0, 0})), utc({2023, 10, 1, 4}));
    EXPECT_EQ(asuncion.date({2024, 7, 1}), utc({2024, 7, 1, 4}));
    EXPECT_EQ(asuncion.date({2025, 7, 1}), utc({2025, 7, 1, 3}));
    EXPECT_EQ(asuncion.date({2060, 7, 1}), utc({2060, 7, 1, 3}));
}

TEST(Calendar, ClocksGoOnChangingAfterTheZonesTableEnds) {
    EXPECT_EQ(toronto().date({2045, 7, 1}), utc({2045, 7, 1, 4}));
    EXPECT_EQ(toronto().date({2045, 1, 1}), utc({2045, 1, 1, 5}));
    EXPECT_EQ(toronto().date({2045, 3, 12, 2, 30, 0}), utc({2045, 3, 12, 7}));
    EXPECT_EQ(toronto().date({2045, 11, 5, 1, 30, 0}), utc({2045, 11, 5, 5, 30}));
    EXPECT_EQ(zone("Europe/Dublin").date({2050, 7, 1}), utc({2050, 6, 30, 23}));
    EXPECT_EQ(zone("Australia/Sydney").date({2050, 1, 1}), utc({2049, 12, 31, 13}));
    EXPECT_EQ(zone("Australia/Sydney").date({2050, 7, 1}), utc({2050, 6, 30, 14}));
    EXPECT_EQ(zone("Asia/Tokyo").date({2050, 7, 1}), utc({2050, 6, 30, 15}));
}

TEST(Calendar, TheTableAndTheRuleMeetWithoutASeam) {
    for (const char* name : {"America/Toronto", "Europe/Dublin", "Australia/Sydney",
                             "America/Santiago", "Africa/Casablanca", "Asia/Gaza"}) {
        const Calendar calendar = zone(name);
        for (Date hour = utc({2037, 9, 1}); hour < utc({2038, 5, 1}); hour = hour.adding(3600)) {
            const Date read = calendar.date(calendar.civil(hour));
            // A repeated hour reads as the first of the two.
            ASSERT_TRUE(read == hour || read == hour.adding(-3600)) << name;
        }
    }
}

TEST(Calendar, FindsTheStartsOfMonthAndYear) {
    const Date date = toronto().date({2024, 8, 17, 13, 14, 15});
    EXPECT_EQ(toronto().startOfMonth(date), utc({2024, 8, 1, 4}));
    EXPECT_EQ(toronto().startOfYear(date), utc({2024, 1, 1, 5}));
}

TEST(Calendar, AMonthEndsOneSecondBeforeTheNext) {
    EXPECT_EQ(toronto().endOfMonth(toronto().date({2024, 2, 5})),
              toronto().date({2024, 2, 29, 23, 59, 59}));
    EXPECT_EQ(toronto().endOfMonth(toronto().date({2024, 12, 31, 23, 59, 59})),
              toronto().date({2024, 12, 31, 23, 59, 59}));
}

TEST(Calendar, ADateInTheLastSecondOfADayIsAfterItsEnd) {
    const Date late = toronto().date({2024, 5, 5, 23, 59, 59}).adding(0.5);
    EXPECT_GT(late, toronto().endOfDay(late));
    EXPECT_EQ(toronto().civil(late).day, 5);
}

TEST(Calendar, AMonthOnFromTheLastDayIsTheLastDay) {
    const Date january = toronto().date({2024, 1, 31, 9, 30, 0});
    EXPECT_EQ(toronto().addingMonths(january, 1), toronto().date({2024, 2, 29, 9, 30, 0}));
    EXPECT_EQ(toronto().addingMonths(toronto().addingMonths(january, 1), 1),
              toronto().date({2024, 3, 29, 9, 30, 0}));
    EXPECT_EQ(toronto().addingMonths(january, -2), toronto().date({2023, 11, 30, 9, 30, 0}));
    EXPECT_EQ(toronto().addingMonths(january, 12), toronto().date({2025, 1, 31, 9, 30, 0}));
    EXPECT_EQ(toronto().addingYears(toronto().date({2024, 2, 29}), 1),
              toronto().date({2025, 2, 28}));
    EXPECT_EQ(toronto().addingYears(toronto().date({2024, 2, 29}), -4),
              toronto().date({2020, 2, 29}));
}

TEST(Calendar, AddingDaysKeepsTheTimeOnTheClock) {
    const Date saturday = toronto().date({2024, 3, 9, 9, 0, 0});
    EXPECT_EQ(toronto().addingDays(saturday, 1), toronto().date({2024, 3, 10, 9, 0, 0}));
    EXPECT_EQ(toronto().addingDays(saturday, 1), saturday.adding(23 * 3600));
    EXPECT_EQ(toronto().addingDays(saturday, -400), toronto().date({2023, 2, 3, 9, 0, 0}));
}

TEST(Calendar, AddingKeepsTheFractionOfASecond) {
    const Date date = toronto().date({2024, 5, 5, 9, 0, 0}).adding(0.75);
    EXPECT_EQ(toronto().addingDays(date, 1), toronto().date({2024, 5, 6, 9, 0, 0}).adding(0.75));
    EXPECT_EQ(toronto().addingMonths(date, 1), toronto().date({2024, 6, 5, 9, 0, 0}).adding(0.75));
    EXPECT_EQ(toronto().civil(Date{-1e-12}), toronto().civil(Date{-1}));
}

TEST(Calendar, AddingNothingChangesNothing) {
    // The second run of a repeated hour would otherwise become the first.
    const Date second = utc({2024, 11, 3, 6, 30, 0});
    EXPECT_EQ(toronto().addingDays(second, 0), second);
    EXPECT_EQ(toronto().addingMonths(second, 0), second);
}

TEST(Calendar, CountsWholeDaysOnTheClock) {
    const Date noon = toronto().date({2024, 3, 9, 12, 0, 0});
    EXPECT_EQ(toronto().wholeDays(noon, noon), 0);
    EXPECT_EQ(toronto().wholeDays(noon, toronto().date({2024, 3, 10, 12, 0, 0})), 1);
    EXPECT_EQ(toronto().wholeDays(noon, toronto().date({2024, 3, 10, 11, 59, 59})), 0);
    EXPECT_EQ(toronto().wholeDays(noon, toronto().date({2024, 3, 20, 13, 0, 0})), 11);
    EXPECT_EQ(toronto().wholeDays(noon, toronto().date({2024, 3, 8, 12, 30, 0})), 0);
    EXPECT_EQ(toronto().wholeDays(noon, toronto().date({2024, 3, 8, 12, 0, 0})), -1);
    EXPECT_EQ(toronto().wholeDays(noon, toronto().date({2024, 3, 1, 13, 0, 0})), -7);
}

TEST(Calendar, CountsADayWithAClockChangeAsOne) {
    const Date autumn = toronto().date({2024, 11, 3});
    EXPECT_EQ(toronto().wholeDays(autumn, autumn.adding(24 * 3600)), 0);
    EXPECT_EQ(toronto().wholeDays(autumn, autumn.adding(25 * 3600)), 1);
    const Date spring = toronto().date({2024, 3, 10});
    EXPECT_EQ(toronto().wholeDays(spring, spring.adding(23 * 3600)), 1);
    EXPECT_EQ(
        toronto().wholeDays(toronto().date({2024, 5, 5}), toronto().date({2024, 5, 5, 23, 0, 0})),
        0);
}

TEST(Calendar, CountsWholeMonths) {
    const auto months = [](const CivilTime& from, const CivilTime& to) {
        return toronto().wholeMonths(toronto().date(from), toronto().date(to));
    };
    EXPECT_EQ(months({2024, 1, 15}, {2024, 2, 14}), 0);
    EXPECT_EQ(months({2024, 1, 15}, {2024, 2, 15}), 1);
    EXPECT_EQ(months({2024, 1, 31}, {2024, 2, 29}), 1);
    EXPECT_EQ(months({2024, 1, 15}, {2025, 1, 14, 23, 59, 59}), 11);
    EXPECT_EQ(months({2024, 2, 15}, {2024, 1, 16}), 0);
    EXPECT_EQ(months({2024, 2, 15}, {2024, 1, 15}), -1);
    EXPECT_EQ(months({2024, 2, 15}, {2023, 2, 10}), -12);
}

TEST(Calendar, WholeStepsNeverPassTheirEnd) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> seconds(5e8, 8e8);
    for (const char* name : {"America/Toronto", "America/Havana", "Pacific/Apia"}) {
        const Calendar calendar = zone(name);
        for (int i = 0; i < 300; ++i) {
            const Date from{std::floor(seconds(random))};
            const Date to{std::max(from.secondsSinceReference, std::floor(seconds(random)))};
            const int days = calendar.wholeDays(from, to);
            EXPECT_LE(calendar.addingDays(from, days), to);
            EXPECT_GT(calendar.addingDays(from, days + 1), to);
            const int months = calendar.wholeMonths(from, to);
            EXPECT_LE(calendar.addingMonths(from, months), to);
            EXPECT_GT(calendar.addingMonths(from, months + 1), to);
        }
    }
}

TEST(Calendar, ListsTheMonthsOfAnInterval) {
    const auto months =
        toronto().months({toronto().date({2024, 1, 31, 12, 0, 0}), toronto().date({2024, 4, 1})});
    const std::vector<Date> expected = {toronto().date({2024, 1, 1}), toronto().date({2024, 2, 1}),
                                        toronto().date({2024, 3, 1}), toronto().date({2024, 4, 1})};
    EXPECT_EQ(months, expected);
    EXPECT_TRUE(toronto().months({toronto().date({2024, 5, 5}), Date{0}}).empty());
}

TEST(Calendar, StopsAfter240Months) {
    const auto months =
        toronto().months({toronto().date({2000, 3, 1}), toronto().date({2025, 3, 1})});
    ASSERT_EQ(months.size(), 240U);
    EXPECT_EQ(months.back(), toronto().date({2020, 2, 1}));
}

TEST(Calendar, MakesDatesOfAnyYear) {
    const Date far = toronto().date({20245, 12, 31});
    EXPECT_EQ(toronto().civil(far), (CivilTime{20245, 12, 31}));
    EXPECT_EQ(far, utc({20245, 12, 31, 5}));
    EXPECT_GT(far, Date::distantFuture());
    EXPECT_EQ(toronto().civil(toronto().date({2'000'000, 7, 1})), (CivilTime{2'000'000, 7, 1}));
    EXPECT_EQ(toronto().civil(toronto().date({-30'500, 7, 1})), (CivilTime{-30'500, 7, 1}));
}

TEST(Calendar, EndsNowhereBadWithAbsurdDates) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const Date now{8e8};
    for (const double seconds :
         {infinity, -infinity, std::nan(""), 1e300, -1e300, 6e16, -6e16, 1e12, -1e12}) {
        const Date date{seconds};
        EXPECT_TRUE(std::isfinite(toronto().startOfDay(date).secondsSinceReference));
        EXPECT_TRUE(std::isfinite(toronto().endOfMonth(date).secondsSinceReference));
        EXPECT_TRUE(std::isfinite(toronto().addingYears(date, 1000).secondsSinceReference));
        EXPECT_LE(toronto().months({date, now}).size(), 240U);
        EXPECT_LE(toronto().months({now, date}).size(), 240U);
        EXPECT_LE(std::abs(std::int64_t{toronto().wholeDays(now, date)}), std::int64_t{1} << 31U);
        EXPECT_LE(std::abs(std::int64_t{toronto().wholeMonths(date, now)}), std::int64_t{1} << 31U);
    }
    constexpr int largest = std::numeric_limits<int>::max();
    const Date latest = toronto().date({largest, largest, largest, largest, largest, largest});
    EXPECT_TRUE(std::isfinite(latest.secondsSinceReference));
    EXPECT_TRUE(std::isfinite(toronto().addingMonths(latest, largest).secondsSinceReference));
}

TEST(Calendar, IsUsedByManyThreadsAtOnce) {
    std::vector<std::thread> threads;
    std::vector<Date> starts(4);
    for (auto& start : starts) {
        threads.emplace_back([&start] {
            const auto calendar = Calendar::inZone("Europe/Vilnius");
            start = calendar->startOfDay(Date{8e8});
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(std::count(starts.begin(), starts.end(), starts.front()), 4);
}

} // namespace
} // namespace oakfen
