#include "Oakfen/Views/Components/ReminderMark.h"

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"

namespace oakfen {

ReminderMark reminderMark(const ScheduledTransaction& reminder) {
    if (reminder.isTransfer()) {
        return {"arrow.left.arrow.right.circle.fill", TextTone::information, "Transfer"};
    }
    if (isIncome(reminder)) {
        return {"arrow.down.circle.fill", TextTone::positive, "Income"};
    }
    return {"arrow.up.circle.fill", TextTone::warning, "Bill"};
}

} // namespace oakfen
