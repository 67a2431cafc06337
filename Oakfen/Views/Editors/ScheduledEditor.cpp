#include "Oakfen/Views/Editors/ScheduledEditor.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "Oakfen/Views/Editors/EditorChoices.h"
#include "Oakfen/Views/Table.h"
#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

std::string_view title(ScheduledEditor::Kind value) noexcept {
    switch (value) {
    case ScheduledEditor::Kind::bill:
        return "Bill";
    case ScheduledEditor::Kind::income:
        return "Income";
    case ScheduledEditor::Kind::transfer:
        return "Transfer";
    }
    return {};
}

namespace {

/// A bill, an income or a transfer, whichever record it is.
template <typename Record>
ScheduledEditor::Kind kindOf(const Record& record) {
    if (record.isTransfer()) {
        return ScheduledEditor::Kind::transfer;
    }
    return record.amount.isPositive() ? ScheduledEditor::Kind::income : ScheduledEditor::Kind::bill;
}

} // namespace

ScheduledEditor::ScheduledEditor(AppEnvironment& environment, const ActiveSheet::Scheduled& sheet)
    : environment_(environment) {
    const Date now = environment.clock.now();
    const LibraryIndex& index = environment.store.index();
    endDate = environment.clock.calendar().addingYears(now, 1);
    const ScheduledTransaction* reminder =
        sheet.id ? index.library().scheduled.first(
                       [&](const ScheduledTransaction& each) { return each.id == *sheet.id; })
                 : nullptr;
    if (reminder != nullptr) {
        load(*reminder);
        return;
    }
    draft = {.id = UUID::random(), .accountID = UUID::random(), .nextDate = now};
    const Transaction* entry = sheet.likeEntry ? index.transaction(*sheet.likeEntry) : nullptr;
    if (entry != nullptr) {
        beginLike(*entry);
        return;
    }
    const auto banking = index.accounts(AccountGroup::banking, false);
    if (!banking.empty()) {
        accountID = banking.front()->id;
    }
}

void ScheduledEditor::load(const ScheduledTransaction& reminder) {
    scheduledID_ = reminder.id;
    draft = reminder;
    kind = kindOf(reminder);
    accountID = reminder.accountID;
    transferID = reminder.transferAccountID;
    amount = reminder.amount.magnitude();
    hasEndDate = reminder.endDate.has_value();
    endDate = reminder.endDate.value_or(endDate);
}

void ScheduledEditor::beginLike(const Transaction& entry) {
    draft.payee = entry.payee;
    draft.memo = entry.memo;
    draft.nextDate = nextDateAfter(entry.date);
    kind = kindOf(entry);
    amount = entry.amount.magnitude();
    accountID = entry.accountID;
    if (!isTransfer()) {
        draft.categoryID = entry.isSplit() ? std::nullopt : entry.categoryID;
        return;
    }
    transferID = entry.transferAccountID;
    // A reminder says it from where the money leaves.
    if (entry.amount.isPositive()) {
        std::swap(accountID, transferID);
    }
}

Date ScheduledEditor::nextDateAfter(Date entered) const {
    const Calendar& calendar = environment_.clock.calendar();
    const Date today = calendar.startOfDay(environment_.clock.now());
    // Counted from the entry each time, so that the 31st comes back after a shorter month.
    const int months = std::max(1, calendar.wholeMonths(entered, today));
    Date date = calendar.addingMonths(entered, months);
    if (date < today && months < std::numeric_limits<int>::max()) {
        date = calendar.addingMonths(entered, months + 1);
    }
    // No count of months leads here from before all history.
    return std::max(date, today);
}

std::string ScheduledEditor::title() const {
    return isNew() ? "New Reminder" : "Edit Reminder";
}

std::string_view ScheduledEditor::accountTitle() const {
    return kind == Kind::income ? "Deposit To" : "Pay From";
}

std::string_view ScheduledEditor::endDateHint() const {
    return hasEndDate && endDate < draft.nextDate
               ? "It ends before it is due: it will never be listed."
               : "";
}

std::vector<PickerRow> ScheduledEditor::accountChoices() const {
    const LibraryIndex& index = environment_.store.index();
    return keepingAccount(accountPickerRows(index), index, accountID);
}

std::vector<PickerRow> ScheduledEditor::transferChoices() const {
    const LibraryIndex& index = environment_.store.index();
    std::vector<PickerRow> rows = accountPickerRows(index, {.excluding = accountID});
    return transferID == accountID ? rows : keepingAccount(std::move(rows), index, transferID);
}

std::vector<PickerRow> ScheduledEditor::categoryChoices() const {
    return keepingChoice(plan_.listedAfter(categoryPickerRows(environment_.store.index())),
                         {.title = "Unknown Category", .id = draft.categoryID});
}

std::vector<std::string> ScheduledEditor::payeeSuggestions() const {
    return oakfen::payeeSuggestions(environment_.store.index(), draft.payee);
}

CategoryOffer ScheduledEditor::categoryOffer(std::string_view typed) const {
    return oakfen::categoryOffer(environment_.store.library(), typed);
}

PickerRow ScheduledEditor::planCategory(const std::string& path) {
    return {.title = path, .id = plan_.plan(path)};
}

std::optional<std::string> ScheduledEditor::obstacle() const {
    if (trimmingWhitespaces(draft.payee).empty()) {
        return "Enter a payee.";
    }
    if (amount.isNaN()) {
        return "The amount is too large to keep. Enter another.";
    }
    if (amount.isZero()) {
        return "Enter an amount.";
    }
    if (!accountID) {
        return "Choose an account.";
    }
    if (isTransfer() && (!transferID || transferID == accountID)) {
        return "Choose the account that the money goes to.";
    }
    return std::nullopt;
}

ScheduledTransaction ScheduledEditor::reminderToSave() const {
    ScheduledTransaction reminder = draft;
    reminder.accountID = *accountID;
    reminder.amount = kind == Kind::income ? amount.magnitude() : -amount.magnitude();
    reminder.transferAccountID = isTransfer() ? transferID : std::nullopt;
    if (isTransfer()) {
        reminder.categoryID.reset();
    }
    reminder.endDate = hasEndDate ? std::optional(endDate) : std::nullopt;
    return reminder;
}

void ScheduledEditor::save() {
    if (!accountID) {
        return;
    }
    environment_.store.mutate(title(), [this, reminder = reminderToSave()](Library& library) {
        ScheduledTransaction filed = reminder;
        filed.categoryID =
            plan_.made(library, filed.categoryID,
                       kind == Kind::income ? CategoryKind::income : CategoryKind::expense);
        upsert(library, std::move(filed));
    });
}

std::optional<ConfirmationRequest> ScheduledEditor::deleteConfirmation() const {
    if (isNew()) {
        return std::nullopt;
    }
    ConfirmationRequest confirmation = destructiveConfirmation("Delete Reminder");
    confirmation.subject = quoted(drawnText(draft.payee)) + ", " +
                           currencyText(draft.amount, environment_.currencyCode());
    return confirmation;
}

void ScheduledEditor::performDelete() {
    environment_.store.mutate("Delete Reminder", [this](Library& library) {
        library.scheduled.eraseIf(
            [this](const ScheduledTransaction& each) { return each.id == scheduledID_; });
    });
}

} // namespace oakfen
