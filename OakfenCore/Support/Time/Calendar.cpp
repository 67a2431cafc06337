#include "OakfenCore/Support/Time/Calendar.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "OakfenCore/Support/Time/CivilDay.h"
#include "OakfenCore/Support/Time/TimeZone.h"

namespace oakfen {
namespace {

constexpr std::size_t mostMonths = 240;

/// Beyond this many seconds (years of ten digits) all instants are one.
constexpr double farthest = 6.0e16;

constexpr auto reference = static_cast<std::int64_t>(Date::referenceSince1970);

/// A local time without a zone: seconds from 1970-01-01T00:00:00 on the local clock, and the part
/// of a second that the instant has beyond them.
struct LocalInstant {
    std::int64_t seconds = 0;
    double fraction = 0;

    [[nodiscard]] std::int64_t day() const { return floorDivide(seconds, secondsPerDay); }
    [[nodiscard]] std::int64_t secondOfDay() const { return seconds - day() * secondsPerDay; }
};

int saturated(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

LocalInstant localInstant(Date date, const TimeZone* zone) {
    const double sinceReference = std::isnan(date.secondsSinceReference)
                                      ? 0
                                      : std::clamp(date.secondsSinceReference, -farthest, farthest);
    // Split on its own scale: on that of 1970 a fraction could round up to the next second.
    const double whole = std::floor(sinceReference);
    const std::int64_t seconds = static_cast<std::int64_t>(whole) + reference;
    return {seconds + zone->offsetAt(seconds), sinceReference - whole};
}

Date instant(std::int64_t localSeconds, const TimeZone* zone, double fraction = 0) {
    return Date{static_cast<double>(zone->instantOf(localSeconds) - reference) + fraction};
}

Date startOfCivilDay(std::int64_t day, const TimeZone* zone) {
    return instant(day * secondsPerDay, zone);
}

/// The most steps from one instant that don't pass the other, on whichever side that lies.
template <typename Adding>
int wholeSteps(Date from, Date to, std::int64_t estimate, Adding adding) {
    int steps = saturated(estimate);
    if (from <= to) {
        while (steps > 0 && adding(steps) > to) {
            --steps;
        }
        return std::max(steps, 0);
    }
    while (steps < 0 && adding(steps) < to) {
        ++steps;
    }
    return std::min(steps, 0);
}

} // namespace

Calendar Calendar::current() {
    return Calendar(&TimeZone::current());
}

std::optional<Calendar> Calendar::inZone(std::string_view name) {
    const TimeZone* zone = TimeZone::named(name);
    return zone == nullptr ? std::nullopt : std::optional(Calendar(zone));
}

Calendar Calendar::utc() {
    return Calendar(&TimeZone::utc());
}

std::string Calendar::zoneName() const {
    return zone_->name();
}

CivilTime Calendar::civil(Date date) const {
    const LocalInstant local = localInstant(date, zone_);
    const CivilDay day = civilDay(local.day());
    const auto second = static_cast<int>(local.secondOfDay());
    return {.year = saturated(day.year),
            .month = day.month,
            .day = day.day,
            .hour = second / 3600,
            .minute = second / 60 % 60,
            .second = second % 60};
}

Date Calendar::date(const CivilTime& civil) const {
    const CivilDay month = monthsLater({civil.year, 1, 1}, std::int64_t{civil.month} - 1);
    const std::int64_t day = firstOfMonth(month) + civil.day - 1;
    const std::int64_t second =
        std::int64_t{civil.hour} * 3600 + std::int64_t{civil.minute} * 60 + civil.second;
    return instant(day * secondsPerDay + second, zone_);
}

Date Calendar::startOfDay(Date date) const {
    return startOfCivilDay(localInstant(date, zone_).day(), zone_);
}

Date Calendar::startOfMonth(Date date) const {
    return startOfCivilDay(firstOfMonth(civilDay(localInstant(date, zone_).day())), zone_);
}

Date Calendar::startOfYear(Date date) const {
    const std::int64_t year = civilDay(localInstant(date, zone_).day()).year;
    return startOfCivilDay(daysToMonth(year, 1), zone_);
}

Date Calendar::endOfDay(Date date) const {
    return startOfCivilDay(localInstant(date, zone_).day() + 1, zone_).adding(-1);
}

Date Calendar::endOfMonth(Date date) const {
    const CivilDay day = civilDay(localInstant(date, zone_).day());
    return startOfCivilDay(firstOfMonth(monthsLater(day, 1)), zone_).adding(-1);
}

Date Calendar::addingDays(Date date, int days) const {
    if (days == 0) {
        return date;
    }
    const LocalInstant local = localInstant(date, zone_);
    return instant(local.seconds + days * secondsPerDay, zone_, local.fraction);
}

Date Calendar::addingMonths(Date date, int months) const {
    if (months == 0) {
        return date;
    }
    const LocalInstant local = localInstant(date, zone_);
    const CivilDay day = civilDay(local.day());
    const CivilDay target = monthsLater(day, months);
    const std::int64_t first = firstOfMonth(target);
    const std::int64_t last = firstOfMonth(monthsLater(target, 1)) - 1;
    const std::int64_t targetDay = std::min(first + target.day - 1, last);
    return instant(targetDay * secondsPerDay + local.secondOfDay(), zone_, local.fraction);
}

Date Calendar::addingYears(Date date, int years) const {
    return addingMonths(date, saturated(std::int64_t{years} * 12));
}

int Calendar::wholeDays(Date from, Date to) const {
    const std::int64_t days = localInstant(to, zone_).day() - localInstant(from, zone_).day();
    return wholeSteps(from, to, days, [&](int steps) { return addingDays(from, steps); });
}

int Calendar::wholeMonths(Date from, Date to) const {
    const CivilDay first = civilDay(localInstant(from, zone_).day());
    const CivilDay last = civilDay(localInstant(to, zone_).day());
    const std::int64_t months = (last.year - first.year) * 12 + last.month - first.month;
    return wholeSteps(from, to, months, [&](int steps) { return addingMonths(from, steps); });
}

std::vector<Date> Calendar::months(const DateInterval& interval) const {
    std::vector<Date> starts;
    CivilDay month = civilDay(localInstant(interval.start, zone_).day());
    Date start = startOfCivilDay(firstOfMonth(month), zone_);
    while (start <= interval.end && starts.size() < mostMonths) {
        starts.push_back(start);
        month = monthsLater(month, 1);
        start = startOfCivilDay(firstOfMonth(month), zone_);
    }
    return starts;
}

} // namespace oakfen
