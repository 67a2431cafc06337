#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Support/Time/Date.h"

namespace oakfen {

class TimeZone;

/// A day of the Gregorian calendar and a time of day on the local clock.
struct CivilTime {
    int year = 1;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

/// The Gregorian calendar in one time zone. A value: every function that speaks of days takes one.
///
/// A local time that the clock skips is the first instant that exists after it; one that the clock
/// repeats is the earlier of the two. Any year works: the zone's first and last known rules hold
/// for the times before and after, and instants over a billion years away are all one.
class Calendar {
public:
    /// The calendar of the machine's zone: `TZ` if it names one, else the system's.
    [[nodiscard]] static Calendar current();

    /// The calendar of the named zone ("America/Toronto"); nothing when the system has no such
    /// zone.
    [[nodiscard]] static std::optional<Calendar> inZone(std::string_view name);

    [[nodiscard]] static Calendar utc();

    /// The zone's name in the system's database.
    [[nodiscard]] std::string zoneName() const;

    /// What the local clock and calendar show at that instant; fractions of a second are dropped.
    [[nodiscard]] CivilTime civil(Date date) const;

    /// The instant of that local time. Months and days out of range carry over, so February 31st
    /// is a day in March.
    [[nodiscard]] Date date(const CivilTime& civil) const;

    [[nodiscard]] Date startOfDay(Date date) const;
    [[nodiscard]] Date startOfMonth(Date date) const;
    [[nodiscard]] Date startOfYear(Date date) const;
    /// One second before the next civil day begins.
    [[nodiscard]] Date endOfDay(Date date) const;
    /// One second before the next civil month begins.
    [[nodiscard]] Date endOfMonth(Date date) const;

    /// The same local time that many days on; a day is what the local calendar calls one.
    [[nodiscard]] Date addingDays(Date date, int days) const;
    /// The same local time that many months on, on the last day of the month where it is shorter.
    [[nodiscard]] Date addingMonths(Date date, int months) const;
    [[nodiscard]] Date addingYears(Date date, int years) const;

    /// Whole days elapsed from one instant to the other on the local clock, towards zero: 23 hours
    /// are none, and a day with a clock change is one.
    [[nodiscard]] int wholeDays(Date from, Date to) const;
    /// Whole months elapsed, likewise.
    [[nodiscard]] int wholeMonths(Date from, Date to) const;

    /// The start of each month from that of the interval's start while it is at or before the end;
    /// at most 240.
    [[nodiscard]] std::vector<Date> months(const DateInterval& interval) const;

    friend bool operator==(const Calendar&, const Calendar&) = default;

private:
    explicit Calendar(const TimeZone* zone) : zone_(zone) {}

    const TimeZone* zone_; // one of a few that live as long as the program
};

} // namespace oakfen
