#pragma once

#include <functional>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/MenuEntry.h"

namespace oakfen {

/// What the commands ask of the window.
struct WindowActions {
    std::function<void()> quit;
    std::function<void()> showAbout;
    std::function<bool()> isSidebarShown;
    std::function<void()> toggleSidebar;
    std::function<void()> findInAllAccounts = {};
    /// Moves the keyboard to the next part of the window, or to the one before.
    std::function<void(bool forward)> goToPane = {};
};

/// The whole menu bar as it is now: an entry for each menu, with its lines in their order. A line
/// holds no logic beyond its enablement: it writes the application's state, starts a flow or runs
/// one mutation.
[[nodiscard]] std::vector<MenuEntry> makeMenuBar(AppEnvironment& environment,
                                                 const WindowActions& window);

} // namespace oakfen
