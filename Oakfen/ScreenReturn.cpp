#include "Oakfen/ScreenReturn.h"

#include <algorithm>
#include <ranges>

namespace oakfen {

ScreenReturn::ScreenReturn(AppState& appState, LibraryStore& store, const History& history)
    : appState_(appState), store_(store), history_(history),
      selectionChanged_(appState.selectionChanged.observe([this] { remember(); })),
      libraryChanged_(store.libraryChanged.observe([this] { leaveWhatHasGone(); })) {
    remember();
}

void ScreenReturn::remember() {
    std::erase(shown_, appState_.selection());
    shown_.push_back(appState_.selection());
}

void ScreenReturn::leaveWhatHasGone() {
    if (!history_.isTaking() || isThere(appState_.selection())) {
        return;
    }
    const auto earlier = std::views::reverse(shown_);
    const auto found =
        std::ranges::find_if(earlier, [this](const auto& item) { return isThere(item); });
    if (found != earlier.end()) {
        appState_.setSelection(std::optional(*found));
    }
}

bool ScreenReturn::isThere(const std::optional<SidebarItem>& item) const {
    return !item || item->kind != SidebarItem::Kind::account ||
           store_.index().account(item->accountID) != nullptr;
}

} // namespace oakfen
