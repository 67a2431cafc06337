#include "OakfenCore/Models/DateText.h"

#include <cmath>
#include <cstdint>

#include "OakfenCore/Support/Time/CivilDay.h"
#include "OakfenCore/Support/Values/ASCII.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

namespace {

constexpr auto reference = static_cast<std::int64_t>(Date::referenceSince1970);
// Every whole second within this distance of the reference has a double of its own.
constexpr double farthestSecond = 9'007'199'254'740'992.0;
constexpr std::int64_t farthestYear = 290'000'000;

/// The number of days in that month.
constexpr std::int64_t lengthOfMonth(std::int64_t year, std::int64_t month) {
    const CivilDay first{year, static_cast<int>(month), 1};
    return firstOfMonth(monthsLater(first, 1)) - firstOfMonth(first);
}

void appendTwoDigits(std::string& text, std::int64_t number) {
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

void appendYear(std::string& text, std::int64_t year) {
    if (year < 0) {
        text += '-';
        year = -year;
    }
    if (year > 9'999) {
        text += std::to_string(year);
        return;
    }
    appendTwoDigits(text, year / 100);
    appendTwoDigits(text, year % 100);
}

/// Takes a text apart from the front; each function says whether its piece was there.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool take(char character) {
        if (rest_.empty() || rest_.front() != character) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    /// Two digits that make at most `highest`.
    std::optional<std::int64_t> twoDigits(std::int64_t highest) {
        if (rest_.size() < 2 || !isASCIIDigit(rest_[0]) || !isASCIIDigit(rest_[1])) {
            return std::nullopt;
        }
        const std::int64_t number = (rest_[0] - '0') * 10 + (rest_[1] - '0');
        rest_.remove_prefix(2);
        return number <= highest ? std::optional(number) : std::nullopt;
    }

    std::optional<std::int64_t> year() {
        const bool isNegative = take('-');
        std::int64_t number = 0;
        std::size_t length = 0;
        for (; length < rest_.size() && isASCIIDigit(rest_[length]); ++length) {
            number = number * 10 + (rest_[length] - '0');
            if (number > farthestYear) {
                return std::nullopt;
            }
        }
        rest_.remove_prefix(length);
        if (length < 4) {
            return std::nullopt;
        }
        return isNegative ? -number : number;
    }

    /// The seconds by which the clock is ahead of UTC, at the end of the text.
    std::optional<std::int64_t> offset() {
        if (take('Z')) {
            return atEnd(0);
        }
        const bool isBehind = take('-');
        if (!isBehind && !take('+')) {
            return std::nullopt;
        }
        const auto hours = twoDigits(23);
        if (!hours) {
            return std::nullopt;
        }
        std::int64_t seconds = *hours * 3'600;
        if (!rest_.empty()) {
            take(':');
            const auto minutes = twoDigits(59);
            if (!minutes) {
                return std::nullopt;
            }
            seconds += *minutes * 60;
        }
        return atEnd(isBehind ? -seconds : seconds);
    }

private:
    std::optional<std::int64_t> atEnd(std::int64_t value) const {
        return rest_.empty() ? std::optional(value) : std::nullopt;
    }

    std::string_view rest_;
};

} // namespace

void appendDateText(std::string& text, Date date) {
    const double seconds = std::floor(date.secondsSinceReference);
    if (!(std::abs(seconds) <= farthestSecond)) {
        throw LocalizedError("The library holds a date that can’t be written.");
    }
    const std::int64_t since1970 = static_cast<std::int64_t>(seconds) + reference;
    const std::int64_t days = floorDivide(since1970, secondsPerDay);
    const std::int64_t second = since1970 - days * secondsPerDay;
    const CivilDay day = civilDay(days);
    appendYear(text, day.year);
    text += '-';
    appendTwoDigits(text, day.month);
    text += '-';
    appendTwoDigits(text, day.day);
    text += 'T';
    appendTwoDigits(text, second / 3'600);
    text += ':';
    appendTwoDigits(text, second / 60 % 60);
    text += ':';
    appendTwoDigits(text, second % 60);
    text += 'Z';
}

std::optional<Date> parseDateText(std::string_view text) noexcept {
    Scanner scanner(text);
    const auto year = scanner.year();
    const auto month = year && scanner.take('-') ? scanner.twoDigits(12) : std::nullopt;
    if (!month || *month == 0) {
        return std::nullopt;
    }
    const auto day =
        scanner.take('-') ? scanner.twoDigits(lengthOfMonth(*year, *month)) : std::nullopt;
    const auto hour = day && scanner.take('T') ? scanner.twoDigits(23) : std::nullopt;
    const auto minute = hour && scanner.take(':') ? scanner.twoDigits(59) : std::nullopt;
    const auto second = minute && scanner.take(':') ? scanner.twoDigits(59) : std::nullopt;
    const auto offset = second ? scanner.offset() : std::nullopt;
    if (!offset || *day == 0) {
        return std::nullopt;
    }
    const std::int64_t days = daysToMonth(*year, static_cast<int>(*month)) + *day - 1;
    const std::int64_t since1970 =
        days * secondsPerDay + *hour * 3'600 + *minute * 60 + *second - *offset;
    return Date{static_cast<double>(since1970 - reference)};
}

} // namespace oakfen
