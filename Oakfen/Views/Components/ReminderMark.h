#pragma once

#include <string_view>

#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/Models/Records.h"

namespace oakfen {

/// What a list shows before a reminder.
struct ReminderMark {
    std::string_view symbolName;
    TextTone tone = TextTone::warning;
    /// What it is, for screen readers.
    std::string_view spoken;

    friend bool operator==(const ReminderMark&, const ReminderMark&) = default;
};

/// A transfer, money that comes in, or a bill.
[[nodiscard]] ReminderMark reminderMark(const ScheduledTransaction& reminder);

} // namespace oakfen
