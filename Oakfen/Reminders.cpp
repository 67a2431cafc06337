#include "Oakfen/Reminders.h"

#include <vector>

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"

namespace oakfen {

namespace {

/// The reminders that are due, in the document's order.
std::vector<UUID> dueReminders(const AppEnvironment& environment) {
    const Date endOfToday = environment.clock.calendar().endOfDay(environment.clock.now());
    std::vector<UUID> due;
    for (const ScheduledTransaction& reminder : environment.store.library().scheduled) {
        if (reminder.nextDate <= endOfToday) {
            due.push_back(reminder.id);
        }
    }
    return due;
}

} // namespace

int dueReminderCount(const AppEnvironment& environment) {
    return static_cast<int>(dueReminders(environment).size());
}

void enterDueReminders(AppEnvironment& environment) {
    const std::vector<UUID> due = dueReminders(environment);
    environment.store.mutate("Enter Reminders", [&](Library& library) {
        for (const UUID& id : due) {
            enterScheduled(library, id, std::nullopt, std::nullopt, environment.clock.calendar());
        }
    });
}

} // namespace oakfen
