#pragma once

#include <cstdint>

/// Days and months of the Gregorian calendar, counted. The years of an instant reach far beyond
/// those of <chrono>, so they are 64-bit integers here.
namespace oakfen {

constexpr std::int64_t secondsPerDay = 86400;

/// Rounded towards minus infinity.
constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    const std::int64_t quotient = value / divisor;
    return quotient * divisor > value ? quotient - 1 : quotient;
}

/// A day of the calendar.
struct CivilDay {
    std::int64_t year = 1970;
    int month = 1;
    int day = 1;
};

/// Days from 1970-01-01 to the first of the month, in eras of 400 years that begin in March.
constexpr std::int64_t daysToMonth(std::int64_t year, int month) {
    year -= month <= 2 ? 1 : 0;
    const std::int64_t era = floorDivide(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t monthFromMarch = (month + 9) % 12;
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

/// The day that many days after 1970-01-01.
constexpr CivilDay civilDay(std::int64_t days) {
    days += 719468;
    const std::int64_t era = floorDivide(days, 146097);
    const std::int64_t dayOfEra = days - era * 146097;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    CivilDay result;
    result.day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
    result.month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    result.year = yearOfEra + era * 400 + (result.month <= 2 ? 1 : 0);
    return result;
}

/// The month `months` after the given one.
constexpr CivilDay monthsLater(const CivilDay& from, std::int64_t months) {
    const std::int64_t index = from.year * 12 + (from.month - 1) + months;
    const std::int64_t year = floorDivide(index, 12);
    return {year, static_cast<int>(index - year * 12) + 1, from.day};
}

/// Days from 1970-01-01 to the first of that day's month.
constexpr std::int64_t firstOfMonth(const CivilDay& month) {
    return daysToMonth(month.year, month.month);
}

} // namespace oakfen
