#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Oakfen/Views/Register/RegisterContent.h"

namespace oakfen {

/// What the search through all accounts shows.
struct FindContent {
    std::string searchText = {};
    TableOrder sort = {};
    /// The entries that the search finds, all while it looks for nothing, in the order of the sort.
    std::shared_ptr<const Table<FoundEntry>> table = {};
    /// Always among the rows that are shown.
    std::shared_ptr<const UUIDSet> selection = {};
    /// How many were found and their sum, and the same of what is selected.
    RegisterFooter footer = {};

    /// What stands in the place of a table without rows; nothing while there are some.
    [[nodiscard]] std::optional<EmptyState> emptyState() const;

    friend bool operator==(const FindContent&, const FindContent&) = default;
};

} // namespace oakfen
