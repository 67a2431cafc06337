#pragma once

#include <string_view>
#include <vector>

#include "OakfenCore/Importers/StatementImporter.h"

namespace oakfen {

/// The entries of a QIF statement's sections, those of investment accounts left out. Splits arrive
/// as their total, transfers without a category, and an entry that isn't ended doesn't count.
[[nodiscard]] std::vector<ImportedTransaction> readQIF(std::string_view text,
                                                       const Calendar& calendar);

} // namespace oakfen
