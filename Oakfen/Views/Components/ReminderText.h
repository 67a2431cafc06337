#pragma once

#include <string>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

/// Where a reminder belongs and how often it comes: "Chequing · Groceries · Monthly", or of a
/// transfer "Chequing · Transfer → Savings · Monthly · Auto-enter".
[[nodiscard]] std::string reminderSubtitle(const ScheduledTransaction& reminder,
                                           const LibraryIndex& index);

} // namespace oakfen
