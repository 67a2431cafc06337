#include "OakfenCore/LibraryIndex/NetWorthSeries.h"

#include <algorithm>

namespace oakfen {

std::vector<NetWorthPoint> netWorthSeries(const LibraryIndex& index, int months,
                                          const Calendar& calendar) {
    const Date thisMonth = calendar.startOfMonth(index.now());
    std::optional<Date> firstOpening;
    for (const Account& account : index.library().accounts) {
        firstOpening = std::min(firstOpening.value_or(account.openingDate), account.openingDate);
    }
    const Date firstMonth = calendar.startOfMonth(firstOpening.value_or(index.now()));

    std::vector<Date> instants;
    for (int remaining = months; remaining >= 1; --remaining) {
        const Date start = calendar.addingMonths(thisMonth, 1 - remaining);
        if (start >= firstMonth) {
            const bool isPresent = remaining == 1;
            instants.push_back(isPresent ? index.now() : calendar.endOfMonth(start));
        }
    }
    std::vector<NetWorthPoint> series;
    for (const Date instant : instants) {
        series.push_back({.date = instant});
    }
    for (const Account& account : index.library().accounts) {
        const std::vector<Decimal> balances = index.balances(account, instants);
        for (std::size_t point = 0; point < series.size(); ++point) {
            const Decimal& balance = balances[point];
            (balance.isNegative() ? series[point].liabilities : series[point].assets) += balance;
        }
    }
    for (NetWorthPoint& point : series) {
        point.assets = point.assets.toCents();
        point.liabilities = point.liabilities.toCents();
    }
    return series;
}

} // namespace oakfen
