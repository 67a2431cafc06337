#include "Oakfen/DayChange.h"

#include <gtest/gtest.h>

#include "OakfenCore/Testing/ManualScheduler.h"

namespace oakfen {
namespace {

class DayChangeTest : public ::testing::Test {
protected:
    /// Clock and timers go on together.
    void pass(double seconds) {
        clock.advance(seconds);
        scheduler.advance(seconds);
    }
    static Date at(int day, int hour, int minute = 0, int second = 0) {
        return Calendar::utc().date({.year = 2026,
                                     .month = 3,
                                     .day = day,
                                     .hour = hour,
                                     .minute = minute,
                                     .second = second});
    }

    FixedClock clock{at(15, 22, 30)};
    ManualScheduler scheduler;
    DayChange change{clock, scheduler};
    int days = 0;
    int hours = 0;
    Subscription countingDays = change.dayChanged.observe([this] { ++days; });
    Subscription countingHours = change.hourChanged.observe([this] { ++hours; });
};

TEST_F(DayChangeTest, TellsOfEachHourWhenItBegins) {
    pass(1799);
    EXPECT_EQ(hours, 0);
    pass(1);
    EXPECT_EQ(hours, 1);
    EXPECT_EQ(days, 0);
}

TEST_F(DayChangeTest, TellsOfTheDayAtMidnight) {
    pass(1800);
    pass(3599);
    EXPECT_EQ(days, 0);
    pass(1);
    EXPECT_EQ(days, 1);
    EXPECT_EQ(hours, 2);
}

TEST_F(DayChangeTest, TellsOnceOfADayHoweverOftenItLooks) {
    clock.set(at(16, 8));
    change.check();
    change.check();
    EXPECT_EQ(days, 1);
    EXPECT_EQ(hours, 1);
}

TEST_F(DayChangeTest, TellsOfTheDayBeforeTheHour) {
    bool hasTheDayBeenTold = false;
    const Subscription watching =
        change.hourChanged.observe([&] { hasTheDayBeenTold = days == 1; });
    clock.set(at(16, 22));
    change.check();
    EXPECT_TRUE(hasTheDayBeenTold);
}

TEST_F(DayChangeTest, NoticesWithinAnHourThatTheMachineSlept) {
    // While it sleeps the clock goes on, but no timer does.
    clock.set(at(17, 7, 40));
    scheduler.advance(1800);
    EXPECT_EQ(days, 1);
    // And is in step again from then on.
    clock.set(at(17, 7, 59, 59));
    scheduler.advance(1199);
    EXPECT_EQ(hours, 1);
    clock.set(at(17, 8));
    scheduler.advance(1);
    EXPECT_EQ(hours, 2);
}

TEST_F(DayChangeTest, NoticesAClockThatIsSetBack) {
    clock.set(at(14, 22, 30));
    scheduler.advance(3600);
    EXPECT_EQ(days, 1);
}

TEST_F(DayChangeTest, WaitsAgainWhenItsTimerRingsTooEarly) {
    clock.set(at(15, 22, 59, 59));
    scheduler.advance(1800);
    EXPECT_EQ(hours, 0);
    EXPECT_EQ(scheduler.waitingTimers(), 1U);
    clock.set(at(15, 23));
    scheduler.advance(1);
    EXPECT_EQ(hours, 1);
}

TEST_F(DayChangeTest, WaitsForTheNextDayInAZoneHalfAnHourOff) {
    const Calendar calendar = Calendar::inZone("Asia/Kolkata").value();
    FixedClock local(calendar.date({.year = 2026, .month = 3, .day = 15, .hour = 23}), calendar);
    DayChange localChange(local, scheduler);
    const Subscription counting = localChange.dayChanged.observe([this] { ++days; });
    local.advance(3600);
    scheduler.advance(3600);
    EXPECT_EQ(days, 1);
}

TEST_F(DayChangeTest, TellsOfADayWhoseMidnightTheClockSkips) {
    const Calendar calendar = Calendar::inZone("America/Havana").value();
    // The clock goes from 23:59:59 to 01:00:00.
    FixedClock local(
        calendar.startOfDay(calendar.date({.year = 2026, .month = 3, .day = 8})).adding(-600),
        calendar);
    DayChange localChange(local, scheduler);
    const Subscription counting = localChange.dayChanged.observe([this] { ++days; });
    local.advance(600);
    scheduler.advance(600);
    EXPECT_EQ(days, 1);
}

/// A clock that is carried into another zone.
class TravellingClock final : public Clock {
public:
    [[nodiscard]] Date now() const override { return moment; }
    [[nodiscard]] Calendar calendar() const override { return zone; }

    Date moment;
    Calendar zone = Calendar::utc();
};

TEST(DayChangeOnAJourney, TellsOfAnotherZoneWhoseDayBeganAtAnotherTime) {
    TravellingClock clock;
    clock.moment = Calendar::utc().date({.year = 2026, .month = 3, .day = 15, .hour = 12});
    ManualScheduler scheduler;
    DayChange change(clock, scheduler);
    int days = 0;
    const Subscription counting = change.dayChanged.observe([&] { ++days; });
    clock.zone = Calendar::inZone("America/Toronto").value();
    change.check();
    EXPECT_EQ(days, 1);
}

TEST(DayChangeThatIsGone, LeavesNoTimerBehind) {
    FixedClock clock(Date{});
    ManualScheduler scheduler;
    {
        const DayChange change(clock, scheduler);
        EXPECT_EQ(scheduler.waitingTimers(), 1U);
    }
    EXPECT_EQ(scheduler.waitingTimers(), 0U);
}

} // namespace
} // namespace oakfen
