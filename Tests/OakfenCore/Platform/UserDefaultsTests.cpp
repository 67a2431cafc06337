#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Platform/InMemoryUserDefaults.h"

namespace oakfen {
namespace {

using testing::ElementsAre;

constexpr Setting<bool> off{"key", false};
constexpr Setting<bool> on{"key", true};
constexpr Setting<long long> count{"key", 7};
constexpr Setting<double> moment{"key", 0.5};
constexpr Setting<std::string_view> word{"key", "one"};

/// Understands two words only.
std::optional<int> oneOrTwo(std::string_view text) {
    return text == "one" ? std::optional(1) : text == "two" ? std::optional(2) : std::nullopt;
}

TEST(UserDefaults, ReadTheFallbackWhereNothingIsStored) {
    const InMemoryUserDefaults defaults;
    EXPECT_FALSE(defaults.string("key").has_value());
    EXPECT_FALSE(defaults.get(off));
    EXPECT_TRUE(defaults.get(on));
    EXPECT_EQ(defaults.get(count), 7);
    EXPECT_EQ(defaults.get(moment), 0.5);
    EXPECT_EQ(defaults.get(word), "one");
    EXPECT_EQ(defaults.get(word, oneOrTwo), 1);
}

TEST(UserDefaults, ReadBackWhatWasSet) {
    InMemoryUserDefaults defaults;
    defaults.set(off, true);
    EXPECT_TRUE(defaults.get(off));
    defaults.set(on, false);
    EXPECT_FALSE(defaults.get(on));
    defaults.set(count, -9'223'372'036'854'775'807);
    EXPECT_EQ(defaults.get(count), -9'223'372'036'854'775'807);
    defaults.set(moment, 1'773'576'000.123456);
    EXPECT_EQ(defaults.get(moment), 1'773'576'000.123456);
    defaults.set(word, "two");
    EXPECT_EQ(defaults.get(word), "two");
    EXPECT_EQ(defaults.get(word, oneOrTwo), 2);
    defaults.set(word, "");
    EXPECT_EQ(defaults.get(word), "");
}

TEST(UserDefaults, ReadTheFallbackWhereTheStoredTextIsNoSuchValue) {
    InMemoryUserDefaults defaults;
    for (const std::string text : {"", "1", "True", "yes", " true", "false "}) {
        defaults.setString("key", text);
        EXPECT_FALSE(defaults.get(off)) << text;
        EXPECT_TRUE(defaults.get(on)) << text;
    }
    for (const std::string text : {"", "x", "1x", " 1", "1.5", "99999999999999999999"}) {
        defaults.setString("key", text);
        EXPECT_EQ(defaults.get(count), 7) << text;
    }
    for (const std::string text : {"", "x", "1x", " 1", "1,5", "nan", "inf", "1e999"}) {
        defaults.setString("key", text);
        EXPECT_EQ(defaults.get(moment), 0.5) << text;
    }
    defaults.setString("key", "three");
    EXPECT_EQ(defaults.get(word, oneOrTwo), 1);
}

TEST(Settings, HaveTheKeysAndDefaultsThatTheProgramBeganWith) {
    using namespace settings;
    const InMemoryUserDefaults defaults;
    EXPECT_EQ(dataFileUnencrypted.key, "dataFileUnencrypted");
    EXPECT_FALSE(defaults.get(dataFileUnencrypted));
    EXPECT_EQ(requireAuthentication.key, "requireAuthentication");
    EXPECT_FALSE(defaults.get(requireAuthentication));
    EXPECT_EQ(showClosedAccounts.key, "showClosedAccounts");
    EXPECT_FALSE(defaults.get(showClosedAccounts));
    EXPECT_EQ(autoBackupEnabled.key, "autoBackupEnabled");
    EXPECT_TRUE(defaults.get(autoBackupEnabled));
    EXPECT_EQ(autoBackupIntervalDays.key, "autoBackupIntervalDays");
    EXPECT_EQ(defaults.get(autoBackupIntervalDays), 1);
    EXPECT_EQ(autoBackupKeep.key, "autoBackupKeep");
    EXPECT_EQ(defaults.get(autoBackupKeep), 10);
    EXPECT_EQ(autoBackupPasswordProtected.key, "autoBackupPasswordProtected");
    EXPECT_TRUE(defaults.get(autoBackupPasswordProtected));
    EXPECT_EQ(autoBackupLastDate.key, "autoBackupLastDate");
    EXPECT_LE(defaults.get(autoBackupLastDate), 0);
    EXPECT_EQ(autoBackupFolder.key, "autoBackupFolderBookmark");
    EXPECT_EQ(defaults.get(autoBackupFolder), "");
    EXPECT_EQ(selectedReport.key, "selectedReport");
    EXPECT_EQ(defaults.get(selectedReport), "spendingByCategory");
    EXPECT_EQ(reportRange.key, "reportRange");
    EXPECT_EQ(defaults.get(reportRange), "yearToDate");
}

TEST(UserDefaults, TellOfEachChangeThoseWhoReadThatSettingOnly) {
    InMemoryUserDefaults defaults;
    int changes = 0;
    const Subscription subscription = defaults.observe(count, [&] { ++changes; });
    defaults.set(count, 1);
    defaults.set(count, 1);
    defaults.setString("another key", "1");
    EXPECT_EQ(changes, 1);
    defaults.remove("key");
    defaults.remove("key");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(defaults.get(count), 7);
}

TEST(UserDefaults, LetWhoIsToldReadTheNewValueAndObserveAnother) {
    InMemoryUserDefaults defaults;
    std::vector<long long> values;
    std::vector<Subscription> subscriptions;
    subscriptions.push_back(defaults.observe(count, [&] {
        values.push_back(defaults.get(count));
        subscriptions.push_back(
            defaults.observe(settings::autoBackupKeep, [&] { values.push_back(-1); }));
    }));
    defaults.set(count, 2);
    defaults.set(settings::autoBackupKeep, 3);
    EXPECT_THAT(values, ElementsAre(2, -1));
}

} // namespace
} // namespace oakfen
