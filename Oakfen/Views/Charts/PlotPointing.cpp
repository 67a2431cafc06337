#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "Oakfen/Views/Charts/PlotLayout.h"

namespace oakfen {

namespace {

/// How near to a line's point the pointer means that, and not the bar behind it.
constexpr double pointReach = 8;
/// Between a tooltip and its place.
constexpr double tooltipDistance = 12;

/// Finds the series with the least distance.
class Nearest {
public:
    void take(std::size_t series, double distance) {
        if (!series_ || distance < distance_) {
            series_ = series;
            distance_ = distance;
        }
    }
    [[nodiscard]] std::optional<std::size_t> series() const { return series_; }
    [[nodiscard]] double distance() const { return distance_; }

private:
    std::optional<std::size_t> series_;
    double distance_ = std::numeric_limits<double>::infinity();
};

/// What a tooltip there would hide, labels more than lines.
int hidden(const PlotLayout& layout, const ChartRect& rect) {
    int count = 0;
    for (const auto& line : layout.lines) {
        for (const auto& run : runsOf(line)) {
            count += crosses(run, rect) ? 2 : 0;
        }
    }
    for (const auto& mark : layout.marks) {
        count += mark && rect.overlaps(mark->label.rect) ? 3 : 0;
        count += mark && rect.contains(mark->spot) ? 3 : 0;
    }
    for (const auto* labels : {&layout.valueLabels, &layout.placeLabels}) {
        for (const PlacedText& label : *labels) {
            count += rect.overlaps(label.rect) ? 1 : 0;
        }
    }
    return count + (rect.overlaps(layout.ruleLabel.rect) ? 3 : 0);
}

ChartRect kept(ChartRect rect, const ChartRect& bounds) {
    rect.x = std::clamp(rect.x, bounds.x, std::max(bounds.x, bounds.right() - rect.width));
    rect.y = std::clamp(rect.y, bounds.y, std::max(bounds.y, bounds.bottom() - rect.height));
    return rect;
}

} // namespace

std::optional<ChartPoint> PlotLayout::pointAt(const ChartSpot& spot) const {
    // The dots at both ends of a line reach out of the plot.
    const ChartRect reach{plot.x - pointReach, plot.y - pointReach, plot.width + 2 * pointReach,
                          plot.height + 2 * pointReach};
    if (centers.empty() || !reach.contains(spot)) {
        return std::nullopt;
    }
    const auto nearestCenter =
        std::min_element(centers.begin(), centers.end(), [&spot](double a, double b) {
            return std::abs(a - spot.x) < std::abs(b - spot.x);
        });
    const auto place = static_cast<std::size_t>(nearestCenter - centers.begin());
    Nearest bar;
    for (std::size_t index = 0; index < bars.size(); ++index) {
        if (const auto& found = bars[index][place]) {
            bar.take(index, std::abs(found->rect.x + found->rect.width / 2 - spot.x));
        }
    }
    Nearest line;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        if (const auto& point = lines[index][place]) {
            line.take(bars.size() + index, std::abs(point->y - spot.y));
        }
    }
    const bool isNearLine =
        line.distance() <= pointReach && std::abs(*nearestCenter - spot.x) <= pointReach;
    const auto series = bar.series() && !isNearLine ? bar.series() : line.series();
    return series ? std::optional(ChartPoint{place, *series}) : std::nullopt;
}

std::optional<ChartSpot> PlotLayout::spotOf(const ChartPoint& point) const {
    if (point.place >= centers.size() || point.series >= bars.size() + lines.size()) {
        return std::nullopt;
    }
    if (point.series >= bars.size()) {
        return lines[point.series - bars.size()][point.place];
    }
    const std::optional<Bar>& bar = bars[point.series][point.place];
    if (!bar) {
        return std::nullopt;
    }
    const ChartRect& rect = bar->rect;
    return ChartSpot{rect.x + rect.width / 2, bar->isNegative ? rect.bottom() : rect.y};
}

ChartRect PlotLayout::tooltipPlace(const ChartPoint& point, bool isSingleLine, double width,
                                   double height, const ChartRect& bounds) const {
    const double center = centers[point.place];
    const ChartSpot spot = spotOf(point).value_or(ChartSpot{center, plot.bottom()});
    double reach = tooltipDistance;
    for (const auto& series : bars) {
        if (const auto& bar = series[point.place]) {
            const double edge = std::max(center - bar->rect.x, bar->rect.right() - center);
            reach = std::max(reach, edge + tooltipDistance);
        }
    }
    const double right = center + reach;
    const double left = center - reach - width;
    const double above = spot.y - tooltipDistance - height;
    const double below = spot.y + tooltipDistance;
    std::vector<ChartRect> candidates;
    if (isSingleLine) {
        candidates.push_back({spot.x - width / 2, above, width, height});
        candidates.push_back({spot.x - width / 2, below, width, height});
    }
    constexpr int steps = 4;
    for (const double x : {right, left}) {
        for (int step = 0; step <= steps; ++step) {
            const double slack = std::max(0.0, plot.height - height);
            candidates.push_back({x, plot.y + slack * step / steps, width, height});
        }
    }
    ChartRect best;
    int least = std::numeric_limits<int>::max();
    for (const ChartRect& candidate : candidates) {
        const ChartRect rect = kept(candidate, bounds);
        // What had to be moved may lie over its own place: rather the other side.
        const bool isBeside = rect.x >= right || rect.right() <= left + width;
        const bool isAway = isBeside || rect.bottom() <= spot.y || rect.y >= spot.y;
        const int count = hidden(*this, rect) + (isSingleLine ? isAway ? 0 : 8 : isBeside ? 0 : 8);
        if (count < least) {
            least = count;
            best = rect;
        }
    }
    return best;
}

} // namespace oakfen
