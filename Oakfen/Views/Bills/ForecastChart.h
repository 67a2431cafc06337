#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "Oakfen/Views/Bills/Forecast.h"
#include "Oakfen/Views/Charts/Chart.h"

namespace oakfen {

/// How a forecast is drawn.
struct ForecastChartOptions {
    std::string_view currencyCode;
    std::optional<Decimal> lowBalanceAlert = {};
    /// With a second line for the entries that are tried out.
    bool triesOut = false;
};

/// The days of a forecast, the first of which is today, with the lowest of each line marked and
/// what moves each day.
[[nodiscard]] PlotChart forecastChart(std::span<const ForecastDay> days, const Calendar& calendar,
                                      const ForecastChartOptions& options);

} // namespace oakfen
