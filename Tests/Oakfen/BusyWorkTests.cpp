#include "Oakfen/BusyWork.h"

#include <gtest/gtest.h>

#include <new>

#include "OakfenCore/Support/Values/LocalizedError.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::TestEnvironment;

TEST(BusyWork, ShowsItsMessageUntilItIsDone) {
    TestEnvironment test;
    std::string story;
    test.busyWork->run(
        "Counting…", [&] { story += "work "; }, [&] { story += "then"; });
    EXPECT_EQ(test.appState->busyMessage(), "Counting…");
    EXPECT_EQ(story, "");
    test.scheduler.runBackground();
    EXPECT_EQ(story, "work then");
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST(BusyWork, TellsWhyItFailedAndGoesNoFurther) {
    TestEnvironment test;
    bool hasGoneOn = false;
    test.busyWork->run(
        "Counting…", [] { throw LocalizedError("That is too much."); }, [&] { hasGoneOn = true; });
    test.scheduler.runBackground();
    EXPECT_EQ(test.appState->alertMessage(), "That is too much.");
    EXPECT_FALSE(test.appState->busyMessage());
    EXPECT_FALSE(hasGoneOn);
}

TEST(BusyWork, TellsOfAFailureThatIsNoneOfOursInPlainWords) {
    TestEnvironment test;
    test.busyWork->run(
        "Counting…", [] { throw std::bad_alloc(); }, [] {});
    test.scheduler.runBackground();
    EXPECT_EQ(test.appState->alertMessage(), "There isn’t enough memory.");
}

TEST(BusyWork, GoesOnOneAtATimeAndInOrder) {
    TestEnvironment test;
    std::string story;
    const auto add = [&](const char* name, const std::function<void()>& then) {
        test.busyWork->run(
            name, [&story, name] { story += name; }, then);
    };
    // The one that is asked for last, out of the first one's end, comes last.
    add("1", [&] { add("4", [] {}); });
    add("2", [] {});
    add("3", [] {});
    EXPECT_EQ(test.appState->busyMessage(), "1");
    test.scheduler.runBackground();
    EXPECT_EQ(story, "1234");
    EXPECT_FALSE(test.appState->busyMessage());
    EXPECT_FALSE(test.busyWork->isBusy());
}

TEST(BusyWork, GoesOnAfterAFailure) {
    TestEnvironment test;
    bool isDone = false;
    test.busyWork->run(
        "First…", [] { throw LocalizedError("That is too much."); }, [] {});
    test.busyWork->run(
        "Second…", [&] { isDone = true; }, [] {});
    test.scheduler.runBackground();
    EXPECT_TRUE(isDone);
}

TEST(BusyWork, TellsWhenItRests) {
    TestEnvironment test;
    std::string story;
    test.busyWork->whenIdle([&] { story += "idle "; });
    EXPECT_EQ(story, "idle ");
    test.busyWork->run(
        "Counting…", [] {}, [&] { story += "then "; });
    test.busyWork->whenIdle([&] { story += "idle again"; });
    EXPECT_TRUE(test.busyWork->isBusy());
    test.scheduler.runBackground();
    EXPECT_EQ(story, "idle then idle again");
}

} // namespace
} // namespace oakfen
