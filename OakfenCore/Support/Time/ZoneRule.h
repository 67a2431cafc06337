#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace oakfen {

/// A yearly change of clocks and back, as the zone database notes it for the years after its tables
/// end ("EST5EDT,M3.2.0,M11.1.0"). Instants and local times are those of `TimeZone`.
class ZoneRule {
public:
    /// Reads the note; nothing for a zone whose clocks no longer change, or for another text.
    [[nodiscard]] static std::optional<ZoneRule> parse(std::string_view text);

    [[nodiscard]] std::int64_t offsetAt(std::int64_t instant) const;
    [[nodiscard]] std::int64_t instantOf(std::int64_t local) const;

private:
    friend class ZoneRuleReader;

    /// A day of the year and a time of day that is still in force then.
    struct Change {
        enum class Kind { weekdayOfMonth, dayWithoutLeapDay, day };

        Kind kind = Kind::weekdayOfMonth;
        int month = 1;
        int week = 1;
        int day = 0; // the weekday from Sunday, or the day of the year
        std::int64_t time = 7200;

        /// Days from 1970-01-01 to the change in that year.
        [[nodiscard]] std::int64_t dayIn(std::int64_t year) const;
    };

    struct Span {
        std::int64_t start = 0;
        std::int64_t end = 0;
    };

    /// The instants of the year's two changes.
    [[nodiscard]] Span summerOf(std::int64_t year) const;

    std::int64_t winterOffset_ = 0;
    std::int64_t summerOffset_ = 0;
    Change summerStart_;
    Change summerEnd_;
};

} // namespace oakfen
