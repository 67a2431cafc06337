#include "OakfenCore/Importers/DateParser.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "OakfenCore/Importers/Characters.h"
#include "OakfenCore/Importers/DatePattern.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen::DateParser {

namespace {

/// Well inside what the calendar reckons with and the document can write.
constexpr std::int64_t lastYear = 999'999;

std::optional<Date> date(std::string_view text, std::string_view pattern,
                         const Calendar& calendar) {
    const std::optional<CivilTime> civil = matchDatePattern(text, pattern);
    return civil ? std::optional(calendar.date(*civil)) : std::nullopt;
}

std::optional<std::int64_t> integer(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

/// The integers between the separators, without regard to the spaces.
std::vector<std::int64_t> integers(std::string_view text) {
    std::string plain;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char letter = text[index];
        const bool isSpecial = letter == ' ' || letter == '\'' || letter == '-';
        if (!isSpecial || !isWholeCharacter(text, index)) {
            plain.push_back(letter);
        } else if (letter != ' ') {
            plain.push_back('/');
        }
    }
    std::vector<std::int64_t> values;
    for (const std::string_view piece : split(plain, '/')) {
        if (const auto value = integer(piece)) {
            values.push_back(*value);
        }
    }
    return values;
}

std::int64_t fullYear(std::int64_t year) {
    if (year < 70) {
        return year + 2000;
    }
    return year < 100 ? year + 1900 : year;
}

} // namespace

std::optional<Date> parse(std::string_view text, std::optional<std::string_view> preferred,
                          const Calendar& calendar) {
    text = trimmingWhitespaces(text);
    if (text.empty()) {
        return std::nullopt;
    }
    if (preferred) {
        if (const auto found = date(text, *preferred, calendar)) {
            return found;
        }
    }
    for (const std::string_view format : formats) {
        if (const auto found = date(text, format, calendar)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<std::string_view> bestFormat(std::span<const std::string> cells) {
    BestFormatFinder finder;
    for (const std::string& cell : cells) {
        finder.look(cell);
    }
    return finder.format();
}

BestFormatFinder::BestFormatFinder() : remaining_(formats.begin(), formats.end()) {}

void BestFormatFinder::look(std::string_view cell) {
    if (cell.empty()) {
        return;
    }
    hasLooked_ = true;
    std::erase_if(remaining_, [&](std::string_view format) {
        return !matchDatePattern(cell, format).has_value();
    });
}

std::optional<std::string_view> BestFormatFinder::format() const {
    return hasLooked_ && !remaining_.empty() ? std::optional(remaining_.front()) : std::nullopt;
}

std::optional<Date> parseQIF(std::string_view text, const Calendar& calendar) {
    const std::vector<std::int64_t> values = integers(text);
    if (values.size() != 3) {
        return parse(text, std::nullopt, calendar);
    }
    const std::int64_t month = values[0];
    const std::int64_t day = values[1];
    const std::int64_t year = fullYear(values[2]);
    if (month < 1 || month > 12 || day < 1 || day > 31 || year > lastYear) {
        return std::nullopt;
    }
    return calendar.date(CivilTime{.year = static_cast<int>(year),
                                   .month = static_cast<int>(month),
                                   .day = static_cast<int>(day)});
}

std::optional<Date> parseOFX(std::string_view text, const Calendar& calendar) {
    constexpr std::size_t length = 8;
    if (text.size() < length || !isWholeCharacter(text, length - 1)) {
        return std::nullopt;
    }
    return date(text.substr(0, length), "yyyyMMdd", calendar);
}

} // namespace oakfen::DateParser
