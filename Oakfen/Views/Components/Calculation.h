#pragma once

#include <optional>
#include <string_view>

#include "OakfenCore/Support/Number/Decimal.h"

namespace oakfen {

/// The result of a sum of products of signed numbers, `Decimal::nan()` where that is none or too
/// large; nothing when the text is no such thing. The
/// numbers are read with the given separators first, and with the point and the comma in each
/// other's place only if that fails; blanks may set groups apart always.
[[nodiscard]] std::optional<Decimal> calculate(std::string_view text, char decimal, char grouping);

} // namespace oakfen
