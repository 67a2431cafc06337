#include "OakfenCore/Models/Money.h"

#include <cstddef>

namespace oakfen {

namespace {

struct Names {
    std::string_view rawValue;
    std::string_view title;
};

// In the order of the enumeration's cases.
constexpr std::array<Names, allCases<DateRangePreset>.size()> presets{{
    {"thisMonth", "This Month"},
    {"lastMonth", "Last Month"},
    {"last3Months", "Last 3 Months"},
    {"yearToDate", "Year to Date"},
    {"last12Months", "Last 12 Months"},
    {"lastYear", "Last Year"},
    {"allTime", "All Dates"},
}};

/// The start of the month that lies so many months before that of `now`. It is taken twice because
/// a clock change may move one month's first instant off midnight.
Date startOfMonthBefore(Date now, int months, const Calendar& calendar) {
    return calendar.startOfMonth(calendar.addingMonths(calendar.startOfMonth(now), -months));
}

} // namespace

std::string_view rawValue(DateRangePreset value) noexcept {
    return presets[static_cast<std::size_t>(value)].rawValue;
}

std::string_view title(DateRangePreset value) noexcept {
    return presets[static_cast<std::size_t>(value)].title;
}

DateInterval interval(DateRangePreset preset, Date now, const Calendar& calendar) {
    switch (preset) {
    case DateRangePreset::thisMonth:
        return {calendar.startOfMonth(now), calendar.endOfMonth(now)};
    case DateRangePreset::lastMonth: {
        const Date start = startOfMonthBefore(now, 1, calendar);
        return {start, calendar.endOfMonth(start)};
    }
    case DateRangePreset::last3Months:
        return {startOfMonthBefore(now, 2, calendar), calendar.endOfDay(now)};
    case DateRangePreset::yearToDate:
        return {calendar.startOfYear(now), calendar.endOfDay(now)};
    case DateRangePreset::last12Months:
        return {startOfMonthBefore(now, 11, calendar), calendar.endOfDay(now)};
    case DateRangePreset::lastYear: {
        const Date thisYear = calendar.startOfYear(now);
        return {calendar.startOfYear(calendar.addingYears(thisYear, -1)), thisYear.adding(-1)};
    }
    case DateRangePreset::allTime:
        break;
    }
    return {Date::distantPast(), Date::distantFuture()};
}

std::optional<Date> next(Frequency frequency, Date after, const Calendar& calendar) {
    constexpr int daysPerWeek = 7;
    constexpr int monthsPerQuarter = 3;
    switch (frequency) {
    case Frequency::once:
        break;
    case Frequency::weekly:
        return calendar.addingDays(after, daysPerWeek);
    case Frequency::biweekly:
        return calendar.addingDays(after, 2 * daysPerWeek);
    case Frequency::monthly:
        return calendar.addingMonths(after, 1);
    case Frequency::quarterly:
        return calendar.addingMonths(after, monthsPerQuarter);
    case Frequency::yearly:
        return calendar.addingYears(after, 1);
    }
    return std::nullopt;
}

} // namespace oakfen
