#pragma once

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// Replaces the account with that id in place, else appends it.
void upsert(Library& library, Account account);

/// Removes the account, its entries, its investment rows and every reminder that touches it. The
/// other legs of its transfers stay as ordinary entries.
void deleteAccount(Library& library, const UUID& id);

} // namespace oakfen
