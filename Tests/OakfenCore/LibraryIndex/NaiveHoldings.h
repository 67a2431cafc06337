#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "OakfenCore/LibraryIndex/Holdings.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen::testing {

/// The price by going through the history point by point.
inline Decimal naivePrice(const Security& security, const std::optional<Date>& asOf) {
    if (!asOf || security.priceHistory.empty()) {
        return security.price;
    }
    const PricePoint* best = nullptr;
    const PricePoint* oldest = nullptr;
    for (const PricePoint& point : security.priceHistory) {
        if (point.date <= *asOf && (best == nullptr || point.date >= best->date)) {
            best = &point;
        }
        if (oldest == nullptr || point.date < oldest->date) {
            oldest = &point;
        }
    }
    return best != nullptr ? best->price : oldest->price;
}

/// What an account holds, worked out security by security.
inline std::map<UUID, Holding> naiveHoldings(const Library& library, const UUID& accountID,
                                             const std::optional<Date>& asOf) {
    std::map<UUID, Holding> holdings;
    for (const Security& security : library.securities) {
        std::vector<InvestmentTransaction> rows;
        for (const InvestmentTransaction& row : library.investmentTransactions) {
            if (row.accountID == accountID && row.securityID == security.id &&
                (!asOf || row.date <= *asOf)) {
                rows.push_back(row);
            }
        }
        std::stable_sort(rows.begin(), rows.end(),
                         [](const auto& a, const auto& b) { return a.date < b.date; });
        Decimal shares;
        Decimal basis;
        Decimal realized;
        for (const InvestmentTransaction& row : rows) {
            if (row.action == InvestmentAction::buy) {
                basis += row.commission;
            }
            if (row.action == InvestmentAction::buy || row.action == InvestmentAction::reinvest ||
                row.action == InvestmentAction::sharesIn) {
                shares += row.shares;
                basis += row.shares * row.price;
            }
            if (row.action == InvestmentAction::sell || row.action == InvestmentAction::sharesOut) {
                const Decimal sold = row.shares < shares ? row.shares : shares;
                const Decimal removed = shares.isZero() ? Decimal() : basis * sold / shares;
                if (row.action == InvestmentAction::sell) {
                    realized += sold * row.price - row.commission - removed;
                }
                shares -= sold;
                basis -= removed;
            }
        }
        if (!shares.isZero() || !realized.isZero()) {
            holdings[security.id] = {security.id, shares, basis.rounded(2, RoundingMode::plain),
                                     naivePrice(security, asOf),
                                     realized.rounded(2, RoundingMode::plain)};
        }
    }
    return holdings;
}

inline Decimal naiveValue(const std::map<UUID, Holding>& holdings) {
    Decimal total;
    for (const auto& [id, holding] : holdings) {
        total += holding.shares * holding.price;
    }
    return total;
}

/// What every account id that has rows holds together.
inline std::map<UUID, Holding> naiveHoldingsOfAll(const Library& library) {
    std::set<UUID> accountIDs;
    for (const InvestmentTransaction& row : library.investmentTransactions) {
        accountIDs.insert(row.accountID);
    }
    std::map<UUID, Holding> merged;
    for (const UUID& accountID : accountIDs) {
        for (const auto& [id, holding] : naiveHoldings(library, accountID, std::nullopt)) {
            Holding& total = merged[id];
            total.securityID = id;
            total.shares += holding.shares;
            total.costBasis += holding.costBasis;
            total.price = holding.price;
            total.realizedGain += holding.realizedGain;
        }
    }
    std::erase_if(merged, [](const auto& item) { return item.second.shares.isZero(); });
    return merged;
}

} // namespace oakfen::testing
