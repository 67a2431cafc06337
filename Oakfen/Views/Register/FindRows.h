#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "Oakfen/Views/Register/FoundEntry.h"
#include "Oakfen/Views/Register/RegisterRows.h"

namespace oakfen {

/// The rows of all registers as of one index after the other, those of closed accounts too. A
/// transfer has a row in each of its accounts.
class FindRows {
public:
    /// All rows at one moment; stays as it is for as long as somebody holds it.
    struct State {
        std::shared_ptr<const LibraryIndex> index;
        std::vector<RegisterRows::State> registers;
        std::vector<FoundEntry> entries;
        /// The entries by day, those of one day by account in the order of the document.
        std::vector<const FoundEntry*> inOrder;
    };
    using SharedState = std::shared_ptr<const State>;

    /// Made once for an index.
    [[nodiscard]] const SharedState& at(const std::shared_ptr<const LibraryIndex>& index);

private:
    std::unordered_map<UUID, RegisterRows> registers_;
    SharedState state_;
};

} // namespace oakfen
