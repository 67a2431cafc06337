#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Oakfen/AppState.h"

namespace oakfen {

class LibraryStore;

/// The screens that were shown since the start, one after the other, and where among them the
/// person is, as a browser keeps its pages. An account that was deleted is passed over. Written
/// nowhere.
class ScreenHistory {
public:
    ScreenHistory(AppState& appState, const LibraryStore& store);

    [[nodiscard]] bool canGoBack() const { return placeBefore().has_value(); }
    [[nodiscard]] bool canGoForward() const { return placeAfter().has_value(); }
    /// Shows the screen before the present one; nothing happens at the beginning.
    void goBack() { go(placeBefore()); }
    /// Undoes a step back; nothing happens at the end.
    void goForward() { go(placeAfter()); }

private:
    /// Takes up where the person went by any other way: what lay ahead is forgotten.
    void visit();
    void go(const std::optional<std::size_t>& place);
    [[nodiscard]] std::optional<std::size_t> placeBefore() const;
    [[nodiscard]] std::optional<std::size_t> placeAfter() const;
    /// Whether one can go there from here, and sees that one did.
    [[nodiscard]] bool leadsElsewhere(std::size_t place) const;

    AppState& appState_;
    const LibraryStore& store_;
    std::vector<SidebarItem> screens_;
    std::size_t present_ = 0;
    Subscription selectionChanged_;
};

} // namespace oakfen
