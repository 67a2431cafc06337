#pragma once

#include <QString>
#include <string>
#include <vector>

#include "Oakfen/MenuEntry.h"

class QMenu;

namespace oakfen {

/// A title as a menu shows it: in one line, with its ampersands, which would be taken for
/// mnemonics.
[[nodiscard]] QString menuText(const std::string& title);

/// Replaces the menu's lines.
void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries);

/// Brings title and enablement of each line up to date in a menu that was filled with as many lines
/// that do the same.
void refreshMenu(QMenu& menu, const std::vector<MenuEntry>& entries);

} // namespace oakfen
