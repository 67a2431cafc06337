#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "Oakfen/Views/Charts/Chart.h"

/// Series that charts must bear, drawn as lines and as bars.
namespace oakfen::testing {

struct SampleSeries {
    std::string name;
    std::vector<Decimal> amounts;
};

[[nodiscard]] inline std::vector<Decimal> wavingAmounts(std::size_t count, std::int64_t middle,
                                                        double swing) {
    std::vector<Decimal> amounts;
    for (std::size_t index = 0; index < count; ++index) {
        const double wave = std::sin(static_cast<double>(index) * 0.9) * swing;
        amounts.push_back(Decimal::cents(middle + static_cast<std::int64_t>(wave)));
    }
    return amounts;
}

[[nodiscard]] inline std::vector<SampleSeries> sampleSeries() {
    return {{"empty", {}},
            {"single", {Decimal::cents(123450)}},
            {"nothing but zero", std::vector<Decimal>(5)},
            {"all negative", wavingAmounts(12, -24500000, 1500000)},
            {"mixed", wavingAmounts(12, 50000, 250000)},
            {"eight digits", wavingAmounts(12, 1234567890, 98765432)},
            {"sixty points", wavingAmounts(60, 800000, 350000)},
            {"not a number", {Decimal::cents(100), Decimal::nan(), Decimal::cents(300)}}};
}

[[nodiscard]] inline std::vector<ChartPlace> samplePlaces(std::size_t count) {
    static const std::vector<std::string> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::vector<ChartPlace> places;
    for (std::size_t index = 0; index < count; ++index) {
        const std::string& month = months[index % months.size()];
        places.push_back(
            {.label = month, .title = month + " " + std::to_string(2026 + index / months.size())});
    }
    return places;
}

/// One line with its area, its lowest point marked, and a rule.
[[nodiscard]] inline PlotChart lineChart(const std::vector<Decimal>& amounts) {
    PlotChart chart{.title = "Projected Balance", .places = samplePlaces(amounts.size())};
    ChartLine line{.series = chartSeries("Balance", ChartColor::blue, amounts, "CAD"),
                   .hasArea = true};
    if (const auto lowest = lowestPlace(line.series)) {
        line.mark =
            ChartMark{.place = *lowest, .label = "Lowest " + line.series.values[*lowest].text};
    }
    chart.lines.push_back(std::move(line));
    chart.rule = ChartRule{.name = "Low balance",
                           .label = "Low-balance alert",
                           .value = chartValue(Decimal::cents(50000), "CAD")};
    return scaled(std::move(chart), "CAD");
}

/// Two bars for each place, and a line over them.
[[nodiscard]] inline PlotChart barChart(const std::vector<Decimal>& amounts) {
    PlotChart chart{.title = "Income & Expense", .places = samplePlaces(amounts.size())};
    std::vector<Decimal> halves;
    for (const Decimal& amount : amounts) {
        halves.push_back(amount * Decimal::cents(50));
    }
    chart.bars = {chartSeries("Income", ChartColor::blue, amounts, "CAD"),
                  chartSeries("Expenses", ChartColor::teal, halves, "CAD")};
    chart.lines = {
        {.series = chartSeries("Net", ChartColor::orange, halves, "CAD"), .hasPoints = true}};
    chart.hasLegend = true;
    return scaled(std::move(chart), "CAD");
}

[[nodiscard]] inline RingChart ringChart(const std::vector<Decimal>& amounts) {
    RingChart chart{
        .title = "Spending by Category", .figure = "$4,857.54", .caption = "this month"};
    for (std::size_t index = 0; index < amounts.size(); ++index) {
        chart.sectors.push_back({.name = "Category " + std::to_string(index + 1),
                                 .value = chartValue(amounts[index], "CAD"),
                                 .color = seriesColor(index)});
    }
    return chart;
}

[[nodiscard]] inline HorizontalBarChart horizontalBarChart(const std::vector<Decimal>& amounts) {
    HorizontalBarChart chart{.title = "Spending by Payee", .valueName = "Total", .bars = {}};
    for (std::size_t index = 0; index < amounts.size(); ++index) {
        chart.bars.push_back({.name = "Payee " + std::to_string(index + 1),
                              .value = chartValue(amounts[index], "CAD")});
    }
    return chart;
}

} // namespace oakfen::testing
