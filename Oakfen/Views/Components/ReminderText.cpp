#include "Oakfen/Views/Components/ReminderText.h"

namespace oakfen {

namespace {

std::string nameOf(const UUID& accountID, const LibraryIndex& index) {
    const Account* account = index.account(accountID);
    return account != nullptr ? account->name : std::string();
}

} // namespace

std::string reminderSubtitle(const ScheduledTransaction& reminder, const LibraryIndex& index) {
    std::string text = nameOf(reminder.accountID, index) + " · ";
    text += reminder.transferAccountID ? "Transfer → " + nameOf(*reminder.transferAccountID, index)
                                       : index.categoryName(reminder.categoryID);
    text += " · ";
    text += title(reminder.frequency);
    if (reminder.autoEnter) {
        text += " · Auto-enter";
    }
    return text;
}

} // namespace oakfen
