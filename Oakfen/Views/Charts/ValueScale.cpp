#include "Oakfen/Views/Charts/ValueScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "OakfenCore/Support/Number/Decimal.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

namespace {

constexpr std::int64_t mostIntervals = 4;
constexpr std::int64_t fewestIntervals = 2;
/// Short labels have three digits.
constexpr int labelDigits = 3;
/// Between these every step is a `Decimal`; amounts never come near them.
constexpr double leastValue = 1e-100;
constexpr double mostValue = 1e100;

/// A distance between ticks: `coefficient` × 10^`exponent`, a round number.
struct Step {
    std::int64_t coefficient = 1;
    int exponent = 0;

    [[nodiscard]] Decimal times(std::int64_t count) const {
        return Decimal::make(Int128(coefficient) * count, exponent);
    }
    [[nodiscard]] double size() const { return times(1).doubleValue(); }
};

/// The last place that a label of so large a value shows.
int lastLabelPlace(double magnitude) {
    return static_cast<int>(std::floor(std::log10(magnitude))) - (labelDigits - 1);
}

/// A scale in steps: from the `first` to the `last` multiple.
struct Steps {
    Step step;
    std::int64_t first = 0;
    std::int64_t last = 0;

    [[nodiscard]] std::int64_t intervals() const { return last - first; }
};

Steps stepsOver(double low, double high, Step step) {
    // A value that is round itself must not fall beside its tick by the error of a division.
    constexpr double tolerance = 1e-9;
    return {.step = step,
            .first = static_cast<std::int64_t>(std::floor(low / step.size() + tolerance)),
            .last = static_cast<std::int64_t>(std::ceil(high / step.size() - tolerance))};
}

/// The finest steps that are few enough, and that the labels can tell.
Steps finestSteps(double low, double high) {
    const int lastPlace = lastLabelPlace(std::max(std::abs(low), std::abs(high)));
    for (int exponent = lastPlace;; ++exponent) {
        for (const Step& step :
             {Step{1, exponent}, Step{2, exponent}, Step{25, exponent - 1}, Step{5, exponent}}) {
            if (step.exponent < lastPlace) {
                continue;
            }
            const Steps steps = stepsOver(low, high, step);
            if (steps.intervals() <= mostIntervals) {
                return steps;
            }
        }
    }
}

/// Makes room around values that lie close together, at both sides in turn, but not beyond zero.
void widen(Steps& steps) {
    const bool isBelowZero = steps.last <= 0 && steps.first < 0;
    const bool isAboveZero = steps.first >= 0 && steps.last > 0;
    while (steps.intervals() < fewestIntervals) {
        const bool canGrowDown = !isAboveZero || steps.first > 0;
        const bool canGrowUp = !isBelowZero || steps.last < 0;
        if (canGrowUp && (!canGrowDown || steps.intervals() % 2 == 0)) {
            ++steps.last;
        } else {
            --steps.first;
        }
    }
}

} // namespace

double ValueScale::fraction(double value) const {
    return high > low ? std::clamp((value - low) / (high - low), 0.0, 1.0) : 0;
}

ValueScale valueScale(const std::vector<double>& values, std::string_view currencyCode,
                      bool showsZero) {
    bool isEmpty = true;
    double low = 0;
    double high = 0;
    for (const double value : values) {
        if (!std::isfinite(value)) {
            continue;
        }
        const double held =
            std::abs(value) < leastValue ? 0 : std::clamp(value, -mostValue, mostValue);
        low = isEmpty ? held : std::min(low, held);
        high = isEmpty ? held : std::max(high, held);
        isEmpty = false;
    }
    const bool isNearZero = (low > 0 && low <= high / 2) || (high < 0 && high >= low / 2);
    if (showsZero || isNearZero || low == high) {
        low = std::min(low, 0.0);
        high = std::max(high, 0.0);
    }
    if (low == high) {
        return {.ticks = {{.value = 0, .label = compactCurrencyText(Decimal(), currencyCode)}}};
    }
    Steps steps = finestSteps(low, high);
    widen(steps);
    ValueScale scale;
    for (std::int64_t count = steps.first; count <= steps.last; ++count) {
        const Decimal value = steps.step.times(count);
        scale.ticks.push_back(
            {.value = value.doubleValue(), .label = compactCurrencyText(value, currencyCode)});
    }
    scale.low = scale.ticks.front().value;
    scale.high = scale.ticks.back().value;
    return scale;
}

} // namespace oakfen
