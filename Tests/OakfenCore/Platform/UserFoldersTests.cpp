#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>

#include "OakfenCore/Platform/FileUserDefaults.h"
#include "OakfenCore/Platform/UserFolders.h"

namespace oakfen {
namespace {

/// Sets a variable of the environment, or takes it away, for as long as the object lives.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* const before = std::getenv(name)) {
            before_ = before;
        }
        set(value);
    }
    ~Variable() { set(before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void set(const char* value) const {
        if (value == nullptr) {
            ::unsetenv(name_);
        } else {
            ::setenv(name_, value, 1);
        }
    }

    const char* name_;
    std::optional<std::string> before_;
};

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
