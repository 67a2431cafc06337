#pragma once

#include <memory>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/Support/Values/SharedArray.h"

namespace oakfen {

/// The rows of an account as of one index after the other. Each state stays as it is for as long as
/// somebody holds it. Rows that an edit doesn't touch are the same objects in the next state, so
/// that what is shown of both is compared by address.
class RegisterRows {
public:
    using State = std::shared_ptr<const SharedArray<RegisterRow>>;

    explicit RegisterRows(const UUID& accountID) : accountID_(accountID) {}

    /// In ledger order; made once for an index.
    [[nodiscard]] const State& at(const std::shared_ptr<const LibraryIndex>& index);

private:
    void follow(const LibraryIndex& index);
    /// Ends the state at a row and goes on with what the rows are now.
    void replaceFrom(SharedArray<RegisterRow>& state, std::size_t place) const;

    UUID accountID_;
    std::shared_ptr<const LibraryIndex> index_;
    State state_;
    // The same rows side by side, which the index can bring up to date; made at the first edit.
    std::vector<RegisterRow> rows_;
};

} // namespace oakfen
