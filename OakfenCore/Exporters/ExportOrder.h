#pragma once

#include <vector>

#include "OakfenCore/LibraryIndex/AccountLedger.h"
#include "OakfenCore/LibraryIndex/Sorting.h"

namespace oakfen::Exporter {

/// The order of every exported list: that of the registers.
inline void sortInLedgerOrder(std::vector<const Transaction*>& transactions) {
    sortNoticingOrder(transactions, [](const Transaction* a, const Transaction* b) {
        return precedesInLedger(*a, *b);
    });
}

} // namespace oakfen::Exporter
