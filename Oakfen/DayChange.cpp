#include "Oakfen/DayChange.h"

#include <utility>

namespace oakfen {

namespace {

constexpr double secondsInAnHour = 3600;

} // namespace

DayChange::DayChange(const Clock& clock, Scheduler& scheduler)
    : clock_(clock), scheduler_(scheduler), last_(present()) {
    waitForTheNextHour();
}

DayChange::Moment DayChange::present() const {
    const Date now = clock_.now();
    const Calendar calendar = clock_.calendar();
    return {calendar.startOfDay(now), calendar.civil(now).hour};
}

void DayChange::check() {
    waitForTheNextHour();
    const Moment now = present();
    const Moment before = std::exchange(last_, now);
    if (now.startOfDay != before.startOfDay) {
        dayChanged.notify();
    }
    if (now != before) {
        hourChanged.notify();
    }
}

void DayChange::waitForTheNextHour() {
    // Days begin with an hour too, also where the clock skips midnight.
    const CivilTime civil = clock_.calendar().civil(clock_.now());
    const double rest = secondsInAnHour - (civil.minute * 60) - civil.second;
    wait_ = scheduler_.after(rest, [this] { check(); });
}

} // namespace oakfen
