#pragma once

#include <functional>
#include <optional>
#include <string>

namespace oakfen {

/// One line of a context menu or of a menu button.
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
};

} // namespace oakfen
