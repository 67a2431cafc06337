// Positions at average cost: every sale takes its share of what the shares held have cost.
#include "OakfenCore/LibraryIndex/Holdings.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "OakfenCore/Models/InvestmentAmounts.h"

namespace oakfen {

namespace {

struct Position {
    Decimal shares;
    Decimal basis;
    Decimal realized;
};

void takeAway(Position& position, const InvestmentTransaction& row) {
    const Decimal sold = std::min(position.shares, row.shares);
    const Decimal removed =
        position.shares.isPositive() ? position.basis * sold / position.shares : Decimal();
    if (row.action == InvestmentAction::sell) {
        position.realized += sold * row.price - row.commission - removed;
    }
    position.shares -= sold;
    position.basis -= removed;
}

void apply(Position& position, const InvestmentTransaction& row) {
    switch (row.action) {
    case InvestmentAction::buy:
        position.shares += row.shares;
        position.basis += row.shares * row.price + row.commission;
        break;
    case InvestmentAction::reinvest:
    case InvestmentAction::sharesIn:
        position.shares += row.shares;
        position.basis += row.shares * row.price;
        break;
    case InvestmentAction::sell:
    case InvestmentAction::sharesOut:
        takeAway(position, row);
        break;
    case InvestmentAction::dividend:
    case InvestmentAction::interest:
        break;
    }
}

Decimal toCents(const Decimal& amount) {
    return amount.rounded(2, RoundingMode::plain);
}

/// The most valuable first; then by name and id, so that rows never jump.
void sortByValue(std::vector<Holding>& holdings, const SecurityLookup& security) {
    std::sort(holdings.begin(), holdings.end(), [&](const Holding& a, const Holding& b) {
        const Decimal valueA = a.marketValue();
        const Decimal valueB = b.marketValue();
        if (valueA != valueB) {
            return valueA > valueB;
        }
        return std::tie(security(a.securityID)->name, a.securityID) <
               std::tie(security(b.securityID)->name, b.securityID);
    });
}

} // namespace

std::vector<Holding> computeHoldings(std::span<const InvestmentTransaction* const> rows,
                                     const SecurityLookup& security,
                                     const std::optional<Date>& asOf) {
    std::vector<const InvestmentTransaction*> ordered;
    for (const InvestmentTransaction* row : rows) {
        if (row->securityID && (!asOf || row->date <= *asOf)) {
            ordered.push_back(row);
        }
    }
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const auto* a, const auto* b) { return a->date < b->date; });
    std::map<UUID, Position> positions;
    for (const InvestmentTransaction* row : ordered) {
        apply(positions[*row->securityID], *row);
    }

    std::vector<Holding> holdings;
    for (const auto& [id, position] : positions) {
        const Security* held = security(id);
        if (held == nullptr || (position.shares.isZero() && position.realized.isZero())) {
            continue;
        }
        holdings.push_back({.securityID = id,
                            .shares = position.shares,
                            .costBasis = toCents(position.basis),
                            .price = asOf ? priceOn(*held, *asOf) : held->price,
                            .realizedGain = toCents(position.realized)});
    }
    sortByValue(holdings, security);
    return holdings;
}

std::vector<Holding> mergeHoldings(std::span<const std::vector<Holding>* const> accounts,
                                   const SecurityLookup& security) {
    std::map<UUID, Holding> merged;
    for (const std::vector<Holding>* account : accounts) {
        for (const Holding& holding : *account) {
            Holding& total = merged[holding.securityID];
            total.securityID = holding.securityID;
            total.shares += holding.shares;
            total.costBasis += holding.costBasis;
            total.realizedGain += holding.realizedGain;
        }
    }
    std::vector<Holding> holdings;
    for (auto& [id, holding] : merged) {
        const Security* held = security(id);
        if (held != nullptr && !holding.shares.isZero()) {
            holding.price = held->price;
            holdings.push_back(holding);
        }
    }
    sortByValue(holdings, security);
    return holdings;
}

} // namespace oakfen
