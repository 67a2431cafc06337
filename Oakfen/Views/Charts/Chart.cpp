#include "Oakfen/Views/Charts/Chart.h"

#include <cmath>
#include <utility>

#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

ChartColor seriesColor(std::size_t series) noexcept {
    constexpr std::size_t colors = static_cast<std::size_t>(ChartColor::red) + 1;
    return static_cast<ChartColor>(series % colors);
}

ChartValue chartValue(const Decimal& amount, std::string_view currencyCode) {
    ChartValue result{.text = currencyText(amount, currencyCode)};
    const double value = amount.doubleValue();
    if (std::isfinite(value)) {
        result.value = value;
    }
    return result;
}

ChartSeries chartSeries(std::string_view name, ChartColor color,
                        const std::vector<Decimal>& amounts, std::string_view currencyCode) {
    ChartSeries series{.name = std::string(name), .color = color};
    series.values.reserve(amounts.size());
    for (const Decimal& amount : amounts) {
        series.values.push_back(chartValue(amount, currencyCode));
    }
    return series;
}

std::optional<std::size_t> lowestPlace(const ChartSeries& series) {
    std::optional<std::size_t> lowest;
    for (std::size_t place = 0; place < series.values.size(); ++place) {
        const std::optional<double>& value = series.values[place].value;
        if (value && (!lowest || *value < *series.values[*lowest].value)) {
            lowest = place;
        }
    }
    return lowest;
}

const ChartSeries& PlotChart::series(std::size_t index) const {
    return index < bars.size() ? bars[index] : lines[index - bars.size()].series;
}

const ChartValue& PlotChart::value(std::size_t place, std::size_t index) const {
    static const ChartValue none;
    const std::vector<ChartValue>& values = series(index).values;
    return place < values.size() ? values[place] : none;
}

PlotChart scaled(PlotChart chart, std::string_view currencyCode) {
    std::vector<double> values;
    const auto take = [&values](const ChartValue& value) {
        if (value.value) {
            values.push_back(*value.value);
        }
    };
    for (std::size_t index = 0; index < chart.seriesCount(); ++index) {
        for (std::size_t place = 0; place < chart.places.size(); ++place) {
            take(chart.value(place, index));
        }
    }
    if (chart.rule) {
        take(chart.rule->value);
    }
    chart.scale = valueScale(values, currencyCode, !chart.bars.empty());
    return chart;
}

} // namespace oakfen
