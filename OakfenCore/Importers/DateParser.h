#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Support/Time/Calendar.h"

/// Reads the dates of bank statements. All are local dates of the calendar given; only a text with
/// a time of day is not a midnight.
namespace oakfen::DateParser {

/// The patterns that are tried, in this order: month-first before day-first. A field of two letters
/// takes exactly two digits, "yyyy" four, one of a single letter one or two; "MMM" is an English
/// month, abbreviated or in full.
inline constexpr std::array<std::string_view, 14> formats = {
    "yyyy-MM-dd",  "MM/dd/yyyy",
    "M/d/yyyy",    "dd/MM/yyyy",
    "d/M/yyyy",    "yyyy/MM/dd",
    "MM/dd/yy",    "M/d/yy",
    "dd-MM-yyyy",  "yyyyMMdd",
    "d MMM yyyy",  "MMM d, yyyy",
    "dd-MMM-yyyy", "yyyy-MM-dd'T'HH:mm:ss",
};

/// The date in the text by the preferred pattern, else by the first of `formats` that reads it.
[[nodiscard]] std::optional<Date>
parse(std::string_view text, std::optional<std::string_view> preferred, const Calendar& calendar);

/// The first of `formats` that reads every text that is not empty: settles month-first against
/// day-first for a whole column. All at once: for tests.
[[nodiscard]] std::optional<std::string_view> bestFormat(std::span<const std::string> cells);

/// The same for texts that come one by one, as those of a statement do.
class BestFormatFinder {
public:
    BestFormatFinder();

    /// Drops the patterns that don't read this text.
    void look(std::string_view cell);
    /// Whether no pattern is left, so that looking further is in vain.
    [[nodiscard]] bool isExhausted() const noexcept { return remaining_.empty(); }
    [[nodiscard]] std::optional<std::string_view> format() const;

private:
    std::vector<std::string_view> remaining_;
    bool hasLooked_ = false;
};

/// Month, day and year between slashes, hyphens or an apostrophe ("12/31'2024"); other shapes as
/// `parse` reads them. A day past the month's end is one of the next month.
[[nodiscard]] std::optional<Date> parseQIF(std::string_view text, const Calendar& calendar);

/// The first eight characters as yyyyMMdd; the time and zone behind them are ignored.
[[nodiscard]] std::optional<Date> parseOFX(std::string_view text, const Calendar& calendar);

} // namespace oakfen::DateParser
