#include "OakfenCore/LibraryIndex/AccountLedger.h"

#include <algorithm>
#include <cstddef>

#include "OakfenCore/LibraryIndex/Sorting.h"
#include "OakfenCore/Models/InvestmentAmounts.h"

namespace oakfen {

bool precedesInLedger(const Transaction& a, const Transaction& b) {
    if (a.date != b.date) {
        return a.date < b.date;
    }
    if (a.amount != b.amount) {
        return a.amount > b.amount;
    }
    return a.payee < b.payee;
}

void AccountLedger::begin(const Decimal& openingBalance) {
    hasAccount_ = true;
    openingBalance_ = openingBalance;
}

/// Banks date by the day, so many entries share an instant and stand in any order. They are sorted
/// as soon as their day is over, while the records are still at hand.
void AccountLedger::closeInstant() {
    if (!instantIsOrdered_) {
        std::stable_sort(placed_.begin() + static_cast<std::ptrdiff_t>(instantStart_),
                         placed_.end(), precedes);
    }
    instantIsOrdered_ = true;
    instantStart_ = placed_.size();
}

void AccountLedger::finish(Date cutOff, const SecurityLookup& security) {
    closeInstant();
    if (!isOrdered_) {
        sortNoticingOrder(placed_, precedes);
    }
    entries_.reserve(placed_.size());
    for (const Placed& placed : placed_) {
        entries_.push_back(placed.entry);
    }
    placed_ = {};
    holdings_ = computeHoldings(rows_, security, std::nullopt);
    if (!hasAccount_) {
        return;
    }
    if (totals_.areExact(openingBalance_)) {
        figures_ = totals_.figures(openingBalance_);
    } else {
        figures_ = CashFigures::opening(openingBalance_);
        for (const Transaction* entry : entries_) {
            figures_.add(*entry, cutOff);
        }
    }
    for (const InvestmentTransaction* row : rows_) {
        const Decimal effect = cashEffect(*row);
        figures_.ending += effect;
        figures_.cleared += effect;
        if (row->date <= cutOff) {
            figures_.current += effect;
        }
    }
}

const std::vector<Decimal>& AccountLedger::runningBalances() const {
    std::call_once(runningOnce_, [this] {
        if (!hasAccount_) {
            return;
        }
        running_.reserve(entries_.size());
        Decimal total = openingBalance_;
        for (const Transaction* entry : entries_) {
            total += entry->amount;
            running_.push_back(total);
        }
    });
    return running_;
}

Decimal AccountLedger::runningBalance(const Transaction& entry) const {
    if (!hasAccount_) {
        return Decimal();
    }
    auto found = std::lower_bound(
        entries_.begin(), entries_.end(), &entry,
        [](const Transaction* a, const Transaction* b) { return precedesInLedger(*a, *b); });
    found = std::find(found, entries_.end(), &entry);
    return runningBalances()[static_cast<std::size_t>(found - entries_.begin())];
}

Decimal AccountLedger::cash(const Decimal& openingBalance, Date asOf) const {
    if (hasAccount_ && openingBalance == openingBalance_) {
        const auto after = std::upper_bound(
            entries_.begin(), entries_.end(), asOf,
            [](Date date, const Transaction* entry) { return date < entry->date; });
        return after == entries_.begin()
                   ? openingBalance
                   : runningBalances()[static_cast<std::size_t>(after - entries_.begin()) - 1];
    }
    Decimal total = openingBalance;
    for (const Transaction* entry : entries_) {
        if (entry->date <= asOf) {
            total += entry->amount;
        }
    }
    return total;
}

} // namespace oakfen
