#pragma once

#include <string>

#include "OakfenCore/Support/Time/Calendar.h"

/// Months and weekdays as people read them, in the user's locale.
namespace oakfen {

/// Month in full and year: "March 2026".
[[nodiscard]] std::string monthYearText(Date date, const Calendar& calendar);

/// Abbreviated month and year: "Mar 2026".
[[nodiscard]] std::string abbreviatedMonthYearText(Date date, const Calendar& calendar);

/// Weekday and month in full, and the day number: "Thursday, March 5".
[[nodiscard]] std::string weekdayMonthDayText(Date date, const Calendar& calendar);

/// Abbreviated month: "Mar".
[[nodiscard]] std::string abbreviatedMonthText(Date date, const Calendar& calendar);

} // namespace oakfen
