#pragma once

#include "OakfenCore/Support/Calendar.h"
#include "OakfenCore/Support/Date.h"

namespace oakfen {

/// Where the present moment comes from. Model code never asks: it is handed `now` and `calendar`.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
    [[nodiscard]] virtual Calendar calendar() const = 0;
};

/// The system's clock and zone. Its moments are whole seconds, as the file keeps them: a fraction
/// would be lost with the next start, and entries of one second might change places.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
    [[nodiscard]] Calendar calendar() const override { return Calendar::current(); }
};

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
