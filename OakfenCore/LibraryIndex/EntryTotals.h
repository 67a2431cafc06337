#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "OakfenCore/Models/Records.h"

namespace oakfen {

/// A sum of amounts of everyday size: exact, hence the same in any order, and without the work of
/// bringing each step into canonical form.
class ExactSum {
public:
    /// Whether the value is of everyday size; others must not be added.
    [[nodiscard]] static bool fits(const Decimal& value) {
        return value.exponent() >= -places && value.exponent() <= highestExponent &&
               value.coefficient() == static_cast<std::int64_t>(value.coefficient());
    }
    void add(const Decimal& value) {
        units_ +=
            value.coefficient() * powersOfTen[static_cast<std::size_t>(value.exponent() + places)];
    }
    [[nodiscard]] Decimal value() const { return Decimal::make(units_, -places); }

    friend ExactSum operator+(ExactSum a, const ExactSum& b) {
        a.units_ += b.units_;
        return a;
    }

private:
    // A 63-bit coefficient times 10^9 has 93 bits, so 2^32 of them stay under 38 digits.
    static constexpr int places = 6;
    static constexpr int highestExponent = 3;
    static constexpr std::array<std::int64_t, places + highestExponent + 1> powersOfTen{
        1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};

    Int128 units_ = 0; // of 10^-places
};

/// The four sums of an account's entries on top of its opening balance.
struct CashFigures {
    Decimal ending;
    Decimal current;
    Decimal cleared;
    Decimal reconciled;

    /// All at the opening balance.
    [[nodiscard]] static CashFigures opening(const Decimal& balance) {
        return {balance, balance, balance, balance};
    }
    void add(const Transaction& entry, Date cutOff);
};

/// Gathers the figures of one account while its entries pass by in the document's order.
class EntryTotals {
public:
    void add(const Transaction& entry, Date cutOff) {
        isExact_ = isExact_ && ExactSum::fits(entry.amount);
        if (isExact_) {
            const std::size_t time = entry.date <= cutOff ? 0 : 1;
            sums_[static_cast<std::size_t>(entry.cleared)][time].add(entry.amount);
        }
    }
    /// Whether all amounts are of everyday size, so that sums of them are exact in any order.
    [[nodiscard]] bool areExact() const { return isExact_; }
    /// Whether the sums are exact on top of that opening balance. Where they are not, digits are
    /// rounded away, and the figures must be added up in ledger order.
    [[nodiscard]] bool areExact(const Decimal& openingBalance) const {
        return isExact_ && ExactSum::fits(openingBalance);
    }
    [[nodiscard]] CashFigures figures(const Decimal& openingBalance) const;

private:
    std::array<std::array<ExactSum, 2>, 3> sums_; // by state; up to the cut-off and after it
    bool isExact_ = true;
};

} // namespace oakfen
