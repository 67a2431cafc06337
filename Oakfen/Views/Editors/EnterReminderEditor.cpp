#include "Oakfen/Views/Editors/EnterReminderEditor.h"

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Components/ReminderText.h"
#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"

namespace oakfen {

EnterReminderEditor::EnterReminderEditor(AppEnvironment& environment,
                                         const ScheduledTransaction& reminder)
    : amount(reminder.amount.magnitude()), date(reminder.nextDate), environment_(environment),
      reminder_(reminder) {}

std::string EnterReminderEditor::subtitle() const {
    return singleLine(reminder_.payee + " · " +
                      reminderSubtitle(reminder_, environment_.store.index()));
}

std::optional<std::string> EnterReminderEditor::obstacle() const {
    if (amount.isNaN()) {
        return "The amount is too large to keep. Enter another.";
    }
    if (amount.isZero()) {
        return "Enter an amount.";
    }
    return std::nullopt;
}

void EnterReminderEditor::save() {
    const Decimal signedAmount =
        reminder_.amount.isPositive() ? amount.magnitude() : -amount.magnitude();
    environment_.store.mutate("Enter " + reminder_.payee, [&](Library& library) {
        enterScheduled(library, reminder_.id, signedAmount, date, environment_.clock.calendar());
    });
}

} // namespace oakfen
