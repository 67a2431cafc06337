#pragma once

#include <array>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
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
/// Up to 38 significant digits and an exponent from -128 to 127, always in canonical form (the
/// largest exponent that the value and the range allow, one zero, no negative zero), so that equal
/// values have equal bits. Arithmetic rounds half away from zero at the 38th digit. A result too
/// large and a division by zero are `nan()`, which equals itself and sorts before every number; a
/// result too small rounds at the 128th decimal place.
class Decimal {
public:
    /// Zero.
    constexpr Decimal() noexcept = default;

    /// The integer itself, exactly.
    explicit Decimal(std::int64_t integer) noexcept : Decimal(canonical(integer, 0)) {}

    /// A binary number is never an amount.
    template <std::floating_point Binary>
    explicit Decimal(Binary) = delete;

    /// `coefficient` × 10^`exponent`, rounded to 38 digits; `nan()` when that is too large.
    [[nodiscard]] static Decimal make(Int128 coefficient, int exponent) noexcept;

    /// The integer divided by 100: 1999 is 19.99.
    [[nodiscard]] static Decimal cents(std::int64_t amount) noexcept {
        return canonical(amount, -2);
    }

    /// Not a number: the result of what has no result.
    [[nodiscard]] static constexpr Decimal nan() noexcept {
        return {std::numeric_limits<Int128>::min(), nanExponent};
    }

    /// Reads an optional minus, digits and at most one point, with at least one digit; nothing
    /// else. Digits past the 38th round; a value too large returns nothing.
    [[nodiscard]] static std::optional<Decimal> parse(std::string_view text) noexcept;

    /// Reads a number as JSON's grammar has it, with exponents. Digits past the 38th round; a value
    /// too large returns nothing, one too small to hold is zero.
    [[nodiscard]] static std::optional<Decimal> parseJSONNumber(std::string_view text) noexcept;

    [[nodiscard]] constexpr bool isNaN() const noexcept { return exponent_ == nanExponent; }
    [[nodiscard]] constexpr bool isZero() const noexcept { return coefficient_ == 0; }
    [[nodiscard]] constexpr bool isNegative() const noexcept {
        return !isNaN() && coefficient_ < 0;
    }
    [[nodiscard]] constexpr bool isPositive() const noexcept { return coefficient_ > 0; }

    [[nodiscard]] constexpr Int128 coefficient() const noexcept { return coefficient_; }
    [[nodiscard]] constexpr int exponent() const noexcept { return exponent_; }

    /// The value without its sign.
    [[nodiscard]] Decimal magnitude() const noexcept { return isNegative() ? -*this : *this; }

    /// The value at no more than `scale` decimal places; a negative scale rounds before the point.
    [[nodiscard]] Decimal rounded(int scale, RoundingMode mode) const noexcept;

    /// At no more than two decimal places, halves away from zero.
    [[nodiscard]] Decimal toCents() const noexcept { return rounded(2, RoundingMode::plain); }

    /// The nearest binary number; for charts and ratios only.
    [[nodiscard]] double doubleValue() const noexcept;

    /// Plain digits, never an exponent: "-12.5", "100", "0.000001"; "NaN" for `nan()`.
    [[nodiscard]] std::string toString() const;

    /// Appends what `toString` returns; for writers of long texts.
    void appendTo(std::string& text) const;

    Decimal operator-() const noexcept {
        return isNaN() ? nan() : Decimal(-coefficient_, exponent_);
    }
    Decimal& operator+=(const Decimal& other) noexcept { return *this = *this + other; }
    Decimal& operator-=(const Decimal& other) noexcept { return *this = *this - other; }
    friend Decimal operator+(const Decimal& a, const Decimal& b) noexcept {
        Decimal result;
        return addShort(a, b, result) ? result : addWide(a, b);
    }
    friend Decimal operator-(const Decimal& a, const Decimal& b) noexcept { return a + -b; }
    friend Decimal operator*(const Decimal& a, const Decimal& b) noexcept;
    friend Decimal operator/(const Decimal& a, const Decimal& b) noexcept;

    friend bool operator==(const Decimal& a, const Decimal& b) noexcept = default;
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept;

private:
    static constexpr std::int16_t nanExponent = std::numeric_limits<std::int16_t>::max();
    static constexpr int highestExponent = 127;
    static constexpr std::array<std::int64_t, 10> shortPowersOfTen{
        1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};

    constexpr Decimal(Int128 coefficient, std::int16_t exponent) noexcept
        : coefficient_(coefficient), exponent_(exponent) {}

    static constexpr bool isShort(Int128 coefficient) noexcept {
        return coefficient == static_cast<std::int64_t>(coefficient);
    }

    /// `coefficient` × 10^`exponent` for an exponent in range.
    static Decimal canonical(std::int64_t coefficient, int exponent) noexcept {
        if (coefficient == 0) {
            return {};
        }
        while (exponent < highestExponent && coefficient % 10 == 0) {
            coefficient /= 10;
            ++exponent;
        }
        return {coefficient, static_cast<std::int16_t>(exponent)};
    }

    /// The sum of two numbers of everyday size, which need no wide integers. It stands here to be
    /// inlined: every balance is a loop around it. The result is passed by reference and not as an
    /// optional because the compiler keeps only the former in registers.
    static bool addShort(const Decimal& a, const Decimal& b, Decimal& result) noexcept {
        // Not a number is long, so only numbers get past this.
        if (!isShort(a.coefficient_) || !isShort(b.coefficient_)) {
            return false;
        }
        auto left = static_cast<std::int64_t>(a.coefficient_);
        auto right = static_cast<std::int64_t>(b.coefficient_);
        const int shift = a.exponent_ - b.exponent_;
        const auto steps = static_cast<std::size_t>(shift < 0 ? -shift : shift);
        if (steps >= shortPowersOfTen.size()) {
            return false;
        }
        std::int64_t& scaled = shift < 0 ? right : left;
        std::int64_t total = 0;
        if (__builtin_mul_overflow(scaled, shortPowersOfTen[steps], &scaled) ||
            __builtin_add_overflow(left, right, &total)) {
            return false;
        }
        result = canonical(total, shift < 0 ? a.exponent_ : b.exponent_);
        return true;
    }

    static Decimal addWide(const Decimal& a, const Decimal& b) noexcept;

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
