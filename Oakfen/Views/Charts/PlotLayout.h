#pragma once

#include <optional>
#include <vector>

#include "Oakfen/Views/Charts/Chart.h"
#include "Oakfen/Views/Charts/ChartGeometry.h"
#include "Oakfen/Views/Charts/ChartTable.h"

namespace oakfen {

/// Where everything of a `PlotChart` stands.
struct PlotLayout {
    /// Names a series above the plot.
    struct LegendEntry {
        std::size_t series = 0;
        ChartRect swatch;
        PlacedText name;
    };
    struct Bar {
        ChartRect rect;
        /// It hangs down from zero.
        bool isNegative = false;
    };
    struct Mark {
        ChartSpot spot;
        PlacedText label;
    };

    ChartRect plot;
    /// The heights of the lines behind the values, and of zero if it is in sight.
    std::vector<double> gridLines;
    std::optional<double> zeroLine;
    std::vector<PlacedText> valueLabels;
    std::vector<PlacedText> placeLabels;
    /// The middle of each place, and the width of each: that between two points, or the band of
    /// bars.
    std::vector<double> centers;
    double placeWidth = 0;
    /// For each series of bars one for each place, nothing where there is no value.
    std::vector<std::vector<std::optional<Bar>>> bars;
    /// For each line one spot for each place, nothing where it has a gap.
    std::vector<std::vector<std::optional<ChartSpot>>> lines;
    /// For each line its mark.
    std::vector<std::optional<Mark>> marks;
    std::optional<double> ruleLine;
    PlacedText ruleLabel;
    std::vector<LegendEntry> legend;

    /// The height of a value.
    [[nodiscard]] double y(const ValueScale& scale, double value) const {
        return plot.bottom() - scale.fraction(value) * plot.height;
    }
    /// The value that belongs to a spot: the nearest place, and of its series the bar or the line
    /// that is nearest in height. Nothing outside of the plot.
    [[nodiscard]] std::optional<ChartPoint> pointAt(const ChartSpot& spot) const;
    /// The spot of a value: the outer end of its bar, or the point of its line.
    [[nodiscard]] std::optional<ChartSpot> spotOf(const ChartPoint& point) const;
    /// Where the tooltip of a value stands that has that size: beside its place and the bars there,
    /// or above the point where it is one line; rather where it covers no line, label or mark.
    /// Within `bounds` in any case.
    [[nodiscard]] ChartRect tooltipPlace(const ChartPoint& point, bool isSingleLine, double width,
                                         double height, const ChartRect& bounds) const;
};

/// The parts of a line between its gaps.
[[nodiscard]] std::vector<std::vector<ChartSpot>>
runsOf(const std::vector<std::optional<ChartSpot>>& line);

/// Lays a chart out in the room that it has.
[[nodiscard]] PlotLayout layOut(const PlotChart& chart, const ChartRoom& room);

} // namespace oakfen
