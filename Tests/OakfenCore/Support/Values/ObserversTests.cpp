#include "OakfenCore/Support/Values/Observers.h"

#include <gtest/gtest.h>
#include <string>

namespace oakfen {
namespace {

TEST(Observers, CallsEverybodyInTheOrderOfSubscription) {
    Observers<int> observers;
    std::string calls;
    const auto first = observers.observe([&](int value) { calls += "a" + std::to_string(value); });
    const auto second = observers.observe([&](int value) { calls += "b" + std::to_string(value); });
    observers.notify(7);
    EXPECT_EQ(calls, "a7b7");
}

TEST(Observers, ForgetsADroppedSubscription) {
    Observers<> observers;
    int calls = 0;
    {
        const auto subscription = observers.observe([&] { ++calls; });
        observers.notify();
    }
    observers.notify();
    EXPECT_EQ(calls, 1);
}

TEST(Observers, ASubscriptionEndsWhenReset) {
    Observers<> observers;
    int calls = 0;
    auto subscription = observers.observe([&] { ++calls; });
    subscription.reset();
    observers.notify();
    EXPECT_EQ(calls, 0);
}

TEST(Observers, ASubscriptionThatMovesStays) {
    Observers<> observers;
    int calls = 0;
    auto subscription = observers.observe([&] { ++calls; });
    const Subscription moved = std::move(subscription);
    observers.notify();
    EXPECT_EQ(calls, 1);
}

TEST(Observers, OneThatUnsubscribesAnotherDuringANoticeKeepsItFromBeingCalled) {
    Observers<> observers;
    int calls = 0;
    Subscription second;
    const auto first = observers.observe([&] { second.reset(); });
    second = observers.observe([&] { ++calls; });
    observers.notify();
    EXPECT_EQ(calls, 0);
}

TEST(Observers, OneMayUnsubscribeItself) {
    Observers<> observers;
    int calls = 0;
    Subscription subscription;
    subscription = observers.observe([&] {
        ++calls;
        subscription.reset();
        ++calls;
    });
    observers.notify();
    observers.notify();
    EXPECT_EQ(calls, 2);
}

TEST(Observers, OneAddedDuringANoticeIsFirstCalledByTheNext) {
    Observers<> observers;
    int calls = 0;
    Subscription added;
    bool hasAdded = false;
    const auto adding = observers.observe([&] {
        if (!hasAdded) {
            hasAdded = true;
            added = observers.observe([&] { ++calls; });
        }
    });
    observers.notify();
    EXPECT_EQ(calls, 0);
    observers.notify();
    EXPECT_EQ(calls, 1);
}

TEST(Observers, ANoticeWithinANoticeReachesEverybody) {
    Observers<int> observers;
    int calls = 0;
    const auto again = observers.observe([&](int depth) {
        if (depth > 0) {
            observers.notify(depth - 1);
        }
    });
    const auto counting = observers.observe([&](int) { ++calls; });
    observers.notify(2);
    EXPECT_EQ(calls, 3);
}

TEST(Observers, ASubscriptionMayOutliveTheList) {
    Subscription subscription;
    {
        Observers<> observers;
        subscription = observers.observe([] {});
    }
    EXPECT_NO_THROW(subscription.reset());
}

} // namespace
} // namespace oakfen
