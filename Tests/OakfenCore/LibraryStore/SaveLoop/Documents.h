#pragma once

#include "Tests/OakfenCore/LibraryStore/StoreBench.h"

namespace oakfen {

/// The two documents that the loop saves in turn: so unlike in length that any mixture shows, and
/// so long that saving takes a while.
[[nodiscard]] inline Library shortLoopDocument() {
    return documentWithAccounts(40);
}

[[nodiscard]] inline Library longLoopDocument() {
    return documentWithAccounts(2500);
}

} // namespace oakfen
