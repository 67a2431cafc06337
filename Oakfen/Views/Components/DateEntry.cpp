#include "Oakfen/Views/Components/DateEntry.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Text/TypedText.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

/// Digits that stand together.
using Digits = std::string_view;

constexpr std::size_t fullYear = 4;

std::vector<Digits> digitRuns(std::string_view text) {
    std::vector<Digits> runs;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = static_cast<std::size_t>(
            std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(),
                             isASCIIDigit) -
            text.begin());
        if (end > start) {
            runs.push_back(text.substr(start, end - start));
        }
        start = std::max(end, start + 1);
    }
    return runs;
}

/// Letters of ours, or two of any script in a row: a month's name. One alone stands beside a number
/// in some locales ("г.").
bool holdsName(std::string_view text) {
    return std::ranges::any_of(text, isASCIILetter) || holdsWord(text);
}

/// Nothing for more digits than a year has.
std::optional<int> number(Digits digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return digits.size() <= fullYear ? std::optional(value) : std::nullopt;
}

std::optional<int> year(Digits digits) {
    const auto value = number(digits);
    if (!value || digits.size() > 2) {
        return value;
    }
    return *value < 50 ? 2000 + *value : 1900 + *value;
}

/// Eight digits in three parts.
std::vector<Digits> parts(Digits whole, DateOrder order) {
    if (order == DateOrder::yearMonthDay) {
        return {whole.substr(0, 4), whole.substr(4, 2), whole.substr(6)};
    }
    return {whole.substr(0, 2), whole.substr(2, 2), whole.substr(4)};
}

/// A day that the calendar has.
std::optional<CivilTime> existingDay(std::optional<int> year, std::optional<int> month,
                                     std::optional<int> dayOfMonth) {
    if (!year || !month || !dayOfMonth || *year < 1) {
        return std::nullopt;
    }
    const Calendar utc = Calendar::utc();
    const CivilTime day{.year = *year, .month = *month, .day = *dayOfMonth};
    return utc.civil(utc.date(day)) == day ? std::optional(day) : std::nullopt;
}

bool isPossible(Date date) {
    return date >= Date::distantPast() && date <= Date::distantFuture();
}

} // namespace

DateOrder userDateOrder() {
    const Calendar utc = Calendar::utc();
    const std::string sample = plainTyping(
        numericDateText(utc.date({.year = 2035, .month = 11, .day = 24, .hour = 12}), utc));
    const std::size_t yearAt = sample.find("2035");
    const std::size_t monthAt = sample.find("11");
    const std::size_t dayAt = sample.find("24");
    if (yearAt < std::min(monthAt, dayAt)) {
        return DateOrder::yearMonthDay;
    }
    return dayAt < monthAt ? DateOrder::dayMonthYear : DateOrder::monthDayYear;
}

std::optional<CivilTime> readDay(std::string_view text, DateOrder order, const CivilTime& shown) {
    const std::string plain = plainTyping(text);
    if (holdsName(plain)) {
        return std::nullopt;
    }
    std::vector<Digits> runs = digitRuns(plain);
    constexpr std::size_t wholeDate = 8;
    if (runs.size() == 1 && runs[0].size() == wholeDate) {
        runs = parts(runs[0], order);
    }
    switch (runs.size()) {
    case 1:
        return existingDay(shown.year, shown.month, number(runs[0]));
    case 2: {
        const bool dayFirst = order == DateOrder::dayMonthYear;
        return existingDay(shown.year, number(runs[dayFirst ? 1 : 0]),
                           number(runs[dayFirst ? 0 : 1]));
    }
    case 3:
        if (order == DateOrder::yearMonthDay || runs[0].size() == fullYear) {
            return existingDay(year(runs[0]), number(runs[1]), number(runs[2]));
        }
        return order == DateOrder::dayMonthYear
                   ? existingDay(year(runs[2]), number(runs[1]), number(runs[0]))
                   : existingDay(year(runs[2]), number(runs[0]), number(runs[1]));
    default:
        return std::nullopt;
    }
}

std::optional<int> readDayStep(std::string_view text) {
    const std::string plain = plainTyping(text);
    std::string_view step = trimmingWhitespaces(plain);
    if (!step.starts_with('+') && !step.starts_with('-')) {
        return std::nullopt;
    }
    const bool isBack = step.front() == '-';
    step = trimmingWhitespaces(step.substr(1));
    if (step.empty() || !std::ranges::all_of(step, isASCIIDigit)) {
        return std::nullopt;
    }
    const auto days = number(step);
    return days && isBack ? std::optional(-*days) : days;
}

void DateEntry::setValue(Date value) {
    record_ = value;
    value_ = value;
    show();
}

void DateEntry::setDay(int year, int month, int dayOfMonth) {
    moveTo(onDay({.year = year, .month = month, .day = dayOfMonth}));
}

void DateEntry::moveDays(int days) {
    moveTo(onDay(calendar_.civil(calendar_.addingDays(value_, days))));
}

void DateEntry::moveMonths(int months) {
    moveTo(onDay(calendar_.civil(calendar_.addingMonths(value_, months))));
}

std::string DateEntry::valueText() const {
    return numericDateText(value_, calendar_);
}

std::optional<CivilTime> DateEntry::meantDay(std::string_view text) const {
    const std::string plain = lowercased(plainTyping(text));
    const std::string_view word = trimmingWhitespaces(plain);
    if (word == "t" || word == "today") {
        return calendar_.civil(clock_->now());
    }
    if (word == "y" || word == "yesterday") {
        return calendar_.civil(calendar_.addingDays(clock_->now(), -1));
    }
    if (const auto step = readDayStep(plain)) {
        return calendar_.civil(calendar_.addingDays(shownValue_, *step));
    }
    return readDay(plain, userDateOrder(), calendar_.civil(shownValue_));
}

std::string DateEntry::take(std::string_view text) {
    const auto day = meantDay(text);
    const auto date = day ? std::optional(onDay(*day)) : std::nullopt;
    if (date && isPossible(*date)) {
        value_ = *date;
        return {};
    }
    const std::string example = ", for example " + numericDateText(shownValue_, calendar_) + ".";
    const std::string typed(trimmingWhitespacesAndNewlines(text));
    return typed.empty() ? "Enter a date" + example
                         : "“" + typed + "” isn’t a date. Enter one" + example;
}

Date DateEntry::onDay(const CivilTime& day) const {
    CivilTime civil = calendar_.civil(record_);
    if (civil.year == day.year && civil.month == day.month && civil.day == day.day) {
        return record_;
    }
    civil.year = day.year;
    civil.month = day.month;
    civil.day = day.day;
    return calendar_.date(civil);
}

void DateEntry::moveTo(Date value) {
    if (isPossible(value)) {
        value_ = value;
        show();
    }
}

} // namespace oakfen
