#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Oakfen/Views/Table.h"

namespace oakfen {

/// What has to be told of a table that takes another's place, so that the selection, the current
/// row and the place in it stay with the records.
struct TableChanges {
    /// Rows that went, and those that came in their stead.
    struct Run {
        /// In the earlier table.
        std::size_t from = 0;
        std::size_t removed = 0;
        /// In the later one.
        std::size_t to = 0;
        std::size_t inserted = 0;

        friend bool operator==(const Run&, const Run&) = default;
    };
    /// The first and the last row that may look different.
    struct Span {
        std::size_t first = 0;
        std::size_t last = 0;

        friend bool operator==(const Span&, const Span&) = default;
    };

    /// From the top down.
    std::vector<Run> runs = {};
    /// Among the rows of the later table that the earlier one had too.
    std::optional<Span> changed = {};
    /// The rows that stay changed their order, or came and went in more places than can be told one
    /// by one; the runs say nothing then.
    bool isRearranged = false;

    friend bool operator==(const TableChanges&, const TableChanges&) = default;
};

[[nodiscard]] TableChanges changesBetween(const TableContent& earlier, const TableContent& later);

} // namespace oakfen
