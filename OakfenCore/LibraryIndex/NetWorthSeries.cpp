#include "OakfenCore/LibraryIndex/NetWorthSeries.h"

#include <algorithm>

namespace oakfen {

namespace {

NetWorthPoint valueAt(const LibraryIndex& index, Date date) {
    NetWorthPoint point{.date = date};
    for (const Account& account : index.library().accounts) {
        const Decimal balance = index.balance(account, date);
        (balance.isNegative() ? point.liabilities : point.assets) += balance;
    }
    point.assets = point.assets.rounded(2, RoundingMode::plain);
    point.liabilities = point.liabilities.rounded(2, RoundingMode::plain);
    return point;
}

} // namespace

std::vector<NetWorthPoint> netWorthSeries(const LibraryIndex& index, int months,
                                          const Calendar& calendar) {
    const Date thisMonth = calendar.startOfMonth(index.now());
    std::optional<Date> firstOpening;
    for (const Account& account : index.library().accounts) {
        firstOpening = std::min(firstOpening.value_or(account.openingDate), account.openingDate);
    }
    const Date firstMonth = calendar.startOfMonth(firstOpening.value_or(index.now()));

    std::vector<NetWorthPoint> series;
    for (int remaining = months; remaining >= 1; --remaining) {
        const Date start = calendar.addingMonths(thisMonth, 1 - remaining);
        if (start >= firstMonth) {
            const bool isPresent = remaining == 1;
            series.push_back(valueAt(index, isPresent ? index.now() : calendar.endOfMonth(start)));
        }
    }
    return series;
}

} // namespace oakfen
