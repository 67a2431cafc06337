#pragma once

#include <cstddef>
#include <mutex>
#include <span>
#include <vector>

#include "OakfenCore/LibraryIndex/EntryTotals.h"
#include "OakfenCore/LibraryIndex/Holdings.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// The order of one account's register: by instant, then deposits first, then by payee. Entries
/// that agree in all of these keep the document's order, since every sort by it is stable.
[[nodiscard]] bool precedesInLedger(const Transaction& a, const Transaction& b);

/// The entries, investment rows and balances that share an account id, which need not name an
/// account. Made in one go: the accounts of the id, then entries and rows, then `finish`.
class AccountLedger {
public:
    explicit AccountLedger(const UUID& id) : id_(id) {}

    [[nodiscard]] const UUID& id() const { return id_; }

    /// Notes an account of this id; of several, the last one's opening balance counts.
    void begin(const Decimal& openingBalance);
    void add(const Transaction& entry, Date cutOff) {
        totals_.add(entry, cutOff);
        if (hasAccount_ && !placed_.empty()) {
            noteOrder(entry);
        }
        placed_.push_back({entry.date, &entry});
    }
    void add(const InvestmentTransaction& row) { rows_.push_back(&row); }
    /// Puts the entries in order and works out the figures and the holdings.
    void finish(Date cutOff, const SecurityLookup& security);

    /// Of entries and investment rows; zero where there is no account.
    [[nodiscard]] const CashFigures& figures() const { return figures_; }
    [[nodiscard]] const std::vector<Holding>& holdings() const { return holdings_; }
    /// In ledger order; in document order where there is no account.
    [[nodiscard]] std::span<const Transaction* const> entries() const { return entries_; }
    /// Those of the interval; all of them where there is no account.
    [[nodiscard]] std::span<const Transaction* const> entries(const DateInterval& interval) const;
    /// From the first entry to the last; none without entries.
    [[nodiscard]] std::optional<DateInterval> dates() const;
    /// Whether sums of the entries' amounts are the same in any order.
    [[nodiscard]] bool sumsAreExact() const { return totals_.areExact(); }
    [[nodiscard]] std::span<const InvestmentTransaction* const> rows() const { return rows_; }

    /// The cash just after each of the entries; empty where there is no account. Made when first
    /// asked for.
    [[nodiscard]] const std::vector<Decimal>& runningBalances() const;
    /// The running balance of one of the entries.
    [[nodiscard]] Decimal runningBalance(const Transaction& entry) const;
    /// That opening balance and all entries up to and including each of the instants, which
    /// ascend.
    [[nodiscard]] std::vector<Decimal> cash(const Decimal& openingBalance,
                                            std::span<const Date> instants) const;

private:
    /// An entry with its date beside it, so that most comparisons touch no record.
    struct Placed {
        Date date;
        const Transaction* entry = nullptr;
    };

    [[nodiscard]] static bool precedes(const Placed& a, const Placed& b) {
        return a.date < b.date || (a.date == b.date && precedesInLedger(*a.entry, *b.entry));
    }
    /// Looks at an entry before it is placed behind the others.
    void noteOrder(const Transaction& entry) {
        const Placed& last = placed_.back();
        if (last.date != entry.date) {
            closeInstant();
            isOrdered_ = isOrdered_ && last.date < entry.date;
        } else if (precedesInLedger(entry, *last.entry)) {
            instantIsOrdered_ = false;
        }
    }
    void closeInstant();
    /// The first entry after that instant, where there is an account.
    [[nodiscard]] std::vector<const Transaction*>::const_iterator firstAfter(Date instant) const;

    UUID id_;
    bool hasAccount_ = false;
    bool isOrdered_ = true;        // by date
    bool instantIsOrdered_ = true; // the entries from `instantStart_` on, which share a date
    std::size_t instantStart_ = 0;
    Decimal openingBalance_;
    EntryTotals totals_;
    CashFigures figures_;
    std::vector<Placed> placed_; // only until `finish`
    std::vector<const Transaction*> entries_;
    std::vector<const InvestmentTransaction*> rows_;
    std::vector<Holding> holdings_;
    mutable std::once_flag runningOnce_;
    mutable std::vector<Decimal> running_;
};

} // namespace oakfen
