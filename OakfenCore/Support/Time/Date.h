#pragma once

#include <compare>

namespace oakfen {

/// An instant: seconds since 2001-01-01T00:00:00Z. Days and months come only from a `Calendar`.
struct Date {
    double secondsSinceReference = 0;

    /// Seconds from 1970-01-01T00:00:00Z to the reference instant.
    static constexpr double referenceSince1970 = 978307200.0;

    [[nodiscard]] static constexpr Date since1970(double seconds) {
        return Date{seconds - referenceSince1970};
    }
    [[nodiscard]] constexpr double secondsSince1970() const {
        return secondsSinceReference + referenceSince1970;
    }

    /// 0001-01-01T00:00:00Z, before any entry.
    [[nodiscard]] static constexpr Date distantPast() { return Date{-63113904000.0}; }
    /// 4001-01-01T00:00:00Z, after any entry that a person makes.
    [[nodiscard]] static constexpr Date distantFuture() { return Date{63113904000.0}; }

    [[nodiscard]] constexpr Date adding(double seconds) const {
        return Date{secondsSinceReference + seconds};
    }

    friend constexpr bool operator==(const Date&, const Date&) = default;
    friend constexpr auto operator<=>(const Date&, const Date&) = default;
};

/// A closed span of time: both ends belong to it.
struct DateInterval {
    Date start;
    Date end;

    [[nodiscard]] constexpr bool contains(Date date) const { return start <= date && date <= end; }

    friend constexpr bool operator==(const DateInterval&, const DateInterval&) = default;
};

} // namespace oakfen
