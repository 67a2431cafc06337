#pragma once

#include "Oakfen/Views/Components/TypedEntry.h"
#include "OakfenCore/Support/Number/Decimal.h"

namespace oakfen {

/// What a field for a number is about.
enum class AmountKind {
    money,  ///< what is typed or calculated is rounded to the cent, half away from zero
    number, ///< shares and prices, which are held as exactly as they are typed
    rate,   ///< a number of percent, held as exactly as it is typed, with or without its sign
};

/// The state of a field for an amount. It shows two decimals, yet holds the value unrounded until
/// the person types another. Money that they type is what the field then shows: otherwise a third
/// of 100.00 would move a balance by more than its register says.
class AmountEntry final : public TypedEntry {
public:
    explicit AmountEntry(AmountKind kind = AmountKind::money) : kind_(kind) { show(); }
    explicit AmountEntry(const Decimal& value, AmountKind kind = AmountKind::money)
        : kind_(kind), value_(value) {
        show();
    }

    /// Unrounded while it is what was set from outside.
    [[nodiscard]] const Decimal& value() const { return value_; }
    /// Holds and shows another value.
    void setValue(const Decimal& value);

private:
    [[nodiscard]] std::string valueText() const override;
    void rememberValue() override { shownValue_ = value_; }
    void restoreValue() override { value_ = shownValue_; }
    [[nodiscard]] std::string take(std::string_view text) override;

    AmountKind kind_;
    Decimal value_;
    Decimal shownValue_;
};

} // namespace oakfen
