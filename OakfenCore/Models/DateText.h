#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "OakfenCore/Support/Time/Date.h"

/// Instants as the document writes them: "2024-03-01T05:00:00Z", in UTC and whole seconds.
namespace oakfen {

/// Appends the instant without its fraction of a second. A year has at least four digits and a
/// minus before year 0. Throws `LocalizedError` for what is no instant within some 280 million
/// years of the present.
void appendDateText(std::string& text, Date date);

/// Reads such a text; also one with an offset from UTC ("+05:30", "-0500", "+05") in place of the
/// Z. Nothing for any other text, a day that no month has and fractions of a second among them.
[[nodiscard]] std::optional<Date> parseDateText(std::string_view text) noexcept;

} // namespace oakfen
