#pragma once

#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// The last whole months before that of `now`.
[[nodiscard]] DateInterval wholeMonthsBefore(Date now, int months, const Calendar& calendar);

/// What became of the category in one of these months on average, as a budget counts it: its own
/// lines alone, and all the months, whether the ledger goes back that far or not. Not rounded.
[[nodiscard]] Decimal monthlyAverage(const LibraryIndex& index, const UUID& categoryID, int months,
                                     Date now, const Calendar& calendar);

/// Sets the budget of each category to its average over the last whole months, rounded up to the
/// next whole unit. A category without a positive average keeps what it has. The index is that of
/// the library as it was.
void autofill(Library& library, const LibraryIndex& index, int months, Date now,
              const Calendar& calendar);

} // namespace oakfen
