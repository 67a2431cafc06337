#pragma once

#include <QList>
#include <QStringList>
#include <string>
#include <vector>

#include "Oakfen/MenuEntry.h"

class QAction;
class QMenu;

namespace oakfen {

/// Gives the lines their titles, each with a letter of its own by which it is chosen.
void markLetters(const QList<QAction*>& lines, const QStringList& titles);

/// Replaces the menu's lines.
void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries);

/// Brings the menu's lines up to date; only where others came or went are they replaced.
void refreshMenu(QMenu& menu, const std::vector<MenuEntry>& entries);

} // namespace oakfen
