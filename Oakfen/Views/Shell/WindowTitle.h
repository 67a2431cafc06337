#pragma once

#include <string>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// What the system calls the window: the screen's name and the program's, and the program's alone
/// while the screen is hidden, so that no account can be read off a task bar.
[[nodiscard]] std::string windowTitle(const AppEnvironment& environment);

} // namespace oakfen
