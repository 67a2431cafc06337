#pragma once

#include <QIcon>

namespace oakfen {

/// The acorn that stands for the program on a task bar and in its windows. Its small sizes are
/// drawn for their pixels.
[[nodiscard]] QIcon programIcon();

} // namespace oakfen
