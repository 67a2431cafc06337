#pragma once

#include <vector>

#include "Oakfen/Views/MenuEntry.h"

class QMenu;

namespace oakfen {

/// Replaces the menu's lines.
void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries);

} // namespace oakfen
