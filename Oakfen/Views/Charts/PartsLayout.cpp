#include "Oakfen/Views/Charts/PartsLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace oakfen {

namespace {

/// Between the ring and its legend, and between two columns.
constexpr double ringDistance = 24;
constexpr double columnDistance = 16;
constexpr double legendRowHeight = 25;
constexpr double dotSize = 10;
constexpr double dotDistance = 8;
/// What a legend needs for a name.
constexpr double leastName = 64;
/// The most of the width that names before bars take.
constexpr double mostNames = 0.35;
/// What bars keep in a narrow chart.
constexpr double leastBars = 8;
constexpr double barDistance = 8;
/// On both sides of a row, whose ground can be set off.
constexpr double rowPadding = 6;
constexpr double highestBarRow = 28;
constexpr double highestBar = 16;

/// The room that the widest of the texts takes.
template <typename Parts, typename Text>
double widest(const Parts& parts, const ChartRoom& room, Text&& text) {
    double width = 0;
    for (const auto& part : parts) {
        width = std::max(width, room.textWidth(text(part)));
    }
    return std::ceil(width);
}

double shown(const ChartValue& value) {
    return std::max(0.0, value.value.value_or(0));
}

void layOutSectors(const RingChart& chart, RingLayout& layout) {
    double largest = 0;
    for (const RingSector& sector : chart.sectors) {
        largest = std::max(largest, shown(sector.value));
    }
    // Shares of the largest, since the sum of huge values has no number.
    double sum = 0;
    for (const RingSector& sector : chart.sectors) {
        sum += largest > 0 ? shown(sector.value) / largest : 0;
    }
    double start = 0;
    for (const RingSector& sector : chart.sectors) {
        const double sweep = sum > 0 ? shown(sector.value) / largest / sum : 0;
        layout.sectors.push_back({start, sweep});
        start += sweep;
    }
}

template <typename Rows>
std::optional<std::size_t> rowAt(const Rows& rows, const ChartSpot& spot) {
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (rows[index].whole.contains(spot)) {
            return index;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::size_t> RingLayout::sectorAt(const ChartSpot& spot) const {
    const double radius = ring.width / 2;
    const double x = spot.x - ring.x - radius;
    const double y = spot.y - ring.y - radius;
    const double distance = std::hypot(x, y);
    if (distance > radius || distance < radius * hole) {
        return rowAt(rows, spot);
    }
    double turn = std::atan2(x, -y) / (2 * std::numbers::pi);
    turn += turn < 0 ? 1 : 0;
    for (std::size_t index = 0; index < sectors.size(); ++index) {
        if (turn >= sectors[index].start && turn < sectors[index].start + sectors[index].sweep) {
            return index;
        }
    }
    return std::nullopt;
}

RingLayout layOut(const RingChart& chart, const ChartRoom& room, double diameter) {
    RingLayout layout;
    layOutSectors(chart, layout);
    const double figures =
        widest(chart.sectors, room, [](const RingSector& sector) { return sector.value.text; });
    const double shares =
        widest(chart.sectors, room, [](const RingSector& sector) { return sector.share; });
    const double shareColumn = shares > 0 ? columnDistance + shares : 0;
    const double leastLegend =
        dotSize + dotDistance + leastName + columnDistance + figures + shareColumn;
    const double size = std::max(0.0, std::min(diameter, room.width));
    const bool isBeside = room.width >= size + ringDistance + leastLegend;
    const auto count = static_cast<double>(chart.sectors.size());

    const double legendRoom = isBeside ? room.height : room.height - size - ringDistance;
    const double rowHeight =
        std::clamp(count > 0 ? std::floor(legendRoom / count) : 0, room.textHeight,
                   std::max(legendRowHeight, room.textHeight));
    const double legendHeight = rowHeight * count;
    layout.neededHeight = isBeside ? std::max(size, room.textHeight * count)
                                   : size + ringDistance + legendRowHeight * count;
    layout.ring = {isBeside ? 0 : std::floor((room.width - size) / 2),
                   isBeside ? std::max(0.0, std::floor((room.height - size) / 2)) : 0, size, size};
    const double left = isBeside ? size + ringDistance : 0;
    const double top = isBeside ? std::max(0.0, std::floor((room.height - legendHeight) / 2))
                                : size + ringDistance;
    for (std::size_t index = 0; index < chart.sectors.size(); ++index) {
        const ChartRect whole{left, top + rowHeight * static_cast<double>(index),
                              std::max(0.0, room.width - left), rowHeight};
        const double nameLeft = left + dotSize + dotDistance;
        const double figureRight = whole.right() - shareColumn;
        const double figureLeft = std::max(nameLeft, figureRight - figures);
        layout.rows.push_back(
            {.whole = whole,
             .dot = {left, whole.y + (rowHeight - dotSize) / 2, dotSize, dotSize},
             .name = {nameLeft, whole.y, std::max(0.0, figureLeft - columnDistance - nameLeft),
                      rowHeight},
             .figure = {figureLeft, whole.y, std::max(0.0, figureRight - figureLeft), rowHeight},
             .share = {whole.right() - shares, whole.y, shares, rowHeight}});
    }
    return layout;
}

std::optional<std::size_t> HorizontalBarsLayout::barAt(const ChartSpot& spot) const {
    return rowAt(rows, spot);
}

HorizontalBarsLayout layOut(const HorizontalBarChart& chart, const ChartRoom& room) {
    using Bar = HorizontalBarChart::Bar;
    HorizontalBarsLayout layout;
    if (chart.bars.empty()) {
        return layout;
    }
    const double figures = widest(chart.bars, room, [](const Bar& bar) { return bar.value.text; });
    // Names end in dots rather than that the bars lose all their room.
    const double spare = room.width - 2 * rowPadding - 2 * barDistance - figures - leastBars;
    const double names =
        std::clamp(spare, 0.0,
                   std::min(widest(chart.bars, room, [](const Bar& bar) { return bar.name; }),
                            std::floor(room.width * mostNames)));
    double low = 0;
    double high = 0;
    for (const Bar& bar : chart.bars) {
        low = std::min(low, bar.value.value.value_or(0));
        high = std::max(high, bar.value.value.value_or(0));
    }
    const double left = rowPadding + names + barDistance;
    const double end = room.width - rowPadding;
    const double length = std::max(0.0, end - left - barDistance - figures);
    const double span = high / 2 - low / 2;
    const auto along = [&](double value) {
        return span > 0 ? (value / 2 - low / 2) / span * length : 0;
    };
    layout.zero = left + along(0);
    const double rowHeight = std::min(std::max(highestBarRow, room.textHeight),
                                      room.height / static_cast<double>(chart.bars.size()));
    const double height = std::min(highestBar, std::floor(rowHeight * 0.6));
    for (std::size_t index = 0; index < chart.bars.size(); ++index) {
        const double value = chart.bars[index].value.value.value_or(0);
        const double top = rowHeight * static_cast<double>(index);
        const double start = left + along(std::min(0.0, value));
        const double stop = left + along(std::max(0.0, value));
        // However small it is, there is something to see.
        const double width = value == 0 ? 0 : std::max(1.0, stop - start);
        const double figure = room.textWidth(chart.bars[index].value.text);
        layout.rows.push_back(
            {.whole = {0, top, room.width, rowHeight},
             .name = {rowPadding, top, names, rowHeight},
             .bar = {start, top + (rowHeight - height) / 2, width, height},
             .figure = {std::min(std::max(start + width, layout.zero) + barDistance, end - figure),
                        top, figure, rowHeight}});
    }
    return layout;
}

} // namespace oakfen
