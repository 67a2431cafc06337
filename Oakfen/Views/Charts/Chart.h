#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Charts/ValueScale.h"
#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/Support/Number/Decimal.h"

/// What charts show, as plain values: screens fill them in, one widget for each kind draws them.
namespace oakfen {

/// The colours of series, in the order of the palette.
enum class ChartColor : std::size_t {
    blue,
    teal,
    orange,
    pink,
    purple,
    green,
    indigo,
    yellow,
    mint,
    brown,
    cyan,
    red
};

/// The colour of the nth series of a chart; the palette starts again after the last.
[[nodiscard]] ChartColor seriesColor(std::size_t series) noexcept;

/// One value of a chart.
struct ChartValue {
    /// Where it is drawn; nothing leaves a gap.
    std::optional<double> value = {};
    /// The exact figure.
    std::string text = {};

    friend bool operator==(const ChartValue&, const ChartValue&) = default;
};

/// The amount as a chart shows it: drawn by the nearest binary number, told exactly.
[[nodiscard]] ChartValue chartValue(const Decimal& amount, std::string_view currencyCode);

/// One value per place, in one colour.
struct ChartSeries {
    std::string name;
    ChartColor color = ChartColor::blue;
    std::vector<ChartValue> values = {};

    friend bool operator==(const ChartSeries&, const ChartSeries&) = default;
};

/// The amounts as a series.
[[nodiscard]] ChartSeries chartSeries(std::string_view name, ChartColor color,
                                      const std::vector<Decimal>& amounts,
                                      std::string_view currencyCode);

/// The first of the lowest values' places; none where there is no value.
[[nodiscard]] std::optional<std::size_t> lowestPlace(const ChartSeries& series);

/// Something that happens at a place: what moves a balance that day.
struct ChartNote {
    std::string title;
    MoneyText amount;
    /// Set off by a dot in this colour.
    std::optional<ChartColor> dot = {};

    friend bool operator==(const ChartNote&, const ChartNote&) = default;
};

/// A day or a month: what stands side by side along a chart's foot.
struct ChartPlace {
    /// Below the chart, where there is room: "Nov".
    std::string label;
    /// In full: "November 2026".
    std::string title;
    std::vector<ChartNote> notes = {};
    /// Its bars are paler: a month that is over beside the present one.
    bool isPale = false;

    friend bool operator==(const ChartPlace&, const ChartPlace&) = default;
};

/// A point of a line that is set off, with the words beside it.
struct ChartMark {
    std::size_t place = 0;
    std::string label;

    friend bool operator==(const ChartMark&, const ChartMark&) = default;
};

/// A series drawn as a line.
struct ChartLine {
    ChartSeries series;
    bool isDashed = false;
    /// Filled down to the foot of the plot, or to zero over bars.
    bool hasArea = false;
    /// Each value has its dot.
    bool hasPoints = false;
    std::optional<ChartMark> mark = {};

    friend bool operator==(const ChartLine&, const ChartLine&) = default;
};

/// A value that others are held against, drawn across the whole chart.
struct ChartRule {
    /// What it is, for screen readers: "Low balance".
    std::string name;
    /// Written above its right end: "Low-balance alert".
    std::string label;
    ChartValue value;

    friend bool operator==(const ChartRule&, const ChartRule&) = default;
};

/// Bars side by side for each place, lines through the places, or lines over bars.
///
/// The series of a chart are counted bars first, then lines.
struct PlotChart {
    /// What it shows: "Net Worth".
    std::string title;
    std::vector<ChartPlace> places;
    std::vector<ChartSeries> bars = {};
    std::vector<ChartLine> lines = {};
    std::optional<ChartRule> rule = {};
    /// Of the amounts along the left; `scaled` fills it in.
    ValueScale scale = {};
    /// Names the series above the plot.
    bool hasLegend = false;
    /// A value can be activated: the screen then shows what makes it up.
    bool leadsOn = false;

    [[nodiscard]] std::size_t seriesCount() const { return bars.size() + lines.size(); }
    [[nodiscard]] const ChartSeries& series(std::size_t index) const;
    /// The value of a series at a place; an empty one where it has none.
    [[nodiscard]] const ChartValue& value(std::size_t place, std::size_t series) const;

    friend bool operator==(const PlotChart&, const PlotChart&) = default;
};

/// The chart with the scale that its values and its rule call for; zero is in sight where bars are
/// drawn.
[[nodiscard]] PlotChart scaled(PlotChart chart, std::string_view currencyCode);

/// A part of a whole.
struct RingSector {
    std::string name;
    ChartValue value;
    ChartColor color = ChartColor::blue;
    /// "12%", where the legend tells shares.
    std::string share = {};

    friend bool operator==(const RingSector&, const RingSector&) = default;
};

/// Parts of a whole around what they add up to, with a legend.
struct RingChart {
    std::string title;
    std::vector<RingSector> sectors;
    /// In the middle: the sum, and what it is.
    std::string figure = {};
    std::string caption = {};
    bool leadsOn = false;

    friend bool operator==(const RingChart&, const RingChart&) = default;
};

/// Bars below each other, each with its name before it and its figure behind it.
struct HorizontalBarChart {
    struct Bar {
        std::string name;
        ChartValue value;

        friend bool operator==(const Bar&, const Bar&) = default;
    };

    std::string title;
    /// What the values are: "Total".
    std::string valueName;
    std::vector<Bar> bars;
    ChartColor color = ChartColor::blue;
    bool leadsOn = false;

    friend bool operator==(const HorizontalBarChart&, const HorizontalBarChart&) = default;
};

} // namespace oakfen
