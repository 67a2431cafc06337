#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "OakfenCore/Models/Records.h"

namespace oakfen {

/// What an account, or all of them, hold of one security.
struct Holding {
    UUID securityID;
    /// Unrounded.
    Decimal shares;
    /// What the shares held have cost, on average; to the cent.
    Decimal costBasis;
    /// A share's price, for valuing.
    Decimal price;
    /// Gained or lost on what was sold; to the cent.
    Decimal realizedGain;

    [[nodiscard]] Decimal marketValue() const { return shares * price; }
    /// The gain that is not realised.
    [[nodiscard]] Decimal gain() const { return marketValue() - costBasis; }

    friend bool operator==(const Holding&, const Holding&) = default;
};

/// Finds a security by its id; null for an unknown one.
using SecurityLookup = std::function<const Security*(const UUID&)>;

/// The positions that the rows (in document order) leave, at average cost: those with shares or a
/// realised gain, the most valuable first, then by name and id. With `asOf`, only rows up to that
/// instant count and the price is that date's.
[[nodiscard]] std::vector<Holding>
computeHoldings(std::span<const InvestmentTransaction* const> rows, const SecurityLookup& security,
                const std::optional<Date>& asOf);

/// The positions of one account from instant to instant, each row being looked at only once.
class HoldingsHistory {
public:
    /// The rows, in document order, and what the lookup rests on must outlive the history.
    HoldingsHistory(std::span<const InvestmentTransaction* const> rows, SecurityLookup security);

    /// What `computeHoldings` returns for that instant, which must not be before an earlier one.
    [[nodiscard]] std::vector<Holding> at(const std::optional<Date>& instant);

private:
    struct Position {
        Decimal shares;
        Decimal basis;
        Decimal realized;

        void apply(const InvestmentTransaction& row);
        void takeAway(const InvestmentTransaction& row);
    };

    SecurityLookup security_;
    std::vector<const InvestmentTransaction*> rows_; // in order of date
    std::size_t next_ = 0;                           // the first row that isn't in the positions
    std::map<UUID, Position> positions_;
};

/// One position a security over several accounts; without those that are sold out.
[[nodiscard]] std::vector<Holding>
mergeHoldings(std::span<const std::vector<Holding>* const> accounts,
              const SecurityLookup& security);

} // namespace oakfen
