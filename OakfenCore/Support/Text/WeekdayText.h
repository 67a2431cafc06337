#pragma once

#include <string>

#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// Weekday and month in full, and the day number: "Thursday, March 5".
[[nodiscard]] std::string weekdayMonthDayText(Date date, const Calendar& calendar);

} // namespace oakfen
