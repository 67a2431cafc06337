#pragma once

#include <unordered_map>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

/// What `actual` tells of the categories over one interval, for those who ask about many of them:
/// the lines and the tree are gone through once.
class Actuals {
public:
    /// The index must outlive it.
    Actuals(const LibraryIndex& index, const DateInterval& interval);

    /// Zero for an unknown category without lines; not rounded.
    [[nodiscard]] Decimal of(const UUID& categoryID, bool includeChildren) const;

private:
    const LibraryIndex& index_;
    std::unordered_map<UUID, Decimal> itself_;
    std::unordered_map<UUID, Decimal> withChildren_;
};

} // namespace oakfen
