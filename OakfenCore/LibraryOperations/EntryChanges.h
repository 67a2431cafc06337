#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// What several entries are to be from now on; what is absent stays as each of them has it.
struct EntryChanges {
    std::optional<std::string> payee = {};
    std::optional<std::string> memo = {};
    std::optional<std::vector<std::string>> tags = {};
    /// The date that an entry of this date gets; none while empty.
    std::function<Date(Date)> date = {};
};

/// Changes these entries and nothing else of them. The other leg of a transfer follows in payee,
/// memo and date; its tags are its own. An id that names nothing is passed over.
void changeEntries(Library& library, const EntryChanges& changes, const UUIDSet& ids);

} // namespace oakfen
