#pragma once

#include "OakfenCore/Platform/Clock.h"
#include "OakfenCore/Platform/Scheduler.h"
#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

/// Tells when the local clock has come to another hour or another day, for whatever is shown by the
/// time: greetings, what is due, balances as of today.
///
/// Looks at the clock whenever an hour begins there. That is often enough to notice within the hour
/// what no timer tells of: that the machine slept, or that its clock or zone was set anew. `check`
/// finds out sooner.
class DayChange {
public:
    /// Both must outlive it.
    DayChange(const Clock& clock, Scheduler& scheduler);
    DayChange(const DayChange&) = delete;
    DayChange& operator=(const DayChange&) = delete;

    /// Looks at the clock now, for moments at which time may have passed unnoticed.
    void check();

    /// Told when the day that it is began at another instant than the one before, be it by the
    /// clock or by the zone.
    Observers<> dayChanged;
    /// Told likewise of the hour of the day, and after every change of the day.
    Observers<> hourChanged;

private:
    struct Moment {
        Date startOfDay;
        int hour = 0;

        friend bool operator==(const Moment&, const Moment&) = default;
    };

    [[nodiscard]] Moment present() const;
    void waitForTheNextHour();

    const Clock& clock_;
    Scheduler& scheduler_;
    Moment last_;
    ScheduledWork wait_;
};

} // namespace oakfen
