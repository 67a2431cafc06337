#include "OakfenCore/Support/Number/Decimal.h"

#include <algorithm>
#include <boost/multiprecision/cpp_int.hpp>
#include <charconv>
#include <utility>

#include "OakfenCore/Support/Number/DecimalDigits.h"

namespace oakfen {
namespace {

using Wide = boost::multiprecision::uint256_t;

/// The most digits of which every number fits in 256 bits.
constexpr int widePrecision = 77;

/// 10^0 to 10^77.
const std::array<Wide, widePrecision + 1>& widePowersOfTen() {
    static const auto powers = [] {
        std::array<Wide, widePrecision + 1> values;
        values[0] = 1;
        for (std::size_t index = 1; index < values.size(); ++index) {
            values[index] = values[index - 1] * 10U;
        }
        return values;
    }();
    return powers;
}

const Wide& widePowerOfTen(int power) {
    return widePowersOfTen()[static_cast<std::size_t>(power)];
}

int digitCount(const Wide& value) {
    const auto& powers = widePowersOfTen();
    return static_cast<int>(std::upper_bound(powers.begin(), powers.end(), value) - powers.begin());
}

/// A magnitude of up to 77 digits, rounded once: to 38 digits or to the lowest exponent, whichever
/// drops more. Halves go away from zero, so the first dropped digit alone decides, and a caller may
/// cut off digits below it without a trace.
Decimal narrowed(bool isNegative, const Wide& magnitude, int exponent) {
    const int excess = digitCount(magnitude) - digits::precision;
    if (excess <= 0) {
        return digits::assemble(isNegative, static_cast<UInt128>(magnitude), 0, exponent);
    }
    const Wide leading = magnitude / widePowerOfTen(excess);
    const Wide rest = magnitude - leading * widePowerOfTen(excess);
    const int next = static_cast<int>(Wide(rest / widePowerOfTen(excess - 1)));
    return digits::assemble(isNegative, static_cast<UInt128>(leading), next, exponent + excess);
}

/// `magnitude` × 10^`steps`, which must not have more than 77 digits.
Wide scaledUp(UInt128 magnitude, int steps) {
    return Wide(magnitude) * widePowerOfTen(steps);
}

struct Quotient {
    UInt128 whole = 0;
    UInt128 rest = 0;
};

/// Whether a cut-off `rest` of a `unit` moves the whole part one away from zero.
bool roundsAway(const Quotient& quotient, UInt128 unit, bool isNegative, RoundingMode mode) {
    // Doubling could overflow, so the rest is compared with its complement.
    const UInt128 complement = unit - quotient.rest;
    switch (mode) {
    case RoundingMode::plain:
        return quotient.rest >= complement;
    case RoundingMode::down:
        return isNegative && quotient.rest != 0;
    case RoundingMode::up:
        return !isNegative && quotient.rest != 0;
    case RoundingMode::bankers:
        return quotient.rest > complement ||
               (quotient.rest == complement && quotient.whole % 2 == 1);
    }
    return false;
}

} // namespace

Decimal digits::assemble(bool isNegative, UInt128 leading, int next,
                         std::int64_t exponent) noexcept {
    if (leading == 0 && next == 0) {
        return {};
    }
    // One rounding: where the lowest exponent costs digits, the first of them decides.
    if (exponent < lowestExponent) {
        const std::int64_t dropped = lowestExponent - exponent;
        if (dropped > precision) {
            return {};
        }
        const UInt128 above = powerOfTen(static_cast<int>(dropped) - 1);
        leading /= above;
        next = static_cast<int>(leading % 10);
        leading /= 10;
        exponent = lowestExponent;
    }
    if (next >= 5) {
        ++leading;
    }
    if (leading == 0) {
        return {};
    }
    if (exponent > highestExponent + precision) {
        return Decimal::nan();
    }
    const auto magnitude = static_cast<Int128>(leading);
    return Decimal::make(isNegative ? -magnitude : magnitude, static_cast<int>(exponent));
}

Decimal Decimal::make(Int128 coefficient, int exponent) noexcept {
    if (isShort(coefficient) && exponent >= digits::lowestExponent &&
        exponent <= digits::highestExponent) {
        return canonical(static_cast<std::int64_t>(coefficient), exponent);
    }
    const bool isNegative = coefficient < 0;
    UInt128 leading = digits::magnitude(coefficient);
    if (leading == 0) {
        return {};
    }
    if (leading >= digits::powerOfTen(digits::precision)) {
        return digits::assemble(isNegative, leading / 10, static_cast<int>(leading % 10),
                                std::int64_t{exponent} + 1);
    }
    if (exponent < digits::lowestExponent) {
        return digits::assemble(isNegative, leading, 0, exponent);
    }
    for (const int steps : {16, 8, 4, 2, 1}) {
        while (exponent <= digits::highestExponent - steps &&
               leading % digits::powerOfTen(steps) == 0) {
            leading /= digits::powerOfTen(steps);
            exponent += steps;
        }
    }
    if (exponent > digits::highestExponent) {
        const int steps = std::min(exponent - digits::highestExponent, digits::precision + 1);
        if (digits::count(leading) + steps > digits::precision) {
            return nan();
        }
        leading *= digits::powerOfTen(steps);
        exponent = digits::highestExponent;
    }
    const auto magnitude = static_cast<Int128>(leading);
    return {isNegative ? -magnitude : magnitude, static_cast<std::int16_t>(exponent)};
}

Decimal Decimal::addWide(const Decimal& a, const Decimal& b) noexcept {
    if (a.isNaN() || b.isNaN()) {
        return nan();
    }
    if (a.isZero()) {
        return b;
    }
    if (b.isZero()) {
        return a;
    }
    Int128 total = 0;
    if (a.exponent_ == b.exponent_ &&
        !__builtin_add_overflow(a.coefficient_, b.coefficient_, &total)) {
        return make(total, a.exponent_);
    }
    const Decimal& upper = a.exponent_ > b.exponent_ ? a : b;
    const Decimal& lower = a.exponent_ > b.exponent_ ? b : a;
    const UInt128 upperMagnitude = digits::magnitude(upper.coefficient_);
    const UInt128 lowerMagnitude = digits::magnitude(lower.coefficient_);
    const bool isDifference = (upper.coefficient_ < 0) != (lower.coefficient_ < 0);
    const int distance = upper.exponent_ - lower.exponent_;

    // The upper number is brought down as far as 76 digits go. What of the lower one lies deeper
    // still is cut off; in a difference it then takes one whole unit, since the digits are those of
    // the next smaller number.
    const int steps = std::min(distance, widePrecision - 1 - digits::count(upperMagnitude));
    const Wide high = scaledUp(upperMagnitude, steps);
    const int beyond = distance - steps;
    UInt128 low = lowerMagnitude;
    bool isCut = false;
    if (beyond > 0) {
        const bool vanishes = beyond > digits::precision;
        low = vanishes ? 0 : lowerMagnitude / digits::powerOfTen(beyond);
        isCut = vanishes || low * digits::powerOfTen(beyond) != lowerMagnitude;
    }
    const int exponent = upper.exponent_ - steps;
    const bool upperIsNegative = upper.coefficient_ < 0;
    if (!isDifference) {
        return narrowed(upperIsNegative, Wide(high + low), exponent);
    }
    const Wide taken = Wide(low) + (isCut ? 1U : 0U);
    if (high < taken) {
        return narrowed(!upperIsNegative, Wide(taken - high), exponent);
    }
    return narrowed(upperIsNegative, Wide(high - taken), exponent);
}

Decimal operator*(const Decimal& a, const Decimal& b) noexcept {
    if (a.isNaN() || b.isNaN()) {
        return Decimal::nan();
    }
    const int exponent = a.exponent_ + b.exponent_;
    if (Decimal::isShort(a.coefficient_) && Decimal::isShort(b.coefficient_)) {
        return Decimal::make(a.coefficient_ * b.coefficient_, exponent);
    }
    const bool isNegative = (a.coefficient_ < 0) != (b.coefficient_ < 0);
    const Wide product =
        Wide(digits::magnitude(a.coefficient_)) * Wide(digits::magnitude(b.coefficient_));
    return narrowed(isNegative, product, exponent);
}

Decimal operator/(const Decimal& a, const Decimal& b) noexcept {
    if (a.isNaN() || b.isNaN() || b.isZero()) {
        return Decimal::nan();
    }
    const UInt128 dividend = digits::magnitude(a.coefficient_);
    const UInt128 divisor = digits::magnitude(b.coefficient_);
    // Enough zeros for a quotient of at least 39 digits: one more than are kept, which rounds.
    const int steps = digits::precision + 1 + digits::count(divisor) - digits::count(dividend);
    const Wide quotient = scaledUp(dividend, steps) / Wide(divisor);
    const bool isNegative = (a.coefficient_ < 0) != (b.coefficient_ < 0);
    return narrowed(isNegative, quotient, a.exponent_ - b.exponent_ - steps);
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept {
    if (a.isNaN() || b.isNaN()) {
        return b.isNaN() <=> a.isNaN();
    }
    if (a.exponent_ == b.exponent_ || (a.coefficient_ < 0) != (b.coefficient_ < 0) || a.isZero() ||
        b.isZero()) {
        return a.coefficient_ <=> b.coefficient_;
    }
    const bool isNegative = a.coefficient_ < 0;
    UInt128 left = digits::magnitude(a.coefficient_);
    UInt128 right = digits::magnitude(b.coefficient_);
    const int leftTop = digits::count(left) + a.exponent_;
    const int rightTop = digits::count(right) + b.exponent_;
    if (leftTop != rightTop) {
        return isNegative ? rightTop <=> leftTop : leftTop <=> rightTop;
    }
    // Both begin at the same place, so the one of the higher exponent has room for the other's.
    if (a.exponent_ > b.exponent_) {
        left *= digits::powerOfTen(a.exponent_ - b.exponent_);
    } else {
        right *= digits::powerOfTen(b.exponent_ - a.exponent_);
    }
    return isNegative ? right <=> left : left <=> right;
}

Decimal Decimal::rounded(int scale, RoundingMode mode) const noexcept {
    if (isNaN() || exponent_ >= 0 - std::max(scale, -1000)) {
        return *this;
    }
    const int exponent = -std::max(scale, -1000);
    const int dropped = exponent - exponent_;
    const UInt128 value = digits::magnitude(coefficient_);
    Quotient quotient{0, value};
    // Where more goes than there are digits, any unit tells the same.
    const UInt128 unit = digits::powerOfTen(std::min(dropped, digits::precision));
    if (dropped < digits::precision) {
        quotient = {value / unit, value % unit};
    } else if (dropped > digits::precision) {
        quotient.rest = value != 0 ? 1 : 0;
    }
    const bool away = roundsAway(quotient, unit, isNegative(), mode);
    const auto whole = static_cast<Int128>(quotient.whole + (away ? 1 : 0));
    return make(isNegative() ? -whole : whole, exponent);
}

} // namespace oakfen
