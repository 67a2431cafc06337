#include "Oakfen/Views/Reminders.h"

#include <algorithm>

namespace oakfen {

int dueReminderCount(const AppEnvironment& environment) {
    const Date endOfToday = environment.clock.calendar().endOfDay(environment.clock.now());
    const auto& scheduled = environment.store.library().scheduled;
    return static_cast<int>(
        std::count_if(scheduled.begin(), scheduled.end(), [endOfToday](const auto& reminder) {
            return reminder.nextDate <= endOfToday;
        }));
}

} // namespace oakfen
