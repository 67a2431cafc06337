#pragma once

#include "OakfenCore/Support/Number/Decimal.h"

namespace oakfen {

/// The span of the amounts in a column, and of zero: the widest text there is that of either end.
struct AmountRange {
    Decimal least;
    Decimal greatest;

    /// Widens the span so that it holds the amount too.
    void include(const Decimal& amount) {
        if (amount < least) {
            least = amount;
        } else if (amount > greatest) {
            greatest = amount;
        }
    }

    friend bool operator==(const AmountRange&, const AmountRange&) = default;
};

} // namespace oakfen
