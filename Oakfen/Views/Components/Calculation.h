#pragma once

#include <optional>
#include <string_view>

#include "OakfenCore/Support/Number/Decimal.h"

namespace oakfen {

/// The result of a sum of products of signed numbers and of sums in parentheses, `Decimal::nan()`
/// where that is none or too large; nothing when the text is no such thing. A percentage that is
/// added or subtracted is one of the sum before it, as on a pocket calculator ("100+13%"); anywhere
/// else it means hundredths. The numbers are read with the given separators first, and with the
/// point and the comma in each other's place only if that fails; blanks may set groups apart
/// always.
[[nodiscard]] std::optional<Decimal> calculate(std::string_view text, char decimal, char grouping);

} // namespace oakfen
