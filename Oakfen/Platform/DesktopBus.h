#pragma once

#include <QString>

/// The desktop's services on the session bus. Each is optional: a plain window manager has none.
namespace oakfen::desktopBus {

/// Whether the desktop shows file dialogs of its own for programs that ask. Asks it once, and waits
/// a moment for the answer.
[[nodiscard]] bool hasFileDialogs();

/// Shows the file, selected, in the desktop's file manager; opens its folder where that can't be.
void showInFileManager(const QString& path);

} // namespace oakfen::desktopBus
