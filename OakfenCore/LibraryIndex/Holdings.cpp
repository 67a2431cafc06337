// Positions at average cost: every sale takes its share of what the shares held have cost.
#include "OakfenCore/LibraryIndex/Holdings.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

#include "OakfenCore/Models/InvestmentAmounts.h"

namespace oakfen {

namespace {

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

void HoldingsHistory::Position::takeAway(const InvestmentTransaction& row) {
    const Decimal sold = std::min(shares, row.shares);
    const Decimal removed = shares.isPositive() ? basis * sold / shares : Decimal();
    if (row.action == InvestmentAction::sell) {
        realized += sold * row.price - row.commission - removed;
    }
    shares -= sold;
    basis -= removed;
}

void HoldingsHistory::Position::apply(const InvestmentTransaction& row) {
    switch (row.action) {
    case InvestmentAction::buy:
        shares += row.shares;
        basis += row.shares * row.price + row.commission;
        break;
    case InvestmentAction::reinvest:
    case InvestmentAction::sharesIn:
        shares += row.shares;
        basis += row.shares * row.price;
        break;
    case InvestmentAction::sell:
    case InvestmentAction::sharesOut:
        takeAway(row);
        break;
    case InvestmentAction::dividend:
    case InvestmentAction::interest:
        break;
    }
}

HoldingsHistory::HoldingsHistory(std::span<const InvestmentTransaction* const> rows,
                                 SecurityLookup security)
    : security_(std::move(security)) {
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(rows_),
                 [](const InvestmentTransaction* row) { return row->securityID.has_value(); });
    std::stable_sort(rows_.begin(), rows_.end(),
                     [](const auto* a, const auto* b) { return a->date < b->date; });
}

std::vector<Holding> HoldingsHistory::at(const std::optional<Date>& instant) {
    for (; next_ < rows_.size() && (!instant || rows_[next_]->date <= *instant); ++next_) {
        positions_[*rows_[next_]->securityID].apply(*rows_[next_]);
    }
    std::vector<Holding> holdings;
    for (const auto& [id, position] : positions_) {
        const Security* held = security_(id);
        if (held == nullptr || (position.shares.isZero() && position.realized.isZero())) {
            continue;
        }
        holdings.push_back({.securityID = id,
                            .shares = position.shares,
                            .costBasis = position.basis.toCents(),
                            .price = instant ? priceOn(*held, *instant) : held->price,
                            .realizedGain = position.realized.toCents()});
    }
    sortByValue(holdings, security_);
    return holdings;
}

std::vector<Holding> computeHoldings(std::span<const InvestmentTransaction* const> rows,
                                     const SecurityLookup& security,
                                     const std::optional<Date>& asOf) {
    return HoldingsHistory(rows, security).at(asOf);
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
