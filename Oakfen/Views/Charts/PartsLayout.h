#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Oakfen/Views/Charts/Chart.h"
#include "Oakfen/Views/Charts/ChartGeometry.h"

namespace oakfen {

/// Where the parts of a ring and its legend stand.
struct RingLayout {
    /// The inner radius, as a share of the outer one.
    static constexpr double hole = 0.62;

    /// A part of the ring, in turns clockwise from the top.
    struct Sector {
        double start = 0;
        double sweep = 0;
    };
    /// A line of the legend.
    struct Row {
        ChartRect whole;
        ChartRect dot;
        ChartRect name;
        ChartRect figure;
        ChartRect share;
    };

    ChartRect ring;
    std::vector<Sector> sectors;
    std::vector<Row> rows;
    /// What all of it needs, however high the room is.
    double neededHeight = 0;

    /// The sector, or the line of the legend, at the spot.
    [[nodiscard]] std::optional<std::size_t> sectorAt(const ChartSpot& spot) const;
};

/// The ring at the left, at most that wide, and its legend beside it, or below it where the room is
/// narrow. What is not positive has no part in the ring.
[[nodiscard]] RingLayout layOut(const RingChart& chart, const ChartRoom& room, double diameter);

/// Where horizontal bars stand.
struct HorizontalBarsLayout {
    struct Row {
        ChartRect whole;
        ChartRect name;
        ChartRect bar;
        ChartRect figure;
    };

    std::vector<Row> rows;
    /// Where bars begin.
    double zero = 0;

    [[nodiscard]] std::optional<std::size_t> barAt(const ChartSpot& spot) const;
};

/// Bars as long as their share of the longest, in rows of equal height; those below zero reach to
/// the left.
[[nodiscard]] HorizontalBarsLayout layOut(const HorizontalBarChart& chart, const ChartRoom& room);

} // namespace oakfen
