#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// One item of the menu bar. Holds no logic beyond its enablement: it writes the application's
/// state, starts a flow or runs one mutation.
struct AppCommand {
    /// What the toolkit's focused field does by itself.
    enum class Standard { none, cut, copy, paste, selectAll };

    std::string menu;
    /// Empty, or the submenu that the item is in.
    std::string submenu = {};
    std::function<std::string()> title;
    /// As "Ctrl+Shift+N"; empty for none.
    std::string shortcut = {};
    /// A divider stands before the item.
    bool startsGroup = false;
    std::function<bool()> isEnabled = [] { return true; };
    /// Without one, and unless it is a standard command, the item is disabled.
    std::function<void()> perform = {};
    Standard standard = Standard::none;
};

/// What the commands ask of the window.
struct WindowActions {
    std::function<void()> quit;
    std::function<void()> showAbout;
    std::function<bool()> isSidebarShown;
    std::function<void()> toggleSidebar;
};

/// The whole menu bar as one table, in the order in which it is shown.
[[nodiscard]] std::vector<AppCommand>
makeAppCommands(AppEnvironment& environment, History& undoManager, const WindowActions& window);

} // namespace oakfen
