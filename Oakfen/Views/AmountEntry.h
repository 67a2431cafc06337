#pragma once

#include "Oakfen/Views/TypedEntry.h"
#include "OakfenCore/Support/Decimal.h"

namespace oakfen {

/// The state of a field for an amount. It shows two decimals, yet holds the value unrounded until
/// the person types another.
class AmountEntry final : public TypedEntry {
public:
    AmountEntry() { show(); }
    explicit AmountEntry(const Decimal& value) : value_(value) { show(); }

    /// Unrounded.
    [[nodiscard]] const Decimal& value() const { return value_; }
    /// Holds and shows another value.
    void setValue(const Decimal& value);

private:
    [[nodiscard]] std::string valueText() const override;
    void rememberValue() override { shownValue_ = value_; }
    void restoreValue() override { value_ = shownValue_; }
    [[nodiscard]] std::string take(std::string_view text) override;

    Decimal value_;
    Decimal shownValue_;
};

} // namespace oakfen
