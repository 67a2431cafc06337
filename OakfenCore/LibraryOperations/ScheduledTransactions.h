#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

/// Bills and income that come again, and how an occurrence becomes an entry.
namespace oakfen {

/// Money that comes in; a transfer is never income.
[[nodiscard]] bool isIncome(const ScheduledTransaction& reminder);

/// The due dates from the next one to `end`, oldest first, at most 500.
[[nodiscard]] std::vector<Date> occurrences(const ScheduledTransaction& reminder, Date end,
                                            const Calendar& calendar);

/// Replaces the reminder with that id in place, else appends it.
void upsert(Library& library, ScheduledTransaction reminder);

/// Enters the next occurrence, with another amount or date where one is given, and moves the
/// reminder on. The schedule follows its own date, not the one entered. Returns the entry; nothing
/// when no reminder has that id.
std::optional<Transaction> enterScheduled(Library& library, const UUID& id,
                                          const std::optional<Decimal>& amount,
                                          const std::optional<Date>& date,
                                          const Calendar& calendar);

/// Likewise for the reminder at that place of the document, which there must be, as planned. Of two
/// records with one id it takes the one that is meant.
Transaction enterScheduledAt(Library& library, std::size_t place, const Calendar& calendar);

/// Moves the reminder on without an entry; one that comes once disappears.
void skipScheduled(Library& library, const UUID& id, const Calendar& calendar);

/// Enters every occurrence up to the end of today of the reminders that enter themselves, each on
/// its own date. Stops at 1000 entries and leaves the rest for the next time. Returns how many.
std::size_t processAutoEnter(Library& library, Date now, const Calendar& calendar);

} // namespace oakfen
