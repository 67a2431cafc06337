#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace oakfen {

/// A round value along the side of a chart.
struct ValueTick {
    double value = 0;
    std::string label;

    friend bool operator==(const ValueTick&, const ValueTick&) = default;
};

/// From which value to which a chart reaches.
struct ValueScale {
    double low = 0;
    double high = 1;
    /// From the lowest up.
    std::vector<ValueTick> ticks = {};

    /// How far up the value stands: 0 at the foot, 1 at the head, never beyond.
    [[nodiscard]] double fraction(double value) const;

    friend bool operator==(const ValueScale&, const ValueScale&) = default;
};

/// The scale that holds all values and begins and ends at a round amount: 3 to 5 ticks, each told
/// exactly by its short label, so the scale never magnifies what labels can't tell apart. Zero is
/// in sight where asked for, where the values come near it, and where they are all the same.
///
/// Values that are not finite don't count. Without any value but zero there is one tick, zero.
[[nodiscard]] ValueScale valueScale(const std::vector<double>& values,
                                    std::string_view currencyCode, bool showsZero);

} // namespace oakfen
