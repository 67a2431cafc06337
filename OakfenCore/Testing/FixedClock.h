#pragma once

#include "OakfenCore/Platform/Clock.h"

namespace oakfen {

/// A clock that stands where it was set.
class FixedClock final : public Clock {
public:
    explicit FixedClock(Date now, Calendar calendar = Calendar::utc())
        : now_(now), calendar_(calendar) {}

    [[nodiscard]] Date now() const override { return now_; }
    [[nodiscard]] Calendar calendar() const override { return calendar_; }
    void set(Date now) { now_ = now; }
    void advance(double seconds) { now_ = now_.adding(seconds); }

private:
    Date now_;
    Calendar calendar_;
};

} // namespace oakfen
