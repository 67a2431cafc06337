// The table comes from Tests/Generators/calendar-cases.py.
#include "OakfenCore/Support/Time/Calendar.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

#include "Tests/Support/Table.h"

namespace oakfen {
namespace {

using testing::TableRow;

/// One line: what a zone's calendar makes of an instant.
struct Case {
    explicit Case(const TableRow& row)
        : calendar(Calendar::inZone(row[0]).value()), instant(instantIn(row[1])), localTime(row[2]),
          startOfDay(instantIn(row[3])), endOfDay(instantIn(row[4])),
          startOfMonth(instantIn(row[5])), endOfMonth(instantIn(row[6])), days(std::stoi(row[7])),
          daysLater(instantIn(row[8])), months(std::stoi(row[9])), monthsLater(instantIn(row[10])),
          other(instantIn(row[11])), wholeDays(std::stoi(row[12])),
          wholeMonths(std::stoi(row[13])) {}

    static Date instantIn(const std::string& cell) {
        return Date::since1970(testing::doubleIn(cell));
    }

    Calendar calendar;
    Date instant;
    std::string localTime;
    Date startOfDay;
    Date endOfDay;
    Date startOfMonth;
    Date endOfMonth;
    int days;
    Date daysLater;
    int months;
    Date monthsLater;
    Date other;
    int wholeDays;
    int wholeMonths;
};

void forEachCase(const std::function<void(const Case&)>& check) {
    static const auto rows = testing::readTable(OAKFEN_TEST_DIRECTORY "/calendar-cases.tsv");
    EXPECT_GT(rows.size(), 1000U);
    for (const TableRow& row : rows) {
        SCOPED_TRACE("line " + std::to_string(row.line) + ", " + row[0]);
        check(Case(row));
    }
}

std::string textOf(const CivilTime& time) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d", time.year, time.month,
                  time.day, time.hour, time.minute, time.second);
    return text.data();
}

TEST(CalendarCases, ReadTheLocalClock) {
    forEachCase([](const Case& each) {
        EXPECT_EQ(textOf(each.calendar.civil(each.instant)), each.localTime);
    });
}

TEST(CalendarCases, BeginTheirDay) {
    forEachCase([](const Case& each) {
        EXPECT_EQ(each.calendar.startOfDay(each.instant), each.startOfDay);
    });
}

TEST(CalendarCases, EndTheirDay) {
    forEachCase(
        [](const Case& each) { EXPECT_EQ(each.calendar.endOfDay(each.instant), each.endOfDay); });
}

TEST(CalendarCases, BeginAndEndTheirMonth) {
    forEachCase([](const Case& each) {
        EXPECT_EQ(each.calendar.startOfMonth(each.instant), each.startOfMonth);
        EXPECT_EQ(each.calendar.endOfMonth(each.instant), each.endOfMonth);
    });
}

TEST(CalendarCases, AddDays) {
    forEachCase([](const Case& each) {
        EXPECT_EQ(each.calendar.addingDays(each.instant, each.days), each.daysLater);
    });
}

TEST(CalendarCases, AddMonths) {
    forEachCase([](const Case& each) {
        EXPECT_EQ(each.calendar.addingMonths(each.instant, each.months), each.monthsLater);
    });
}

TEST(CalendarCases, CountWholeDays) {
    forEachCase([](const Case& each) {
        EXPECT_EQ(each.calendar.wholeDays(each.instant, each.other), each.wholeDays);
    });
}

TEST(CalendarCases, CountWholeMonths) {
    forEachCase([](const Case& each) {
        EXPECT_EQ(each.calendar.wholeMonths(each.instant, each.other), each.wholeMonths);
    });
}

} // namespace
} // namespace oakfen
