#include "OakfenCore/Support/Time/ZoneRule.h"

#include <algorithm>

#include "OakfenCore/Support/Time/CivilDay.h"

namespace oakfen {
namespace {

constexpr int daysPerWeek = 7;
constexpr int lastWeek = 5;
constexpr std::int64_t secondsPerHour = 3600;

/// The largest number in any note is a day of the year.
constexpr std::int64_t largestNumber = 366;

bool isLeapYear(std::int64_t year) {
    return daysToMonth(year + 1, 1) - daysToMonth(year, 1) == 366;
}

std::int64_t yearOf(std::int64_t seconds) {
    return civilDay(floorDivide(seconds, secondsPerDay)).year;
}

} // namespace

/// Reads a note piece by piece; the first piece that isn't as expected makes the rest fail.
class ZoneRuleReader {
public:
    explicit ZoneRuleReader(std::string_view text) : rest_(text) {}

    std::optional<ZoneRule> read() {
        ZoneRule rule;
        skipName();
        // The notes count westwards.
        rule.winterOffset_ = -time();
        skipName();
        const bool hasSummerOffset = !rest_.empty() && rest_.front() != ',';
        rule.summerOffset_ = hasSummerOffset ? -time() : rule.winterOffset_ + secondsPerHour;
        rule.summerStart_ = change();
        rule.summerEnd_ = change();
        return failed_ || !rest_.empty() ? std::nullopt : std::optional(rule);
    }

private:
    bool take(char character) {
        if (!rest_.starts_with(character)) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    void expect(bool isAsExpected) { failed_ = failed_ || !isAsExpected; }

    /// Letters, or anything in angle brackets.
    void skipName() {
        std::size_t length = 0;
        if (take('<')) {
            length = rest_.find('>');
            expect(length != std::string_view::npos);
            rest_.remove_prefix(std::min(length, rest_.size()));
            take('>');
            return;
        }
        length = std::min(rest_.find_first_of("0123456789+-,"), rest_.size());
        expect(length > 0);
        rest_.remove_prefix(length);
    }

    std::int64_t number() {
        const std::size_t length = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
        expect(length > 0);
        std::int64_t value = 0;
        for (const char digit : rest_.substr(0, length)) {
            value = std::min(value * 10 + (digit - '0'), largestNumber + 1);
        }
        rest_.remove_prefix(length);
        expect(value <= largestNumber);
        return value;
    }

    /// Hours, perhaps with minutes and seconds, in seconds.
    std::int64_t time() {
        const bool isNegative = take('-');
        if (!isNegative) {
            take('+');
        }
        std::int64_t seconds = number() * secondsPerHour;
        if (take(':')) {
            seconds += number() * 60;
            if (take(':')) {
                seconds += number();
            }
        }
        return isNegative ? -seconds : seconds;
    }

    ZoneRule::Change change() {
        using Kind = ZoneRule::Change::Kind;
        ZoneRule::Change result;
        expect(take(','));
        if (take('M')) {
            result.month = static_cast<int>(number());
            expect(take('.') && result.month >= 1 && result.month <= 12);
            result.week = static_cast<int>(number());
            expect(take('.') && result.week >= 1 && result.week <= lastWeek);
            result.day = static_cast<int>(number());
            expect(result.day < daysPerWeek);
        } else {
            result.kind = take('J') ? Kind::dayWithoutLeapDay : Kind::day;
            result.day = static_cast<int>(number());
            expect(result.kind == Kind::day || result.day > 0);
        }
        if (take('/')) {
            result.time = time();
        }
        return result;
    }

    std::string_view rest_;
    bool failed_ = false;
};

std::optional<ZoneRule> ZoneRule::parse(std::string_view text) {
    return ZoneRuleReader(text).read();
}

std::int64_t ZoneRule::Change::dayIn(std::int64_t year) const {
    const std::int64_t newYear = daysToMonth(year, 1);
    if (kind == Kind::day) {
        return newYear + day;
    }
    if (kind == Kind::dayWithoutLeapDay) {
        constexpr int lastOfFebruary = 59;
        return newYear + day - 1 + (day > lastOfFebruary && isLeapYear(year) ? 1 : 0);
    }
    const std::int64_t first = daysToMonth(year, month);
    const std::int64_t next = daysToMonth(month == 12 ? year + 1 : year, month % 12 + 1);
    // 1970-01-01 was a Thursday.
    const std::int64_t weekday = first + 4 - floorDivide(first + 4, daysPerWeek) * daysPerWeek;
    std::int64_t result = first + (day - weekday + daysPerWeek) % daysPerWeek;
    result += std::int64_t{week - 1} * daysPerWeek;
    return result < next ? result : result - daysPerWeek;
}

ZoneRule::Span ZoneRule::summerOf(std::int64_t year) const {
    const auto instant = [&](const Change& change, std::int64_t offsetBefore) {
        return change.dayIn(year) * secondsPerDay + change.time - offsetBefore;
    };
    return {instant(summerStart_, winterOffset_), instant(summerEnd_, summerOffset_)};
}

std::int64_t ZoneRule::offsetAt(std::int64_t instant) const {
    const Span summer = summerOf(yearOf(instant + winterOffset_));
    // In the south, the year's middle is winter.
    const bool isSummer = summer.start < summer.end
                              ? summer.start <= instant && instant < summer.end
                              : summer.start <= instant || instant < summer.end;
    return isSummer ? summerOffset_ : winterOffset_;
}

std::int64_t ZoneRule::instantOf(std::int64_t local) const {
    const auto [behind, ahead] = std::minmax(winterOffset_, summerOffset_);
    if (offsetAt(local - ahead) == ahead) {
        return local - ahead;
    }
    if (offsetAt(local - behind) == behind) {
        return local - behind;
    }
    // The time is skipped by the one change that lies between the two readings of it.
    const Span summer = summerOf(yearOf(local));
    const std::int64_t startDistance = local - behind - summer.start;
    const bool isSkippedByStart = startDistance >= 0 && startDistance < ahead - behind;
    return isSkippedByStart ? summer.start : summer.end;
}

} // namespace oakfen
