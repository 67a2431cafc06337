#include <gtest/gtest.h>

#include "OakfenCore/Platform/InMemoryLegacyKeyStore.h"
#include "OakfenCore/Platform/InMemoryPasswordStore.h"
#include "OakfenCore/Testing/FixedClock.h"

namespace oakfen {
namespace {

TEST(InMemoryPasswordStore, HoldsTheLaterOfTwoPasswords) {
    InMemoryPasswordStore store;
    EXPECT_FALSE(store.exists());
    EXPECT_FALSE(store.load().has_value());
    store.save("one");
    store.save("two");
    EXPECT_TRUE(store.exists());
    EXPECT_EQ(store.load(), "two");
}

TEST(InMemoryPasswordStore, RemovesTwiceWithoutComplaint) {
    InMemoryPasswordStore store("secret");
    store.remove();
    store.remove();
    EXPECT_FALSE(store.exists());
}

TEST(InMemoryPasswordStore, FailsWithTheTextThatItWasGiven) {
    InMemoryPasswordStore store("secret");
    store.failWith("Locked.");
    EXPECT_THROW((void)store.load(), LocalizedError);
    EXPECT_THROW(store.save("other"), LocalizedError);
    EXPECT_THROW(store.remove(), LocalizedError);
    EXPECT_FALSE(store.exists());
    store.failWith(std::nullopt);
    EXPECT_EQ(store.load(), "secret");
}

TEST(InMemoryLegacyKeyStore, GivesItsKeyOrFails) {
    InMemoryLegacyKeyStore store(std::string(32, 'k'));
    EXPECT_EQ(store.load(), std::string(32, 'k'));
    store.failWith("Denied.");
    EXPECT_THROW((void)store.load(), LocalizedError);
    EXPECT_FALSE(InMemoryLegacyKeyStore().load().has_value());
}

TEST(FixedClock, StandsUntilItIsMoved) {
    FixedClock clock(Date::since1970(1000));
    EXPECT_EQ(clock.now().secondsSince1970(), 1000);
    clock.advance(5);
    EXPECT_EQ(clock.now().secondsSince1970(), 1005);
}

TEST(SystemClock, ShowsAMomentAfterThisProgramWasWritten) {
    const Date firstRelease = Date::since1970(1'735'689'600);
    EXPECT_GT(SystemClock().now(), firstRelease);
    EXPECT_LT(SystemClock().now(), Date::distantFuture());
}

} // namespace
} // namespace oakfen
