#include "OakfenCore/Support/Time/Date.h"

#include <gtest/gtest.h>

#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {
namespace {

TEST(Date, CountsFromTheFirstDayOf2001) {
    EXPECT_EQ(Date{}.secondsSince1970(), 978307200.0);
    EXPECT_EQ(Date::since1970(978307200.0), Date{});
    EXPECT_EQ(Calendar::utc().civil(Date{}), (CivilTime{2001, 1, 1, 0, 0, 0}));
}

TEST(Date, DistantOnesAreBeyondAllEntries) {
    EXPECT_EQ(Calendar::utc().civil(Date::distantFuture()), (CivilTime{4001, 1, 1, 0, 0, 0}));
    EXPECT_LE(Date::distantPast(), Calendar::utc().date({1, 1, 1}));
}

TEST(Date, IsOrderedByTime) {
    EXPECT_LT(Date{1}, Date{1}.adding(0.001));
    EXPECT_EQ(Date{1}.adding(2), Date{3});
}

TEST(DateInterval, ContainsBothItsEnds) {
    const DateInterval interval{Date{10}, Date{20}};
    EXPECT_TRUE(interval.contains(Date{10}));
    EXPECT_TRUE(interval.contains(Date{20}));
    EXPECT_FALSE(interval.contains(Date{20.5}));
    EXPECT_FALSE(interval.contains(Date{9.999}));
}

} // namespace
} // namespace oakfen
