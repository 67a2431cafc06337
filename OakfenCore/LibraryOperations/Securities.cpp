#include "OakfenCore/LibraryOperations/Securities.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/LibraryOperations/ReplaceOrAppend.h"

namespace oakfen {

void upsert(Library& library, Security security) {
    replaceOrAppend(library.securities, std::move(security));
}

void updatePrice(Library& library, const UUID& securityID, const Decimal& price, Date date,
                 const Calendar& calendar) {
    const auto index = library.securities.firstIndex(
        [&](const Security& candidate) { return candidate.id == securityID; });
    if (!index || !price.isPositive()) {
        return;
    }
    Security& security = library.securities.edit(*index);
    security.price = price;
    const Date day = calendar.startOfDay(date);
    std::erase_if(security.priceHistory,
                  [&](const PricePoint& point) { return calendar.startOfDay(point.date) == day; });
    security.priceHistory.push_back({date, price});
    std::stable_sort(security.priceHistory.begin(), security.priceHistory.end(),
                     [](const PricePoint& a, const PricePoint& b) { return a.date < b.date; });
}

void deleteSecurity(Library& library, const UUID& id) {
    library.securities.eraseIf([&](const Security& candidate) { return candidate.id == id; });
    library.investmentTransactions.eraseIf(
        [&](const InvestmentTransaction& row) { return row.securityID == id; });
}

void upsert(Library& library, InvestmentTransaction row) {
    replaceOrAppend(library.investmentTransactions, std::move(row));
}

void deleteInvestmentTransactions(Library& library, const UUIDSet& ids) {
    library.investmentTransactions.eraseIf(
        [&](const InvestmentTransaction& row) { return ids.contains(row.id); });
}

} // namespace oakfen
