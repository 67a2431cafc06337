#pragma once

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// Finishes matching an account with a statement: exactly these entries become reconciled, and a
/// difference that remains is entered as a "Balance Adjustment" on the statement's date.
void reconcile(Library& library, const UUID& accountID, const UUIDSet& transactionIDs,
               Date statementDate, const Decimal& adjustment);

} // namespace oakfen
