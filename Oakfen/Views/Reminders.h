#pragma once

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// How many reminders are due: those whose date is today or past.
[[nodiscard]] int dueReminderCount(const AppEnvironment& environment);

} // namespace oakfen
