#pragma once

#include <optional>

#include "OakfenCore/Models/Library.h"

/// Changes to the document's entries. None can fail: an id that names nothing is passed over.
namespace oakfen {

/// Adds the entry, or replaces the one with its id. Keeps the other leg of a transfer in step (and
/// makes it where there is none), drops the twin of what is a transfer no more, and gives a split
/// entry the sum of its lines.
void upsert(Library& library, Transaction transaction);

/// Adds an entry with an id that no entry has, and without another leg yet, as `upsert` does, but
/// without looking through the ledger for it; for adding many.
void appendNew(Library& library, Transaction transaction);

/// Removes these entries and the other legs of transfers among them.
void deleteTransactions(Library& library, const UUIDSet& ids);

/// Sets the state of exactly these entries.
void setCleared(Library& library, ClearedState state, const UUIDSet& ids);

/// Files these entries under the category, or under none, and drops their splits; transfers are
/// left as they are.
void setCategory(Library& library, const std::optional<UUID>& categoryID, const UUIDSet& ids);

} // namespace oakfen
