#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "OakfenCore/Support/Number/Decimal.h"

/// The digits of 128-bit integers: what the arithmetic and the texts of `Decimal` share.
namespace oakfen::digits {

constexpr int precision = 38;
constexpr int lowestExponent = -128;
constexpr int highestExponent = 127;

/// 10^0 to 10^38: every power of ten that 128 bits hold.
constexpr auto powersOfTen = [] {
    std::array<UInt128, precision + 1> powers{};
    powers[0] = 1;
    for (std::size_t index = 1; index < powers.size(); ++index) {
        powers[index] = powers[index - 1] * 10;
    }
    return powers;
}();

/// 10^`power`, for a power from 0 to 38.
constexpr UInt128 powerOfTen(int power) {
    return powersOfTen[static_cast<std::size_t>(power)];
}

constexpr int bitWidth(UInt128 value) {
    const auto high = static_cast<std::uint64_t>(value >> 64U);
    const auto low = static_cast<std::uint64_t>(value);
    return high != 0 ? 128 - std::countl_zero(high) : 64 - std::countl_zero(low);
}

/// The number of decimal digits; none for zero.
constexpr int count(UInt128 value) {
    // 1233 / 4096 is log10(2), near enough for 128 bits; the table settles the last digit.
    const int estimate = (bitWidth(value) * 1233) >> 12;
    return estimate + (value >= powerOfTen(estimate) ? 1 : 0);
}

constexpr UInt128 magnitude(Int128 value) {
    return value < 0 ? UInt128{0} - static_cast<UInt128>(value) : static_cast<UInt128>(value);
}

/// The number whose magnitude's leading digits are `leading` × 10^`exponent`, and whose next digit,
/// the first one that didn't fit, is `next`; `nan()` when it is too large.
Decimal assemble(bool isNegative, UInt128 leading, int next, std::int64_t exponent) noexcept;

} // namespace oakfen::digits
