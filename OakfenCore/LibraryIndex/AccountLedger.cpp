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

std::span<const Transaction* const> AccountLedger::entries(const DateInterval& interval) const {
    if (!hasAccount_) {
        return entries_;
    }
    const auto first =
        std::lower_bound(entries_.begin(), entries_.end(), interval.start,
                         [](const Transaction* entry, Date start) { return entry->date < start; });
    // An interval that ends before it starts holds nothing.
    return {first, std::max(first, firstAfter(interval.end))};
}

std::optional<DateInterval> AccountLedger::dates() const {
    if (entries_.empty()) {
        return std::nullopt;
    }
    if (hasAccount_) {
        return DateInterval{entries_.front()->date, entries_.back()->date};
    }
    const auto [first, last] = std::minmax_element(
        entries_.begin(), entries_.end(),
        [](const Transaction* a, const Transaction* b) { return a->date < b->date; });
    return DateInterval{(*first)->date, (*last)->date};
}

std::vector<const Transaction*>::const_iterator AccountLedger::firstAfter(Date instant) const {
    return std::upper_bound(entries_.begin(), entries_.end(), instant,
                            [](Date date, const Transaction* entry) { return date < entry->date; });
}

std::vector<Decimal> AccountLedger::cash(const Decimal& openingBalance,
                                         std::span<const Date> instants) const {
    std::vector<Decimal> balances;
    if (!hasAccount_) {
        for (const Date instant : instants) {
            Decimal total = openingBalance;
            for (const Transaction* entry : entries_) {
                total += entry->date <= instant ? entry->amount : Decimal();
            }
            balances.push_back(total);
        }
        return balances;
    }
    auto next = entries_.begin();
    Decimal total = openingBalance;
    if (totals_.areExact(openingBalance) && !instants.empty()) {
        // A history mostly begins near its end, so it is quicker to go back from there.
        const auto start = firstAfter(instants.front());
        if (entries_.end() - start < start - entries_.begin()) {
            next = start;
            total = totals_.figures(openingBalance).ending;
            for (auto later = start; later != entries_.end(); ++later) {
                total -= (*later)->amount;
            }
        }
    }
    for (const Date instant : instants) {
        for (; next != entries_.end() && (*next)->date <= instant; ++next) {
            total += (*next)->amount;
        }
        balances.push_back(total);
    }
    return balances;
}

} // namespace oakfen
