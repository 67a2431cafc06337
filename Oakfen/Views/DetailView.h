#pragma once

#include <optional>

#include "Oakfen/AppState.h"
#include "Oakfen/Views/EmptyState.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

/// Which screen the detail area shows. Two values that differ in the account are two screens: going
/// from one account to another starts afresh.
struct DetailScreen {
    enum class Kind {
        dashboard,
        registerOfAccount,
        investmentAccount,
        noAccount,
        bills,
        budget,
        reports,
        investing,
        goals,
        categories,
    };

    Kind kind = Kind::dashboard;
    /// For the two screens of an account.
    std::optional<UUID> accountID = {};

    friend bool operator==(const DetailScreen&, const DetailScreen&) = default;
};

/// An absent selection shows the dashboard.
[[nodiscard]] DetailScreen detailScreen(const std::optional<SidebarItem>& selection,
                                        const LibraryIndex& index);

/// What stands in the place of a screen without content of its own: an account that is gone, or a
/// screen that this version doesn't have.
[[nodiscard]] EmptyState placeholder(DetailScreen::Kind kind);

} // namespace oakfen
