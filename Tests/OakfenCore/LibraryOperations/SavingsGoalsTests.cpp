#include "OakfenCore/LibraryOperations/SavingsGoals.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

const Calendar calendar = *Calendar::inZone("America/Toronto");
const Date today = calendar.date({2026, 3, 10, 9, 0, 0});

SavingsGoal goal(int target, int saved, std::optional<Date> targetDate = {}) {
    return {.id = UUID::random(),
            .target = Decimal(target),
            .saved = Decimal(saved),
            .targetDate = targetDate};
}

TEST(SavingsGoals, HaveNoProgressTowardsNothing) {
    EXPECT_EQ(progress(goal(0, 50)), 0);
    EXPECT_EQ(progress(goal(-10, 50)), 0);
}

TEST(SavingsGoals, LimitProgressToTheRangeFromNoneToAll) {
    EXPECT_EQ(progress(goal(100, 150)), 1);
    EXPECT_EQ(progress(goal(100, -5)), 0);
    EXPECT_EQ(progress(goal(200, 50)), 0.25);
}

TEST(SavingsGoals, AreReachedWhereTheShareIsTooLargeForANumber) {
    SavingsGoal tiny = goal(0, 0);
    tiny.target = Decimal::make(1, -100);
    tiny.saved = Decimal::make(1, 100);
    EXPECT_EQ(progress(tiny), 1);
    tiny.saved = -tiny.saved;
    EXPECT_EQ(progress(tiny), 0);
}

TEST(SavingsGoals, NeedNoContributionWhenReachedOrWithoutADate) {
    EXPECT_FALSE(monthlyContributionNeeded(goal(100, 150, today), today, calendar));
    EXPECT_FALSE(monthlyContributionNeeded(goal(100, 0), today, calendar));
}

TEST(SavingsGoals, DivideTheRestByWholeMonths) {
    const Date later = calendar.addingDays(calendar.addingMonths(today, 3), 20);
    EXPECT_EQ(monthlyContributionNeeded(goal(1000, 400, later), today, calendar), Decimal(200));
    EXPECT_EQ(
        monthlyContributionNeeded(goal(100, 0, calendar.addingMonths(today, 3)), today, calendar),
        Decimal::cents(3333));
}

TEST(SavingsGoals, CountWholeMonthsAndNotThoseOfTheCalendar) {
    const Date june5 = calendar.date({2026, 6, 5, 9, 0, 0}); // of March 10th: not yet three months
    EXPECT_EQ(monthlyContributionNeeded(goal(100, 40, june5), today, calendar), Decimal(30));
}

TEST(SavingsGoals, RoundHalfACentUp) {
    SavingsGoal small = goal(1, 0, calendar.addingMonths(today, 2));
    small.target = Decimal::cents(5);
    EXPECT_EQ(monthlyContributionNeeded(small, today, calendar), Decimal::cents(3));
}

TEST(SavingsGoals, AskForAllOfItWhenLessThanAMonthIsLeft) {
    const Date soon = calendar.addingDays(today, 12);
    const Date past = calendar.addingMonths(today, -4);
    EXPECT_EQ(monthlyContributionNeeded(goal(100, 40, soon), today, calendar), Decimal(60));
    EXPECT_EQ(monthlyContributionNeeded(goal(100, 40, past), today, calendar), Decimal(60));
}

TEST(SavingsGoals, AreReplacedInPlace) {
    Library library;
    SavingsGoal trip = goal(100, 0);
    upsert(library, trip);
    trip.saved = Decimal(20);
    upsert(library, trip);
    ASSERT_EQ(library.goals.size(), 1U);
    EXPECT_EQ(library.goals.front().saved, Decimal(20));
}

} // namespace
} // namespace oakfen
