#pragma once

#include <cstddef>

#include "OakfenCore/Support/Values/SharedArray.h"

namespace oakfen {

/// Calls `visit` with each chunk of `array` that `other` doesn't hold at the same place, seen from
/// the beginning or from the end, where an edit leaves most of them. So the cost is that of what
/// was edited; a chunk that only moved may be among them.
template <typename T, typename Visit>
void forEachUnsharedChunk(const SharedArray<T>& array, const SharedArray<T>& other, Visit&& visit) {
    const auto& chunks = array.chunks();
    const auto& others = other.chunks();
    for (std::size_t index = 0; index < chunks.size(); ++index) {
        const std::size_t fromEnd = chunks.size() - index;
        const bool isShared =
            (index < others.size() && others[index] == chunks[index]) ||
            (fromEnd <= others.size() && others[others.size() - fromEnd] == chunks[index]);
        if (!isShared) {
            visit(*chunks[index]);
        }
    }
}

} // namespace oakfen
