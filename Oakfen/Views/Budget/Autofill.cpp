#include "Oakfen/Views/Budget/Autofill.h"

#include "OakfenCore/LibraryIndex/PeriodTotals.h"

namespace oakfen {

DateInterval wholeMonthsBefore(Date now, int months, const Calendar& calendar) {
    const Date thisMonth = calendar.startOfMonth(now);
    // Where this month began later than at midnight, those before it didn't.
    const Date start = calendar.startOfMonth(calendar.addingMonths(thisMonth, -months));
    return {start, thisMonth.adding(-1)};
}

Decimal monthlyAverage(const LibraryIndex& index, const UUID& categoryID, int months, Date now,
                       const Calendar& calendar) {
    const DateInterval interval = wholeMonthsBefore(now, months, calendar);
    return actual(index, categoryID, interval, false) / Decimal(months);
}

void autofill(Library& library, const LibraryIndex& index, int months, Date now,
              const Calendar& calendar) {
    for (const Category& category : library.categories) {
        const Decimal average =
            monthlyAverage(index, category.id, months, now, calendar).rounded(0, RoundingMode::up);
        if (average.isPositive()) {
            library.budget[category.id] = average;
        }
    }
}

} // namespace oakfen
