#include "Oakfen/Reminders.h"

#include <vector>

#include "Oakfen/UndoNotice.h"
#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

/// The places of the reminders that are due, in the document's order.
std::vector<std::size_t> dueReminders(const AppEnvironment& environment) {
    const Date endOfToday = environment.clock.calendar().endOfDay(environment.clock.now());
    const auto& reminders = environment.store.library().scheduled;
    std::vector<std::size_t> due;
    for (std::size_t place = 0; place < reminders.size(); ++place) {
        if (reminders[place].nextDate <= endOfToday) {
            due.push_back(place);
        }
    }
    return due;
}

const ScheduledTransaction* reminderOf(const AppEnvironment& environment, const UUID& id) {
    return environment.store.library().scheduled.first(
        [&](const ScheduledTransaction& each) { return each.id == id; });
}

} // namespace

int dueReminderCount(const AppEnvironment& environment) {
    return static_cast<int>(dueReminders(environment).size());
}

void enterReminder(AppEnvironment& environment, const UUID& id) {
    const ScheduledTransaction* reminder = reminderOf(environment, id);
    if (reminder == nullptr) {
        return;
    }
    const std::string payee = reminder->payee;
    environment.store.mutate("Enter " + payee, [&](Library& library) {
        enterScheduled(library, id, std::nullopt, std::nullopt, environment.clock.calendar());
    });
    offerUndo(environment, quoted(payee) + " entered");
}

void skipReminder(AppEnvironment& environment, const UUID& id) {
    const ScheduledTransaction* reminder = reminderOf(environment, id);
    if (reminder == nullptr) {
        return;
    }
    const std::string payee = reminder->payee;
    environment.store.mutate("Skip " + payee, [&](Library& library) {
        skipScheduled(library, id, environment.clock.calendar());
    });
    offerUndo(environment, quoted(payee) + " skipped");
}

void enterDueReminders(AppEnvironment& environment) {
    const std::vector<std::size_t> due = dueReminders(environment);
    environment.store.mutate("Enter Reminders", [&](Library& library) {
        const std::size_t before = library.scheduled.size();
        for (const std::size_t place : due) {
            // Those that came for the last time have gone from before it.
            const std::size_t gone = before - library.scheduled.size();
            enterScheduledAt(library, place - gone, environment.clock.calendar());
        }
    });
}

} // namespace oakfen
