#pragma once

#include <string_view>
#include <vector>

#include "OakfenCore/Importers/StatementImporter.h"

namespace oakfen {

/// The lines of a comma-separated statement; none when its columns can't be told.
[[nodiscard]] std::vector<ImportedTransaction> readCSV(std::string_view data,
                                                       const Calendar& calendar);

} // namespace oakfen
