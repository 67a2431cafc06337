#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "OakfenCore/Support/Decimal.h"

namespace oakfen {

/// How numbers are punctuated. An empty grouping means that groups are set apart by blanks.
struct NumberPunctuation {
    char decimal = '.';
    std::string grouping = ",";

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
/// minus on either side, brackets for a negative, a currency's sign or code around it, and simple
/// arithmetic ("12.50+3*2"). The locale's punctuation is tried first, then the other one.
[[nodiscard]] AmountReading
readAmount(std::string_view text, const NumberPunctuation& punctuation = NumberPunctuation::user());

/// The state of a field for an amount. It shows two decimals, yet holds the value unrounded until
/// the person types another; an entry that can't be read leaves the value as it was.
class AmountEntry {
public:
    AmountEntry() { show(); }
    explicit AmountEntry(const Decimal& value) : value_(value) { show(); }

    [[nodiscard]] const Decimal& value() const { return value_; }
    [[nodiscard]] const std::string& text() const { return text_; }
    /// Why the text can't be read; empty while it can.
    [[nodiscard]] const std::string& explanation() const { return explanation_; }

    /// Holds and shows another value.
    void setValue(const Decimal& value);
    /// The person typed: reads the text, but leaves it as it stands.
    void edit(std::string text);
    /// The person left the field: shows the held value in its usual form.
    void finishEditing();

private:
    void show();

    Decimal value_;
    std::string text_;
    // What the field showed, and held, when the person began to type.
    std::string shown_;
    Decimal shownValue_;
    std::string explanation_;
};

} // namespace oakfen
