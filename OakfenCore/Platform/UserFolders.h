#pragma once

#include <string>

namespace oakfen {

// Where a person's files belong on this desktop. A variable that is empty or names a relative path
// counts as not set.

/// `XDG_DATA_HOME`, else ".local/share" in the home folder.
[[nodiscard]] std::string userDataFolder();

/// `XDG_CONFIG_HOME`, else ".config" in the home folder.
[[nodiscard]] std::string userSettingsFolder();

/// `XDG_STATE_HOME`, else ".local/state" in the home folder.
[[nodiscard]] std::string userStateFolder();

/// `HOME`, else what the system's list of users says.
[[nodiscard]] std::string homeFolder();

} // namespace oakfen
