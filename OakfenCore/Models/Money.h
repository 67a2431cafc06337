#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "OakfenCore/Models/Enumerations.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// The periods that a screen offers.
enum class DateRangePreset {
    thisMonth,
    lastMonth,
    last3Months,
    yearToDate,
    last12Months,
    lastYear,
    allTime,
};

template <>
inline constexpr auto allCases<DateRangePreset> =
    std::array{DateRangePreset::thisMonth,    DateRangePreset::lastMonth,
               DateRangePreset::last3Months,  DateRangePreset::yearToDate,
               DateRangePreset::last12Months, DateRangePreset::lastYear,
               DateRangePreset::allTime};

[[nodiscard]] std::string_view rawValue(DateRangePreset value) noexcept;
[[nodiscard]] std::string_view title(DateRangePreset value) noexcept;

/// The period as it lies around `now`, both ends included.
[[nodiscard]] DateInterval interval(DateRangePreset preset, Date now, const Calendar& calendar);

/// The next occurrence after that date; none for `once`. A monthly step from the 31st lands on the
/// last day of a shorter month, and the next step starts from there.
[[nodiscard]] std::optional<Date> next(Frequency frequency, Date after, const Calendar& calendar);

} // namespace oakfen
