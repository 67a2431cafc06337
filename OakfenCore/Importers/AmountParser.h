#pragma once

#include <optional>
#include <string_view>

#include "OakfenCore/Support/Number/Decimal.h"

/// Reads the amounts of bank statements, which follow no one standard.
namespace oakfen::AmountParser {

/// The amount in the text; nothing when it can't be read. Knows currency signs, thousands marks,
/// decimal commas, accountants' parentheses, a minus at either end, and "DR" and "CR" behind it.
[[nodiscard]] std::optional<Decimal> parse(std::string_view text);

} // namespace oakfen::AmountParser
