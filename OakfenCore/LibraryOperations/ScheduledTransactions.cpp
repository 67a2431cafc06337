#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"

#include <utility>

#include "OakfenCore/LibraryOperations/ReplaceOrAppend.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Models/Money.h"

namespace oakfen {

namespace {

constexpr std::size_t maxOccurrences = 500;
constexpr std::size_t maxAutoEntries = 1000;

/// Moves the reminder to its next date, or removes it after its last.
void advanceScheduled(Library& library, std::size_t index, const Calendar& calendar) {
    const ScheduledTransaction& reminder = library.scheduled[index];
    const auto following = next(reminder.frequency, reminder.nextDate, calendar);
    if (!following || (reminder.endDate && *following > *reminder.endDate)) {
        library.scheduled.erase(index);
        return;
    }
    library.scheduled.edit(index).nextDate = *following;
}

std::optional<std::size_t> indexOf(const Library& library, const UUID& id) {
    return library.scheduled.firstIndex(
        [&](const ScheduledTransaction& candidate) { return candidate.id == id; });
}

Transaction enter(Library& library, std::size_t index, const std::optional<Decimal>& amount,
                  const std::optional<Date>& date, const Calendar& calendar) {
    const ScheduledTransaction& reminder = library.scheduled[index];
    Transaction entry{.id = UUID::random(),
                      .accountID = reminder.accountID,
                      .date = date.value_or(reminder.nextDate),
                      .payee = reminder.payee,
                      .amount = amount.value_or(reminder.amount),
                      .categoryID = reminder.categoryID,
                      .transferAccountID = reminder.transferAccountID,
                      .memo = reminder.memo};
    // Catching up must not look through a long ledger once for each entry.
    appendNew(library, entry);
    advanceScheduled(library, index, calendar);
    return entry;
}

} // namespace

bool isIncome(const ScheduledTransaction& reminder) {
    return reminder.amount.isPositive() && !reminder.isTransfer();
}

std::vector<Date> occurrences(const ScheduledTransaction& reminder, Date end,
                              const Calendar& calendar) {
    std::vector<Date> dates;
    std::optional<Date> cursor = reminder.nextDate;
    while (cursor && *cursor <= end && dates.size() < maxOccurrences &&
           !(reminder.endDate && *cursor > *reminder.endDate)) {
        dates.push_back(*cursor);
        cursor = next(reminder.frequency, *cursor, calendar);
    }
    return dates;
}

void upsert(Library& library, ScheduledTransaction reminder) {
    replaceOrAppend(library.scheduled, std::move(reminder));
}

std::optional<Transaction> enterScheduled(Library& library, const UUID& id,
                                          const std::optional<Decimal>& amount,
                                          const std::optional<Date>& date,
                                          const Calendar& calendar) {
    const auto index = indexOf(library, id);
    if (!index) {
        return std::nullopt;
    }
    return enter(library, *index, amount, date, calendar);
}

Transaction enterScheduledAt(Library& library, std::size_t place, const Calendar& calendar) {
    return enter(library, place, std::nullopt, std::nullopt, calendar);
}

void skipScheduled(Library& library, const UUID& id, const Calendar& calendar) {
    if (const auto index = indexOf(library, id)) {
        advanceScheduled(library, *index, calendar);
    }
}

std::size_t processAutoEnter(Library& library, Date now, const Calendar& calendar) {
    const Date cutoff = calendar.endOfDay(now);
    for (std::size_t count = 0; count < maxAutoEntries; ++count) {
        // From the top each time: the first overdue reminder is caught up before the next one.
        const ScheduledTransaction* due =
            library.scheduled.first([&](const ScheduledTransaction& reminder) {
                return reminder.autoEnter && reminder.nextDate <= cutoff;
            });
        if (due == nullptr) {
            return count;
        }
        const UUID id = due->id;
        enterScheduled(library, id, std::nullopt, std::nullopt, calendar);
    }
    return maxAutoEntries;
}

} // namespace oakfen
