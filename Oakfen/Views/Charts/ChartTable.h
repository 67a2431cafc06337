#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/Views/Charts/Chart.h"

namespace oakfen {

/// One value of a chart: a place, and a series there.
struct ChartPoint {
    std::size_t place = 0;
    std::size_t series = 0;

    friend bool operator==(const ChartPoint&, const ChartPoint&) = default;
};

/// The values of a chart of any kind as the table that screen readers walk through: a row for each
/// place, sector or horizontal bar, a column for each series.
struct ChartTable {
    std::string title;
    /// What there is to see, in one sentence.
    std::string summary = {};
    std::vector<std::string> rows = {};
    std::vector<std::string> columns = {};
    /// Row by row.
    std::vector<std::string> cells = {};
    /// What else is to say of a row; empty, or one text for each.
    std::vector<std::string> notes = {};
    bool leadsOn = false;

    [[nodiscard]] bool contains(const ChartPoint& point) const {
        return point.place < rows.size() && point.series < columns.size();
    }
    [[nodiscard]] const std::string& cell(const ChartPoint& point) const {
        return cells[point.place * columns.size() + point.series];
    }
    /// "November 2026, Spending: $1,234.50"; without the series where there is only one.
    [[nodiscard]] std::string spoken(const ChartPoint& point) const;

    friend bool operator==(const ChartTable&, const ChartTable&) = default;
};

[[nodiscard]] ChartTable chartTable(const PlotChart& chart);
[[nodiscard]] ChartTable chartTable(const RingChart& chart);
[[nodiscard]] ChartTable chartTable(const HorizontalBarChart& chart);

/// A step of the keyboard through the values.
enum class ChartMove {
    previousPlace,
    nextPlace,
    firstPlace,
    lastPlace,
    previousSeries,
    nextSeries
};

/// Where a step leads; it ends at the edges.
[[nodiscard]] ChartPoint moved(ChartPoint from, ChartMove move, const ChartTable& table);

/// What is shown beside a value that the pointer or the keyboard is at.
struct ChartTooltip {
    struct Row {
        std::string name;
        std::string figure;
        std::optional<ChartColor> swatch = {};

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::string title;
    std::vector<Row> rows;
    std::vector<ChartNote> notes = {};

    /// Title and figure stand in one line.
    [[nodiscard]] bool isSingleLine() const { return rows.size() == 1 && notes.empty(); }

    friend bool operator==(const ChartTooltip&, const ChartTooltip&) = default;
};

/// All values at a place, and what happens there.
[[nodiscard]] ChartTooltip chartTooltip(const PlotChart& chart, std::size_t place);

/// The tooltip with so many notes at most; the last one then counts those left out.
[[nodiscard]] ChartTooltip withMostNotes(ChartTooltip tooltip, std::size_t most);

} // namespace oakfen
