#pragma once

#include <optional>
#include <vector>

#include "Oakfen/AppState.h"
#include "OakfenCore/LibraryStore/LibraryStore.h"

namespace oakfen {

/// Where undo or redo takes away the account that is shown, leads back to what was shown before and
/// is still there.
class ScreenReturn {
public:
    /// All must outlive it.
    ScreenReturn(AppState& appState, LibraryStore& store, const History& history);

private:
    void remember();
    void leaveWhatHasGone();
    [[nodiscard]] bool isThere(const std::optional<SidebarItem>& item) const;

    AppState& appState_;
    LibraryStore& store_;
    const History& history_;
    /// Each once, the latest last.
    std::vector<std::optional<SidebarItem>> shown_;
    Subscription selectionChanged_;
    Subscription libraryChanged_;
};

} // namespace oakfen
