#pragma once

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// Whether an edited document holds an amount that is not a number. Looks only into what it doesn't
/// share with the document before the edit, so the cost is that of the edit.
[[nodiscard]] bool addsNaN(const Library& before, const Library& after);

} // namespace oakfen
