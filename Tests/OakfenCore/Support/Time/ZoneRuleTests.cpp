#include "OakfenCore/Support/Time/ZoneRule.h"

#include <gtest/gtest.h>

#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {
namespace {

std::int64_t utc(const CivilTime& time) {
    return static_cast<std::int64_t>(Calendar::utc().date(time).secondsSince1970());
}

std::int64_t offset(std::string_view rule, const CivilTime& time) {
    return ZoneRule::parse(rule).value().offsetAt(utc(time));
}

TEST(ZoneRule, ChangesOnAWeekdayOfAMonth) {
    constexpr std::string_view rule = "EST5EDT,M3.2.0,M11.1.0";
    EXPECT_EQ(offset(rule, {2040, 3, 11, 6, 59, 59}), -5 * 3600);
    EXPECT_EQ(offset(rule, {2040, 3, 11, 7, 0, 0}), -4 * 3600);
    EXPECT_EQ(offset(rule, {2040, 11, 4, 5, 59, 59}), -4 * 3600);
    EXPECT_EQ(offset(rule, {2040, 11, 4, 6, 0, 0}), -5 * 3600);
}

TEST(ZoneRule, TheFifthWeekIsTheLast) {
    constexpr std::string_view rule = "CET-1CEST,M3.5.0,M10.5.0/3";
    EXPECT_EQ(offset(rule, {2040, 3, 25, 0, 59, 59}), 3600);
    EXPECT_EQ(offset(rule, {2040, 3, 25, 1, 0, 0}), 7200);
    EXPECT_EQ(offset(rule, {2040, 10, 28, 0, 59, 59}), 7200);
    EXPECT_EQ(offset(rule, {2040, 10, 28, 1, 0, 0}), 3600);
}

TEST(ZoneRule, SummerSpansTheNewYearInTheSouth) {
    constexpr std::string_view rule = "AEST-10AEDT,M10.1.0,M4.1.0/3";
    EXPECT_EQ(offset(rule, {2040, 1, 1}), 11 * 3600);
    EXPECT_EQ(offset(rule, {2040, 12, 31, 23, 0, 0}), 11 * 3600);
    EXPECT_EQ(offset(rule, {2040, 7, 1}), 10 * 3600);
}

TEST(ZoneRule, ReadsBracketsHalfHoursAndOddTimes) {
    constexpr std::string_view lordHowe = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0";
    EXPECT_EQ(offset(lordHowe, {2040, 7, 1}), 37800);
    EXPECT_EQ(offset(lordHowe, {2040, 1, 1}), 39600);
    constexpr std::string_view nuuk = "<-02>2<-01>,M3.5.0/-1,M10.5.0/0";
    EXPECT_EQ(offset(nuuk, {2040, 3, 25, 0, 59, 59}), -7200);
    EXPECT_EQ(offset(nuuk, {2040, 3, 25, 1, 0, 0}), -3600);
    constexpr std::string_view gaza = "EET-2EEST,M3.4.4/50,M10.4.4/50";
    EXPECT_EQ(offset(gaza, {2040, 3, 23, 23, 59, 59}), 7200);
    EXPECT_EQ(offset(gaza, {2040, 3, 24, 0, 0, 0}), 10800);
}

TEST(ZoneRule, ReadsDaysOfTheYear) {
    constexpr std::string_view withoutLeapDay = "AAA0BBB,J60/0,J300";
    EXPECT_EQ(offset(withoutLeapDay, {2040, 2, 29, 23, 59, 59}), 0);
    EXPECT_EQ(offset(withoutLeapDay, {2040, 3, 1}), 3600);
    constexpr std::string_view counted = "AAA0BBB,59/0,300";
    EXPECT_EQ(offset(counted, {2040, 2, 29}), 3600);
    EXPECT_EQ(offset(counted, {2041, 2, 28, 23, 59, 59}), 0);
    EXPECT_EQ(offset(counted, {2041, 3, 1}), 3600);
}

TEST(ZoneRule, ASkippedTimeIsTheChangeAndARepeatedOneTheEarlier) {
    const auto rule = ZoneRule::parse("EST5EDT,M3.2.0,M11.1.0");
    ASSERT_TRUE(rule.has_value());
    EXPECT_EQ(rule->instantOf(utc({2040, 3, 11, 2, 0, 0})), utc({2040, 3, 11, 7}));
    EXPECT_EQ(rule->instantOf(utc({2040, 3, 11, 2, 59, 59})), utc({2040, 3, 11, 7}));
    EXPECT_EQ(rule->instantOf(utc({2040, 3, 11, 3, 0, 0})), utc({2040, 3, 11, 7}));
    EXPECT_EQ(rule->instantOf(utc({2040, 11, 4, 1, 30, 0})), utc({2040, 11, 4, 5, 30}));
    EXPECT_EQ(rule->instantOf(utc({2040, 11, 4, 2, 0, 0})), utc({2040, 11, 4, 7}));
}

TEST(ZoneRule, ASkippedTimeInTheSouthIsTheChange) {
    const auto rule = ZoneRule::parse("<-04>4<-03>,M9.1.6/24,M4.1.6/24");
    ASSERT_TRUE(rule.has_value());
    EXPECT_EQ(rule->instantOf(utc({2040, 9, 2, 0, 30, 0})), utc({2040, 9, 2, 4}));
}

TEST(ZoneRule, RefusesWhatIsNoYearlyChange) {
    for (const char* text :
         {"", "JST-9", "<+01>-1", "EST5EDT", "EST5EDT,M3.2.0", "EST5EDT,M13.2.0,M11.1.0",
          "EST5EDT,M3.0.0,M11.1.0", "EST5EDT,M3.2.7,M11.1.0", "EST5EDT,M3.2.0,M11.1.0,",
          "EST5EDT,M3.2.0,M11.1.0/", "<EST5EDT,M3.2.0,M11.1.0", "5EDT,M3.2.0,M11.1.0",
          "EST5EDT,J0,J5", "EST99999999999999999999EDT,M3.2.0,M11.1.0", "EST5EDT,,"}) {
        EXPECT_FALSE(ZoneRule::parse(text).has_value()) << text;
    }
}

} // namespace
} // namespace oakfen
