#pragma once

#include <QColor>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// The colour of a role in the light or the dark theme.
[[nodiscard]] QColor themeColor(ThemeColor role, bool dark);

/// The toolkit's palette made from those roles.
[[nodiscard]] QPalette themePalette(bool dark);

/// The application's one style sheet.
[[nodiscard]] QString themeStyleSheet(bool dark);

} // namespace oakfen
