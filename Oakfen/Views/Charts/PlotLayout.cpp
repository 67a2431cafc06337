#include "Oakfen/Views/Charts/PlotLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace oakfen {

namespace {

/// Between the labels of the values and the plot.
constexpr double labelDistance = 8;
/// Between the plot and the labels of the places.
constexpr double footDistance = 4;
/// What a dot at the end of a line needs beside the plot.
constexpr double dotRoom = 6;
constexpr double legendDistance = 12;
constexpr double legendGap = 16;
constexpr double swatchSize = 10;
constexpr double swatchDistance = 6;
constexpr double widestBar = 32;
constexpr double barGap = 2;
/// How much of a place its bars fill.
constexpr double barShare = 0.62;
/// Beside a mark's dot.
constexpr double markDistance = 8;

ChartRect cleared(const ChartRect& rect, double by) {
    return {rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by};
}

class Layouter {
public:
    Layouter(const PlotChart& chart, const ChartRoom& room) : chart_(chart), room_(room) {}

    PlotLayout layout() {
        if (hasValues()) {
            layOutLegend();
        }
        layOutPlot();
        if (!hasValues()) {
            // No frame without a picture.
            return std::move(result_);
        }
        layOutScale();
        layOutPlaces();
        layOutBars();
        layOutLines();
        layOutRule();
        layOutMarks();
        return std::move(result_);
    }

private:
    [[nodiscard]] bool hasValues() const {
        for (std::size_t index = 0; index < chart_.seriesCount(); ++index) {
            for (std::size_t place = 0; place < chart_.places.size(); ++place) {
                if (chart_.value(place, index).value) {
                    return true;
                }
            }
        }
        return false;
    }

    void layOutPlot() {
        double labels = 0;
        for (const ValueTick& tick : chart_.scale.ticks) {
            labels = std::max(labels, room_.textWidth(tick.label));
        }
        // Where labels leave too little, the values themselves are worth more.
        labels_ = labels <= room_.width * 0.4 ? labels : 0;
        const double side = chart_.lines.empty() ? 0 : dotRoom;
        const double left = std::ceil(labels_ > 0 ? labels_ + labelDistance : side);
        const auto& legend = result_.legend;
        const double head = legend.empty() ? 0 : legend.back().name.rect.bottom() + legendDistance;
        const double top = std::ceil(head + std::max(room_.textHeight / 2, side));
        const double bottom = std::floor(room_.height - room_.textHeight - footDistance);
        result_.plot = {left, top, std::max(0.0, std::floor(room_.width - left - side)),
                        std::max(0.0, bottom - top)};
    }

    /// How many ticks stand for one label, so that labels don't touch.
    [[nodiscard]] std::size_t tickStride() const {
        const std::size_t count = chart_.scale.ticks.size();
        std::size_t stride = 1;
        while (stride < count && result_.plot.height * static_cast<double>(stride) <
                                     room_.textHeight * static_cast<double>(count - 1)) {
            ++stride;
        }
        return stride;
    }

    void layOutScale() {
        const auto& ticks = chart_.scale.ticks;
        const std::size_t stride = tickStride();
        // Counted from zero, or from the foot, so that zero keeps its label.
        const auto zero = std::find_if(ticks.begin(), ticks.end(),
                                       [](const ValueTick& tick) { return tick.value == 0; });
        const auto first = zero == ticks.end() ? 0 : static_cast<std::size_t>(zero - ticks.begin());
        for (std::size_t index = first % stride; index < ticks.size(); index += stride) {
            const double height = y(ticks[index].value);
            result_.gridLines.push_back(height);
            if (index == first && zero != ticks.end()) {
                result_.zeroLine = height;
            }
            if (labels_ > 0) {
                const double width = room_.textWidth(ticks[index].label);
                result_.valueLabels.push_back(
                    {ticks[index].label,
                     {result_.plot.x - labelDistance - width, height - room_.textHeight / 2, width,
                      room_.textHeight}});
            }
        }
    }

    void layOutPlaces() {
        const ChartRect& plot = result_.plot;
        const std::size_t count = chart_.places.size();
        const bool areBands = !chart_.bars.empty() || count < 2;
        const std::size_t parts = areBands ? count : count - 1;
        result_.placeWidth = parts > 0 ? plot.width / static_cast<double>(parts) : 0;
        std::vector<std::string> labels;
        for (std::size_t place = 0; place < count; ++place) {
            const double steps = static_cast<double>(place) + (areBands ? 0.5 : 0.0);
            result_.centers.push_back(plot.x + steps * result_.placeWidth);
            labels.push_back(chart_.places[place].label);
        }
        const ChartRect line{plot.x, plot.bottom() + footDistance, plot.width, room_.textHeight};
        result_.placeLabels = placeLabels(labels, result_.centers, room_, line);
    }

    void layOutBars() {
        const auto count = static_cast<double>(chart_.bars.size());
        const double band = result_.placeWidth * barShare;
        const double gap = std::min(barGap, band * 0.1);
        double width = std::min(widestBar, (band - gap * (count - 1)) / count);
        // Whole pixels where there are some, so that all bars look alike.
        width = width >= 4 ? std::floor(width) : width;
        const double zero = y(0);
        for (std::size_t index = 0; index < chart_.bars.size(); ++index) {
            auto& bars = result_.bars.emplace_back();
            for (std::size_t place = 0; place < chart_.places.size(); ++place) {
                const std::optional<double>& value = chart_.value(place, index).value;
                if (!value) {
                    bars.emplace_back();
                    continue;
                }
                double left = result_.centers[place] - (width * count + gap * (count - 1)) / 2;
                left = width >= 4 ? std::round(left) : left;
                // However small it is, there is something to see.
                const double end = y(*value);
                const double height = *value == 0 ? 0 : std::max(1.0, std::abs(end - zero));
                bars.push_back(
                    PlotLayout::Bar{.rect = {left + static_cast<double>(index) * (width + gap),
                                             *value < 0 ? zero : zero - height, width, height},
                                    .isNegative = *value < 0});
            }
        }
    }

    void layOutLines() {
        for (const ChartLine& line : chart_.lines) {
            auto& spots = result_.lines.emplace_back(chart_.places.size());
            for (std::size_t place = 0; place < chart_.places.size(); ++place) {
                if (place < line.series.values.size() && line.series.values[place].value) {
                    spots[place] = {result_.centers[place], y(*line.series.values[place].value)};
                }
            }
        }
    }

    void layOutRule() {
        if (!chart_.rule || !chart_.rule->value.value) {
            return;
        }
        const ChartRect& plot = result_.plot;
        const double height = y(*chart_.rule->value.value);
        result_.ruleLine = height;
        const double width = room_.textWidth(chart_.rule->label);
        if (width <= plot.width) {
            const double above = height - room_.textHeight - 2;
            result_.ruleLabel = {
                chart_.rule->label,
                {plot.right() - width, above >= 0 ? above : height + 2, width, room_.textHeight}};
        }
    }

    /// How much of what is drawn the rectangle would cover.
    [[nodiscard]] int covered(const ChartRect& rect) const {
        int count = 0;
        for (const auto& line : result_.lines) {
            for (const auto& run : runsOf(line)) {
                count += crosses(run, rect) ? 1 : 0;
            }
        }
        for (const auto& mark : result_.marks) {
            count += mark && rect.overlaps(mark->label.rect) ? 4 : 0;
        }
        if (result_.ruleLine) {
            count += rect.y <= *result_.ruleLine && rect.bottom() >= *result_.ruleLine ? 1 : 0;
            count += rect.overlaps(result_.ruleLabel.rect) ? 4 : 0;
        }
        return count;
    }

    void layOutMarks() {
        for (std::size_t index = 0; index < chart_.lines.size(); ++index) {
            auto& placed = result_.marks.emplace_back();
            const std::optional<ChartMark>& mark = chart_.lines[index].mark;
            const auto& spots = result_.lines[index];
            if (mark && mark->place < spots.size() && spots[mark->place]) {
                placed = PlotLayout::Mark{.spot = *spots[mark->place], .label = {}};
                if (!mark->label.empty()) {
                    placed->label = markLabel(placed->spot, mark->label);
                }
            }
        }
    }

    /// The words beside a mark, on the side where they cover least; none where they have no room.
    [[nodiscard]] PlacedText markLabel(const ChartSpot& spot, const std::string& text) const {
        const ChartRect& plot = result_.plot;
        const double width = room_.textWidth(text);
        const double height = room_.textHeight;
        const double above = spot.y - markDistance - height;
        const double middle =
            std::clamp(spot.x - width / 2, plot.x, std::max(plot.x, plot.right() - width));
        std::optional<ChartRect> best;
        int least = 0;
        for (const double top : {spot.y + markDistance, above, above - height}) {
            for (const double left :
                 {spot.x + markDistance, spot.x - markDistance - width, middle}) {
                const ChartRect rect{left, top, width, height};
                const int count = covered(cleared(rect, 2));
                if (plot.holds(rect) && (!best || count < least)) {
                    best = rect;
                    least = count;
                }
            }
        }
        return best ? PlacedText{text, *best} : PlacedText{};
    }

    /// The names of the series in a line at the right, or in several from the left where one has no
    /// room for all.
    void layOutLegend() {
        if (!chart_.hasLegend) {
            return;
        }
        const auto widthOf = [this](std::size_t index) {
            return swatchSize + swatchDistance + room_.textWidth(chart_.series(index).name);
        };
        double all = -legendGap;
        for (std::size_t index = 0; index < chart_.seriesCount(); ++index) {
            all += legendGap + widthOf(index);
        }
        double left = std::max(0.0, room_.width - all);
        double top = 0;
        for (std::size_t index = 0; index < chart_.seriesCount(); ++index) {
            if (left > 0 && left + widthOf(index) > room_.width) {
                left = 0;
                top += room_.textHeight;
            }
            const double start = left + swatchSize + swatchDistance;
            const double width = std::min(room_.textWidth(chart_.series(index).name),
                                          std::max(0.0, room_.width - start));
            result_.legend.push_back(
                {.series = index,
                 .swatch = {left, top + (room_.textHeight - swatchSize) / 2, swatchSize,
                            swatchSize},
                 .name = {chart_.series(index).name, {start, top, width, room_.textHeight}}});
            left = start + width + legendGap;
        }
    }

    [[nodiscard]] double y(double value) const { return result_.y(chart_.scale, value); }

    const PlotChart& chart_;
    const ChartRoom& room_;
    PlotLayout result_;
    double labels_ = 0;
};

} // namespace

std::vector<std::vector<ChartSpot>> runsOf(const std::vector<std::optional<ChartSpot>>& line) {
    std::vector<std::vector<ChartSpot>> runs;
    bool isOpen = false;
    for (const std::optional<ChartSpot>& spot : line) {
        if (spot) {
            if (!isOpen) {
                runs.emplace_back();
            }
            runs.back().push_back(*spot);
        }
        isOpen = spot.has_value();
    }
    return runs;
}

PlotLayout layOut(const PlotChart& chart, const ChartRoom& room) {
    return Layouter(chart, room).layout();
}

} // namespace oakfen
