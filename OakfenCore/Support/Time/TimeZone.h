#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "OakfenCore/Support/Time/ZoneRule.h"

namespace date {
class time_zone;
}

namespace oakfen {

/// A zone of the system's database: how far its clocks are from UTC, and when. All zones live as
/// long as the program, so that they are compared by address.
///
/// Instants are seconds since 1970-01-01T00:00:00Z, local times since 1970-01-01T00:00:00 on the
/// local clock.
class TimeZone {
public:
    TimeZone(std::string name, const date::time_zone* table);

    [[nodiscard]] static const TimeZone& utc();

    /// The zone of that name; null when the system has no such zone.
    [[nodiscard]] static const TimeZone* named(std::string_view name);

    /// The zone of `TZ` if it names one, else the system's; UTC where that isn't known.
    [[nodiscard]] static const TimeZone& current();

    [[nodiscard]] const std::string& name() const noexcept { return name_; }

    /// How far the local clock is ahead of UTC at that instant, in seconds.
    [[nodiscard]] std::int64_t offsetAt(std::int64_t instant) const;

    /// The instant of that local time: the earlier one if it is repeated, the first that exists
    /// after it if it is skipped.
    [[nodiscard]] std::int64_t instantOf(std::int64_t local) const;

private:
    std::string name_;
    const date::time_zone* table_ = nullptr; // none is UTC
    std::optional<ZoneRule> rule_;           // for the times after the table's last change
    std::int64_t tableEnd_ = std::numeric_limits<std::int64_t>::max();
};

} // namespace oakfen
