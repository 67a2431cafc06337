#pragma once

#include "OakfenCore/Support/Decimal.h"

namespace oakfen {

/// The span of the amounts in a column: what its widest text can be is the text of either end.
struct AmountRange {
    Decimal least;
    Decimal greatest;

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
