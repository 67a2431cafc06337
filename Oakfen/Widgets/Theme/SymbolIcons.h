#pragma once

#include <QIcon>
#include <string_view>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// The icon that stands for the name ("building.columns"), painted in the role's colour and
/// repainted when the theme changes.
[[nodiscard]] QIcon symbolIcon(std::string_view symbolName, ThemeColor role = ThemeColor::text);

} // namespace oakfen
