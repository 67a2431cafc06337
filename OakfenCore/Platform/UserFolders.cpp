#include "OakfenCore/Platform/UserFolders.h"

#include <cstdlib>
#include <optional>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace oakfen {

namespace {

std::optional<std::string> absolutePathIn(const char* variable) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || value[0] != '/') {
        return std::nullopt;
    }
    return value;
}

std::string folder(const char* variable, const char* usual) {
    const std::optional<std::string> chosen = absolutePathIn(variable);
    return chosen ? *chosen : homeFolder() + usual;
}

} // namespace

std::string userDataFolder() {
    return folder("XDG_DATA_HOME", "/.local/share");
}

std::string userSettingsFolder() {
    return folder("XDG_CONFIG_HOME", "/.config");
}

std::string userStateFolder() {
    return folder("XDG_STATE_HOME", "/.local/state");
}

std::string homeFolder() {
    if (const std::optional<std::string> home = absolutePathIn("HOME")) {
        return *home;
    }
    constexpr std::size_t enoughForAnyEntry = 65536;
    std::vector<char> texts(enoughForAnyEntry);
    passwd entry{};
    passwd* found = nullptr;
    const int error = ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    return error == 0 && found != nullptr ? found->pw_dir : "/";
}

} // namespace oakfen
