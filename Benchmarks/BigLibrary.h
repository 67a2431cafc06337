#pragma once

#include <cstddef>

#include "OakfenCore/Models/Library.h"

namespace oakfen::benchmarks {

/// A plausible household with that many entries over the years up to 2026, in date order: twelve
/// accounts, eighty categories, four hundred payees, five percent transfers, three percent splits.
/// The same count always gives the same document.
[[nodiscard]] Library makeBigLibrary(std::size_t count);

/// The same document, made only once for each count.
[[nodiscard]] const Library& bigLibrary(std::size_t count);

/// The end of its last year.
[[nodiscard]] Date bigLibraryNow();

} // namespace oakfen::benchmarks
