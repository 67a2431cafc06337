#pragma once

#include <optional>
#include <string_view>

#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// Reads a whole text by a date pattern such as "dd/MM/yyyy" or "yyyy-MM-dd'T'HH:mm:ss". Strict:
/// every other character stands as it is, digits are ASCII, and the day must be in the calendar.
[[nodiscard]] std::optional<CivilTime> matchDatePattern(std::string_view text,
                                                        std::string_view pattern);

} // namespace oakfen
