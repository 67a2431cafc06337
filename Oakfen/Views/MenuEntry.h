#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace oakfen {

/// One line of a context menu or of a menu button. One that neither does anything nor opens a
/// submenu is shown disabled.
struct MenuEntry {
    std::string title;
    std::string symbolName = {};
    std::function<void()> perform = {};
    bool isEnabled = true;
    bool isDestructive = false;
    /// For a line that shows a tick or not.
    std::optional<bool> isChecked = {};
    /// A divider stands before the line.
    bool startsGroup = false;
    /// The lines of the submenu that it opens; then it does nothing by itself.
    std::vector<MenuEntry> children = {};
};

} // namespace oakfen
