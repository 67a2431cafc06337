#include "OakfenCore/Models/InvestmentAmounts.h"

#include <algorithm>

namespace oakfen {

Decimal cashEffect(const InvestmentTransaction& row) {
    switch (row.action) {
    case InvestmentAction::buy:
        return -(row.shares * row.price + row.commission);
    case InvestmentAction::sell:
        return row.shares * row.price - row.commission;
    case InvestmentAction::dividend:
    case InvestmentAction::interest:
        return row.amount;
    case InvestmentAction::reinvest:
    case InvestmentAction::sharesIn:
    case InvestmentAction::sharesOut:
        break;
    }
    return Decimal();
}

Decimal grossValue(const InvestmentTransaction& row) {
    switch (row.action) {
    case InvestmentAction::dividend:
    case InvestmentAction::interest:
        return row.amount;
    case InvestmentAction::buy:
    case InvestmentAction::sell:
    case InvestmentAction::reinvest:
    case InvestmentAction::sharesIn:
    case InvestmentAction::sharesOut:
        break;
    }
    return row.shares * row.price;
}

Decimal shareDelta(const InvestmentTransaction& row) {
    switch (row.action) {
    case InvestmentAction::buy:
    case InvestmentAction::reinvest:
    case InvestmentAction::sharesIn:
        return row.shares;
    case InvestmentAction::sell:
    case InvestmentAction::sharesOut:
        return -row.shares;
    case InvestmentAction::dividend:
    case InvestmentAction::interest:
        break;
    }
    return Decimal();
}

Decimal priceOn(const Security& security, Date date) {
    const std::vector<PricePoint>& history = security.priceHistory;
    if (history.empty()) {
        return security.price;
    }
    if (date < history.front().date) {
        return history.front().price;
    }
    const auto point = std::find_if(history.rbegin(), history.rend(),
                                    [&](const PricePoint& each) { return each.date <= date; });
    return point == history.rend() ? security.price : point->price;
}

} // namespace oakfen
