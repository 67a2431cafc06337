#pragma once

#include <string>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen::SampleData {

/// A believable household with two years of history up to `now`, for looking around: every screen
/// has something to show. The same `now` gives the same figures; only the ids differ.
[[nodiscard]] Library make(Date now, const std::string& currencyCode, const Calendar& calendar);

} // namespace oakfen::SampleData
