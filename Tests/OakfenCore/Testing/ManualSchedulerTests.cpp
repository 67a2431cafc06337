#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Testing/ManualScheduler.h"

namespace oakfen {
namespace {

using testing::ElementsAre;

class ManualSchedulerTest : public testing::Test {
protected:
    [[nodiscard]] std::function<void()> noting(int number) {
        return [this, number] { ran.push_back(number); };
    }

    ManualScheduler scheduler;
    std::vector<int> ran;
};

TEST_F(ManualSchedulerTest, RunsWorkOnceItsTimeHasPassed) {
    const ScheduledWork work = scheduler.after(0.4, noting(1));
    scheduler.advance(0.3);
    EXPECT_TRUE(ran.empty());
    scheduler.advance(0.1);
    scheduler.advance(10);
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(ManualSchedulerTest, RunsWhatIsDueInTheOrderOfTime) {
    const ScheduledWork late = scheduler.after(2, noting(2));
    const ScheduledWork early = scheduler.after(1, noting(1));
    const ScheduledWork alsoLate = scheduler.after(2, noting(3));
    scheduler.advance(5);
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(ManualSchedulerTest, CancelsWorkWhoseHandleIsDropped) {
    ScheduledWork work = scheduler.after(1, noting(1));
    EXPECT_EQ(scheduler.waitingTimers(), 1U);
    work.cancel();
    EXPECT_EQ(scheduler.waitingTimers(), 0U);
    scheduler.advance(2);
    EXPECT_TRUE(ran.empty());
}

TEST_F(ManualSchedulerTest, RunsWorkThatAsksForMoreWorkWithinTheSameSpan) {
    ScheduledWork next;
    const ScheduledWork work = scheduler.after(1, [&] { next = scheduler.after(1, noting(2)); });
    scheduler.advance(1.5);
    EXPECT_TRUE(ran.empty());
    scheduler.advance(0.5);
    EXPECT_THAT(ran, ElementsAre(2));
}

TEST_F(ManualSchedulerTest, LetsWorkDropItsOwnHandle) {
    ScheduledWork work;
    work = scheduler.after(1, [&] {
        work.cancel();
        ran.push_back(1);
    });
    scheduler.advance(1);
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(ManualSchedulerTest, RunsBackgroundWorkAndWhatFollowsOnIt) {
    const ScheduledWork one = scheduler.background(noting(1), noting(2));
    const ScheduledWork two = scheduler.background(noting(3), noting(4));
    EXPECT_TRUE(ran.empty());
    scheduler.runBackground();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3, 4));
}

TEST_F(ManualSchedulerTest, DoesNotInterruptBackgroundWorkThatWasDropped) {
    ScheduledWork work = scheduler.background(noting(1), noting(2));
    work.cancel();
    scheduler.advance(0);
    EXPECT_THAT(ran, ElementsAre(1));
}

} // namespace
} // namespace oakfen
