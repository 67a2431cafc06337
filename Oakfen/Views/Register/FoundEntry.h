#pragma once

#include <string_view>

#include "OakfenCore/LibraryIndex/RegisterRow.h"

namespace oakfen {

/// An entry among those of all accounts: its row in the register of its account, whose name the
/// ledger holds.
struct FoundEntry {
    UUID id;
    const RegisterRow* row = nullptr;
    std::string_view accountName;

    friend bool operator==(const FoundEntry& a, const FoundEntry& b) {
        return a.accountName == b.accountName && (a.row == b.row || *a.row == *b.row);
    }
};

} // namespace oakfen
