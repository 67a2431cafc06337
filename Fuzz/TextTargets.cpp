#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "Fuzz/Targets.h"
#include "OakfenCore/Importers/AmountParser.h"
#include "OakfenCore/Importers/DateParser.h"
#include "OakfenCore/Importers/DatePattern.h"
#include "OakfenCore/Models/DateText.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen::fuzz {

namespace {

/// The one form of plain digits: without zeros at either end that say nothing.
std::string withoutIdleZeros(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(isNegative ? 1 : 0);
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string whole(text.substr(0, point));
    std::string fraction(text.substr(std::min(point + 1, text.size())));
    whole.erase(0, whole.find_first_not_of('0'));
    fraction.erase(fraction.find_last_not_of('0') + 1);
    const std::string digits =
        (whole.empty() ? "0" : whole) + (fraction.empty() ? "" : "." + fraction);
    return isNegative && digits != "0" ? "-" + digits : digits;
}

bool isPlainNumber(std::string_view text) {
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    const auto points = std::count(text.begin(), text.end(), '.');
    return points <= 1 && text.size() > static_cast<std::size_t>(points) &&
           text.find_first_not_of("0123456789.") == std::string_view::npos;
}

void requireReadBack(const Decimal& value) {
    require(!value.isNaN(), "what is read is a number");
    const std::string text = value.toString();
    require(Decimal::parse(text) == value, "a number is read as it was written");
    require(Decimal::parseJSONNumber(text) == value, "a number's text is one of JSON");
    require(AmountParser::parse(text) == value, "a number's text is an amount");
    require(withoutIdleZeros(text) == text, "a number has one text");
}

const std::array<Calendar, 3>& calendars() {
    static const std::array all{Calendar::utc(), Calendar::inZone("America/Havana").value(),
                                Calendar::inZone("Pacific/Apia").value()};
    return all;
}

std::optional<std::string_view> naiveFormat(const std::vector<std::string>& cells) {
    const bool hasText =
        std::any_of(cells.begin(), cells.end(), [](const auto& cell) { return !cell.empty(); });
    for (const std::string_view format : DateParser::formats) {
        const bool readsAll = std::all_of(cells.begin(), cells.end(), [&](const auto& cell) {
            return cell.empty() || matchDatePattern(cell, format);
        });
        if (hasText && readsAll) {
            return format;
        }
    }
    return std::nullopt;
}

std::optional<Date> naiveDate(std::string_view text, std::optional<std::string_view> preferred,
                              const Calendar& calendar) {
    std::vector<std::string_view> patterns(DateParser::formats.begin(), DateParser::formats.end());
    if (preferred) {
        patterns.insert(patterns.begin(), *preferred);
    }
    for (const std::string_view pattern : patterns) {
        if (const auto civil = matchDatePattern(trimmingWhitespaces(text), pattern)) {
            return calendar.date(*civil);
        }
    }
    return std::nullopt;
}

void readDate(std::string_view text, std::optional<std::string_view> preferred) {
    for (const Calendar& calendar : calendars()) {
        const auto date = DateParser::parse(text, preferred, calendar);
        require(date == naiveDate(text, preferred, calendar), "the first pattern that reads wins");
        if (date && text.find('T') == std::string_view::npos) {
            require(calendar.startOfDay(*date) == *date, "a date without a time is a midnight");
        }
        if (const auto day = DateParser::parseOFX(text, calendar)) {
            require(calendar.startOfDay(*day) == *day, "eight digits are a midnight");
        }
        if (const auto day = DateParser::parseQIF(text, calendar)) {
            require(calendar.startOfDay(*day) <= *day, "a slashed date is on the calendar");
        }
    }
}

void readTimestamp(std::string_view text) {
    const auto date = parseDateText(text);
    if (!date) {
        return;
    }
    std::string written;
    try {
        appendDateText(written, *date);
    } catch (const LocalizedError&) {
        require(text.size() >= 25, "only years far away can't be written");
        return;
    }
    require(parseDateText(written) == date, "an instant is read as it was written");
}

} // namespace

void readAmount(std::string_view bytes) {
    const auto amount = AmountParser::parse(bytes);
    if (amount) {
        requireReadBack(*amount);
    }
    // Parentheses, a minus behind and "DR" say the same thing, so two of them are no more than one.
    // Letters outside of ASCII at the edges could merge with a parenthesis into one character.
    const auto isPlain = [](char letter) {
        return letter > ' ' && letter < '\x7F' &&
               std::string_view("-Rr").find(letter) == std::string_view::npos;
    };
    const bool isBare = !bytes.empty() && isPlain(bytes.front()) && isPlain(bytes.back()) &&
                        bytes.find_first_of("()") == std::string_view::npos;
    if (isBare && isValidUTF8(bytes)) {
        const auto inParentheses = AmountParser::parse("(" + std::string(bytes) + ")");
        require(inParentheses == (amount ? std::optional(-*amount) : std::nullopt),
                "parentheses turn the sign around");
    }

    const auto plain = Decimal::parse(bytes);
    require(!plain || isPlainNumber(bytes), "only plain digits are a number");
    if (plain) {
        requireReadBack(*plain);
    }
    constexpr std::size_t precision = 38;
    if (bytes.size() <= precision && isPlainNumber(bytes)) {
        require(plain && plain->toString() == withoutIdleZeros(bytes), "no digit is lost");
    }
    const auto json = Decimal::parseJSONNumber(bytes);
    if (json) {
        requireReadBack(*json);
    }
    require(!plain || !json || *plain == *json, "both readings of a number agree");
}

void readDates(std::string_view bytes) {
    std::vector<std::string> cells;
    for (const std::string_view line : split(bytes, '\n')) {
        cells.emplace_back(line);
    }
    const auto format = DateParser::bestFormat(cells);
    require(format == naiveFormat(cells), "the first pattern that reads all cells wins");
    for (const std::string& cell : cells) {
        readDate(cell, format);
        readTimestamp(cell);
    }
}

} // namespace oakfen::fuzz
