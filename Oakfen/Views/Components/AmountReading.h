#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "OakfenCore/Support/Number/Decimal.h"

namespace oakfen {

/// How amounts are punctuated.
struct NumberPunctuation {
    /// A point or a comma.
    char decimal = '.';
    /// The other one of the two, or a blank where groups are set apart by blanks or apostrophes.
    char grouping = ',';
    /// What the currency of the place is called beside an amount, where no sign stands for it
    /// ("kr"); else empty.
    std::string currency = {};

    /// That of the user's locale.
    [[nodiscard]] static NumberPunctuation user();

    friend bool operator==(const NumberPunctuation&, const NumberPunctuation&) = default;
};

/// What a typed or pasted amount means: a value, or the reason why it has none.
struct AmountReading {
    std::optional<Decimal> value = {};
    /// For the user; empty when there is a value.
    std::string explanation = {};

    friend bool operator==(const AmountReading&, const AmountReading&) = default;
};

/// Reads an amount the way people write them: grouping, a comma or a point before the decimals, a
/// minus on either side, brackets for a negative, a currency's sign or code around it, the digits
/// of any script, and arithmetic as on a pocket calculator ("(12.50+3)*2", "100+13%"). The locale's
/// punctuation is tried first, then the other one.
[[nodiscard]] AmountReading
readAmount(std::string_view text, const NumberPunctuation& punctuation = NumberPunctuation::user());

/// The digits of a number, or of a part of one, with a point before the decimals and nothing
/// between the groups; nothing for any other text, such as one with a sign. Currencies' signs don't
/// count.
[[nodiscard]] std::optional<std::string> amountDigits(std::string_view text,
                                                      const NumberPunctuation& punctuation);

/// A calculation as an example of what can be typed, in the user's punctuation.
[[nodiscard]] std::string exampleCalculation();

} // namespace oakfen
