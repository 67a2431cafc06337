#pragma once

#include <optional>

#include "Oakfen/AppState.h"
#include "Oakfen/Views/Components/EmptyState.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

/// Which screen the detail area shows. Two values that differ are two screens: going from one
/// account to another starts afresh.
struct DetailScreen {
    /// Absent for an account that is gone.
    std::optional<SidebarItem> item = SidebarItem{};
    /// For an account: holds investments, and so has another screen than the others.
    bool isInvestment = false;

    friend bool operator==(const DetailScreen&, const DetailScreen&) = default;
};

/// An absent selection shows the dashboard.
[[nodiscard]] DetailScreen detailScreen(const std::optional<SidebarItem>& selection,
                                        const LibraryIndex& index);

/// What stands in the place of a screen that this version doesn't have, or of an account that is
/// gone.
[[nodiscard]] EmptyState placeholder(const DetailScreen& screen);

} // namespace oakfen
