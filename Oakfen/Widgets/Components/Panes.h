#pragma once

#include <Qt>

class QWidget;

namespace oakfen {

/// Makes the widget a part of its window that the person goes to as a whole, by F6. Of panes within
/// panes the innermost counts.
void makePane(QWidget& widget);

/// Moves the keyboard to the pane after or before the one that has it, as they are read, and there
/// to where it was last.
void goToPane(QWidget& window, bool forward);

/// Moves the keyboard to what Tab would come to first within the area. Whether there is such.
bool focusFirstIn(const QWidget& area, Qt::FocusReason reason = Qt::TabFocusReason);

} // namespace oakfen
