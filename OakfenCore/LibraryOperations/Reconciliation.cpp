#include "OakfenCore/LibraryOperations/Reconciliation.h"

#include "OakfenCore/LibraryOperations/Transactions.h"

namespace oakfen {

void reconcile(Library& library, const UUID& accountID, const UUIDSet& transactionIDs,
               Date statementDate, const Decimal& adjustment) {
    setCleared(library, ClearedState::reconciled, transactionIDs);
    if (adjustment.isZero()) {
        return;
    }
    library.transactions.push_back({.id = UUID::random(),
                                    .accountID = accountID,
                                    .date = statementDate,
                                    .payee = "Balance Adjustment",
                                    .amount = adjustment,
                                    .memo = "Created during reconciliation",
                                    .cleared = ClearedState::reconciled});
}

void keepTicks(Library& library, const UUID& accountID, const UUIDSet& tickedIDs) {
    const auto newState = [&](const Transaction& entry) {
        if (entry.accountID != accountID || entry.cleared == ClearedState::reconciled) {
            return entry.cleared;
        }
        return tickedIDs.contains(entry.id) ? ClearedState::cleared : ClearedState::uncleared;
    };
    library.transactions.editWhere(
        [&](const Transaction& entry) { return newState(entry) != entry.cleared; },
        [&](Transaction& entry) { entry.cleared = newState(entry); });
}

} // namespace oakfen
