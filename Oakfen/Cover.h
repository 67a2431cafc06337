#pragma once

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// What covers the main screen: the gate until the data file is open, the lock until the person has
/// proven who they are.
enum class Cover { none, gate, lock };

/// The gate wins over the lock: a locked screen makes sense only before an open file.
[[nodiscard]] Cover cover(const AppEnvironment& environment);

/// Whether the main screen is hidden and its controls are disabled.
[[nodiscard]] bool isObscured(const AppEnvironment& environment);

/// Whether commands may act on the main screen: nothing covers it, and no sheet lies over it.
[[nodiscard]] bool isMainScreenFree(const AppEnvironment& environment);

/// Whether the window may be closed. What was begun in an open sheet would be lost with it; at the
/// gate there is nothing that it could be saved to.
[[nodiscard]] bool canClose(const AppEnvironment& environment);

} // namespace oakfen
