#include <gtest/gtest.h>

#include "OakfenCore/Platform/FileUserDefaults.h"
#include "OakfenCore/Platform/UserFolders.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace oakfen {
namespace {

using Variable = testing::EnvironmentVariable;

TEST(UserFolders, AreThoseOfTheEnvironment) {
    const Variable data("XDG_DATA_HOME", "/d");
    const Variable settings("XDG_CONFIG_HOME", "/c");
    const Variable state("XDG_STATE_HOME", "/s");
    EXPECT_EQ(userDataFolder(), "/d");
    EXPECT_EQ(userSettingsFolder(), "/c");
    EXPECT_EQ(userStateFolder(), "/s");
    EXPECT_EQ(FileUserDefaults::defaultFilePath(), "/c/Oakfen/Oakfen.conf");
}

TEST(UserFolders, AreInTheHomeFolderWhereTheEnvironmentNamesNone) {
    const Variable home("HOME", "/home/user");
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable settings("XDG_CONFIG_HOME", nullptr);
    const Variable state("XDG_STATE_HOME", nullptr);
    EXPECT_EQ(userDataFolder(), "/home/user/.local/share");
    EXPECT_EQ(userSettingsFolder(), "/home/user/.config");
    EXPECT_EQ(userStateFolder(), "/home/user/.local/state");
}

TEST(UserFolders, IgnoreAnEmptyVariableAndARelativeOne) {
    const Variable home("HOME", "/home/user");
    for (const char* value : {"", "relative/data"}) {
        const Variable data("XDG_DATA_HOME", value);
        EXPECT_EQ(userDataFolder(), "/home/user/.local/share");
    }
}

TEST(UserFolders, AreFoundWithoutAHomeInTheEnvironment) {
    for (const char* value : {static_cast<const char*>(nullptr), ""}) {
        const Variable home("HOME", value);
        EXPECT_TRUE(homeFolder().starts_with('/'));
    }
}

} // namespace
} // namespace oakfen
