#pragma once

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// Finishes matching an account with a statement: exactly these entries become reconciled, and a
/// difference that remains is entered as a "Balance Adjustment" on the statement's date.
void reconcile(Library& library, const UUID& accountID, const UUIDSet& transactionIDs,
               Date statementDate, const Decimal& adjustment);

/// Keeps a matching that isn't finished: of the account's entries that are not reconciled, the
/// ticked ones become cleared and the others uncleared, whatever their dates, so that the ticks are
/// found in the states alone.
void keepTicks(Library& library, const UUID& accountID, const UUIDSet& tickedIDs);

} // namespace oakfen
