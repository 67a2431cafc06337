#include "OakfenCore/LibraryIndex/EntryTotals.h"

namespace oakfen {

void CashFigures::add(const Transaction& entry, Date cutOff) {
    ending += entry.amount;
    if (entry.date <= cutOff) {
        current += entry.amount;
    }
    if (entry.cleared != ClearedState::uncleared) {
        cleared += entry.amount;
    }
    if (entry.cleared == ClearedState::reconciled) {
        reconciled += entry.amount;
    }
}

CashFigures EntryTotals::figures(const Decimal& openingBalance) const {
    const auto& [uncleared, cleared, reconciled] = sums_;
    ExactSum opening;
    opening.add(openingBalance);
    const ExactSum reconciledSum = opening + reconciled[0] + reconciled[1];
    const ExactSum clearedSum = reconciledSum + cleared[0] + cleared[1];
    const ExactSum endingSum = clearedSum + uncleared[0] + uncleared[1];
    const ExactSum currentSum = opening + uncleared[0] + cleared[0] + reconciled[0];
    return {endingSum.value(), currentSum.value(), clearedSum.value(), reconciledSum.value()};
}

} // namespace oakfen
