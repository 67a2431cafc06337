#pragma once

#include <cstddef>
#include <string>

#include "OakfenCore/Importers/StatementImporter.h"

namespace oakfen::benchmarks {

/// A bank's statement of that many lines in the format.
[[nodiscard]] std::string makeStatement(ImportFormat format, std::size_t lines);

} // namespace oakfen::benchmarks
