#include "Oakfen/BusyWork.h"

#include <gtest/gtest.h>

#include "Oakfen/WaitUntil.h"
#include "OakfenCore/Support/LocalizedError.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::TestEnvironment;

TEST(BusyWork, ShowsItsMessageUntilItIsDone) {
    TestEnvironment test;
    std::string story;
    runBusy(
        *test, "Counting…", [&] { story += "work "; }, [&] { story += "then"; });
    EXPECT_EQ(test.appState->busyMessage(), "Counting…");
    EXPECT_EQ(story, "");
    test.scheduler.runBackground();
    EXPECT_EQ(story, "work then");
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST(BusyWork, TellsWhyItFailedAndGoesNoFurther) {
    TestEnvironment test;
    bool hasGoneOn = false;
    runBusy(
        *test, "Counting…", [] { throw LocalizedError("That is too much."); },
        [&] { hasGoneOn = true; });
    test.scheduler.runBackground();
    EXPECT_EQ(test.appState->alertMessage(), "That is too much.");
    EXPECT_FALSE(test.appState->busyMessage());
    EXPECT_FALSE(hasGoneOn);
}

TEST(BusyWork, GoesOnOneAtATime) {
    TestEnvironment test;
    std::string story;
    runBusy(
        *test, "First…", [&] { story += "1"; }, [] {});
    runBusy(
        *test, "Second…", [&] { story += "2"; }, [] {});
    EXPECT_EQ(test.appState->busyMessage(), "First…");
    test.scheduler.runBackground();
    EXPECT_EQ(story, "1");
    test.scheduler.advance(1);
    EXPECT_EQ(story, "12");
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST(WaitUntil, GoesOnAtOnceWhenItIsTime) {
    ManualScheduler scheduler;
    int calls = 0;
    waitUntil(
        scheduler, [] { return true; }, [&] { ++calls; });
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(scheduler.waitingTimers(), 0U);
}

TEST(WaitUntil, GoesOnOnceAndLooksNoFurther) {
    ManualScheduler scheduler;
    bool isTime = false;
    int calls = 0;
    waitUntil(
        scheduler, [&] { return isTime; }, [&] { ++calls; });
    scheduler.advance(10);
    EXPECT_EQ(calls, 0);
    isTime = true;
    scheduler.advance(1);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(scheduler.waitingTimers(), 0U);
}

} // namespace
} // namespace oakfen
