#pragma once

#include <string>

#include "OakfenCore/Models/Library.h"

/// What the timed work is compared with in the same run, so that the ratios mean the same on every
/// machine.
namespace oakfen::benchmarks {

/// Looks at each entry once and adds its amount to that of its state.
[[nodiscard]] Decimal passOverRecords(const Library& library);

/// The fields of each entry one after the other as text, with no keys and no escapes.
[[nodiscard]] std::string copyToText(const Library& library);

} // namespace oakfen::benchmarks
