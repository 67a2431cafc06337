#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace oakfen {

__extension__ using Int128 = __int128;
__extension__ using UInt128 = unsigned __int128;

/// How `Decimal::rounded` treats the digits that it drops.
enum class RoundingMode {
    plain,   ///< to nearest, halves away from zero
    down,    ///< towards minus infinity
    up,      ///< towards plus infinity
    bankers, ///< to nearest, halves to the even digit
};

/// A base-10 floating number: the only type for amounts, shares, prices and rates.
///
/// Up to 38 significant digits and an exponent from -128 to 127, always in canonical form (no
/// trailing zeros in the coefficient, one zero, no negative zero), so that equal values have equal
/// bits. Arithmetic rounds half away from zero at the 38th digit. A result out of range and a
/// division by zero are `nan()`, which equals itself and sorts before every number.
class Decimal {
public:
    /// Zero.
    constexpr Decimal() noexcept = default;

    /// The integer itself, exactly.
    explicit Decimal(std::int64_t integer) noexcept;

    /// `coefficient` × 10^`exponent`, rounded to 38 digits; `nan()` when that is out of range.
    [[nodiscard]] static Decimal make(Int128 coefficient, int exponent) noexcept;

    /// The integer divided by 100: 1999 is 19.99.
    [[nodiscard]] static Decimal cents(std::int64_t amount) noexcept;

    /// Not a number: the result of what has no result.
    [[nodiscard]] static Decimal nan() noexcept;

    /// Reads an optional minus, digits and at most one point, with at least one digit; nothing else.
    /// Digits past the 38th round; a value out of range gives nothing.
    [[nodiscard]] static std::optional<Decimal> parse(std::string_view text) noexcept;

    /// Reads a number as JSON's grammar has it, with exponents. Digits past the 38th round; a value
    /// too large gives nothing, one too small to hold is zero.
    [[nodiscard]] static std::optional<Decimal> parseJSONNumber(std::string_view text) noexcept;

    [[nodiscard]] bool isNaN() const noexcept;
    [[nodiscard]] bool isZero() const noexcept { return *this == Decimal(); }
    [[nodiscard]] bool isNegative() const noexcept { return !isNaN() && coefficient_ < 0; }
    [[nodiscard]] bool isPositive() const noexcept { return coefficient_ > 0; }

    [[nodiscard]] Int128 coefficient() const noexcept { return coefficient_; }
    [[nodiscard]] int exponent() const noexcept { return exponent_; }

    /// The value without its sign.
    [[nodiscard]] Decimal magnitude() const noexcept;

    /// The value at no more than `scale` decimal places; a negative scale rounds before the point.
    [[nodiscard]] Decimal rounded(int scale, RoundingMode mode) const noexcept;

    /// The nearest binary number; for charts and ratios only.
    [[nodiscard]] double doubleValue() const noexcept;

    /// Plain digits, never an exponent: "-12.5", "100", "0.000001"; "NaN" for `nan()`.
    [[nodiscard]] std::string toString() const;

    /// Appends what `toString` gives; for writers of long texts.
    void appendTo(std::string& text) const;

    Decimal operator-() const noexcept;
    Decimal& operator+=(const Decimal& other) noexcept;
    Decimal& operator-=(const Decimal& other) noexcept;
    friend Decimal operator+(const Decimal& a, const Decimal& b) noexcept;
    friend Decimal operator-(const Decimal& a, const Decimal& b) noexcept;
    friend Decimal operator*(const Decimal& a, const Decimal& b) noexcept;
    friend Decimal operator/(const Decimal& a, const Decimal& b) noexcept;

    friend bool operator==(const Decimal& a, const Decimal& b) noexcept = default;
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept;

private:
    Int128 coefficient_ = 0;
    std::int16_t exponent_ = 0; // nan() is the one value with an exponent out of range
};

/// The sum of `amount(element)` over the elements, in order, starting at zero.
template <typename Sequence, typename Amount>
[[nodiscard]] Decimal sum(const Sequence& elements, Amount&& amount) {
    Decimal total;
    for (const auto& element : elements) {
        total += std::invoke(amount, element);
    }
    return total;
}

} // namespace oakfen

template <>
struct std::hash<oakfen::Decimal> {
    std::size_t operator()(const oakfen::Decimal& value) const noexcept;
};
