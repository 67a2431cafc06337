#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Platform/InMemoryUserDefaults.h"

namespace oakfen {
namespace {

using testing::ElementsAre;

TEST(UserDefaults, ReadNothingForAnAbsentKey) {
    const InMemoryUserDefaults defaults;
    EXPECT_FALSE(defaults.string("key").has_value());
    EXPECT_FALSE(defaults.boolean("key"));
    EXPECT_FALSE(defaults.integer("key").has_value());
}

TEST(UserDefaults, ReadOnlyTheWordTrueAsTrue) {
    InMemoryUserDefaults defaults;
    for (const std::string text : {"false", "", "1", "True", "yes"}) {
        defaults.setString("key", text);
        EXPECT_FALSE(defaults.boolean("key")) << text;
    }
    defaults.setBoolean("key", true);
    EXPECT_TRUE(defaults.boolean("key"));
    defaults.setBoolean("key", false);
    EXPECT_FALSE(defaults.boolean("key"));
}

TEST(UserDefaults, ReadBackIntegers) {
    InMemoryUserDefaults defaults;
    defaults.setInteger("key", -9'223'372'036'854'775'807);
    EXPECT_EQ(defaults.integer("key"), -9'223'372'036'854'775'807);
}

TEST(UserDefaults, ReadNoIntegerInOtherText) {
    InMemoryUserDefaults defaults;
    for (const std::string text : {"", "x", "1x", " 1", "1.5", "99999999999999999999"}) {
        defaults.setString("key", text);
        EXPECT_FALSE(defaults.integer("key").has_value()) << text;
    }
}

TEST(UserDefaults, TellOfEachChangeWithItsKeyAndOfNothingElse) {
    InMemoryUserDefaults defaults;
    std::vector<std::string> keys;
    const Subscription subscription =
        defaults.changes.observe([&](const std::string& key) { keys.push_back(key); });
    defaults.setString("a", "1");
    defaults.setString("a", "1");
    defaults.setString("b", "1");
    defaults.remove("a");
    defaults.remove("a");
    EXPECT_THAT(keys, ElementsAre("a", "b", "a"));
    EXPECT_FALSE(defaults.string("a").has_value());
}

} // namespace
} // namespace oakfen
