#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace oakfen {

/// One line of a menu: of the menu bar, a context menu or a menu button. Menus are made anew for
/// each look at them.
struct MenuEntry {
    /// What the toolkit's focused field does by itself.
    enum class Standard { none, cut, copy, paste, selectAll };

    std::string title;
    std::string symbolName = {};
    /// As "Ctrl+Shift+N"; empty for none. It acts from the menu bar only.
    std::string shortcut = {};
    /// What has the focus answers the shortcut by itself, which stands here to be read.
    bool leavesKeyToFocus = false;
    std::function<void()> perform = {};
    /// In the place of `perform`.
    Standard standard = Standard::none;
    bool isEnabled = true;
    bool isDestructive = false;
    /// For a line that shows a tick or not.
    std::optional<bool> isChecked = {};
    /// A divider stands before the line.
    bool startsGroup = false;
    /// The lines of the submenu that it opens; then it does nothing by itself.
    std::vector<MenuEntry> children = {};

    /// One that has nothing to do can't: what is to come is shown, so that nothing moves when it
    /// does. A submenu can while one of its lines can.
    [[nodiscard]] bool canBeChosen() const {
        return isEnabled && (perform || standard != Standard::none ||
                             std::ranges::any_of(children, &MenuEntry::canBeChosen));
    }
};

} // namespace oakfen
