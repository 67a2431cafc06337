#pragma once

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// How many reminders are due: those whose date is today or past.
[[nodiscard]] int dueReminderCount(const AppEnvironment& environment);

/// Enters the next occurrence of the reminder as it stands, and offers to take that back.
void enterReminder(AppEnvironment& environment, const UUID& id);
/// Moves the reminder on without an entry, likewise.
void skipReminder(AppEnvironment& environment, const UUID& id);

/// Enters one occurrence of each reminder that is due now, all in one step. One that is due still
/// waits for the next time.
void enterDueReminders(AppEnvironment& environment);

} // namespace oakfen
