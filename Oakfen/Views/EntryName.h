#pragma once

#include <string>

#include "Oakfen/Views/Table.h"

namespace oakfen {

/// What tells a person which entry is meant: "“Metro”, -$33.33, 2025-11-05".
[[nodiscard]] std::string entryName(const Transaction& entry, const CellContext& context);

} // namespace oakfen
