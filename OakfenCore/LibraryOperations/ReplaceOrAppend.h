#pragma once

#include <utility>

#include "OakfenCore/Support/Values/SharedArray.h"

namespace oakfen {

/// Replaces the first record with the same id in place; appends where there is none.
template <typename Record>
void replaceOrAppend(SharedArray<Record>& records, Record record) {
    const auto index =
        records.firstIndex([&](const Record& candidate) { return candidate.id == record.id; });
    if (index) {
        records.edit(*index) = std::move(record);
    } else {
        records.push_back(std::move(record));
    }
}

} // namespace oakfen
