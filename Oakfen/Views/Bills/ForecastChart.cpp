#include "Oakfen/Views/Bills/ForecastChart.h"

#include <string>
#include <utility>
#include <vector>

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/MonthText.h"

namespace oakfen {

namespace {

constexpr ChartColor plannedColor = ChartColor::blue;
constexpr ChartColor triedColor = ChartColor::orange;

ChartNote note(const ForecastMove& move, std::string_view currencyCode) {
    ChartNote result{.title = singleLine(move.name),
                     .amount = moneyText(move.amount, currencyCode,
                                         {.colorsNegative = false, .showsPositiveSign = true})};
    if (move.isWhatIf) {
        result.dot = triedColor;
    }
    return result;
}

ChartPlace place(const ForecastDay& day, bool isToday, const Calendar& calendar,
                 std::string_view currencyCode) {
    ChartPlace result{.label = isToday ? std::string("Today")
                                       : abbreviatedMonthDayText(day.date, calendar),
                      .title = weekdayMonthDayText(day.date, calendar)};
    for (const ForecastMove& move : day.moves) {
        result.notes.push_back(note(move, currencyCode));
    }
    return result;
}

ChartSeries seriesOf(std::span<const ForecastDay> days, std::string_view name, ChartColor color,
                     Decimal ForecastDay::*balance, std::string_view currencyCode) {
    std::vector<Decimal> amounts;
    amounts.reserve(days.size());
    for (const ForecastDay& day : days) {
        amounts.push_back(day.*balance);
    }
    return chartSeries(name, color, amounts, currencyCode);
}

/// The lowest point of a line; its words only where they are wanted.
std::optional<ChartMark> lowestMark(std::span<const ForecastDay> days,
                                    Decimal ForecastDay::*balance, const Calendar& calendar,
                                    std::string_view currencyCode, bool hasLabel) {
    const ForecastDay* lowest = lowestDay(days, balance);
    if (lowest == nullptr) {
        return std::nullopt;
    }
    const auto place = static_cast<std::size_t>(lowest - days.data());
    const std::string day =
        place == 0 ? std::string("Today") : abbreviatedMonthDayText(lowest->date, calendar);
    return ChartMark{.place = place,
                     .label = hasLabel ? "Lowest " + currencyText(lowest->*balance, currencyCode) +
                                             " · " + day
                                       : std::string()};
}

} // namespace

PlotChart forecastChart(std::span<const ForecastDay> days, const Calendar& calendar,
                        const ForecastChartOptions& options) {
    const std::string_view currency = options.currencyCode;
    PlotChart chart{.title = "Projected Balance"};
    for (const ForecastDay& day : days) {
        chart.places.push_back(place(day, &day == days.data(), calendar, currency));
    }
    // Two labels would lie over each other; the one for what is tried says what one asks.
    chart.lines.push_back(
        {.series = seriesOf(days, "Balance", plannedColor, &ForecastDay::balance, currency),
         .hasArea = true,
         .mark = lowestMark(days, &ForecastDay::balance, calendar, currency, !options.triesOut)});
    if (options.triesOut) {
        chart.lines.push_back(
            {.series = seriesOf(days, "What if", triedColor, &ForecastDay::whatIf, currency),
             .isDashed = true,
             .mark = lowestMark(days, &ForecastDay::whatIf, calendar, currency, true)});
    }
    if (options.lowBalanceAlert) {
        chart.rule = ChartRule{.name = "Low balance",
                               .label = "Low-balance alert",
                               .value = chartValue(*options.lowBalanceAlert, currency)};
    }
    return scaled(std::move(chart), currency);
}

} // namespace oakfen
