#include "Oakfen/ScreenHistory.h"

#include "OakfenCore/LibraryStore/LibraryStore.h"

namespace oakfen {

namespace {

SidebarItem shownScreen(const AppState& appState) {
    return appState.selection().value_or(SidebarItem{});
}

} // namespace

ScreenHistory::ScreenHistory(AppState& appState, const LibraryStore& store)
    : appState_(appState), store_(store), screens_{shownScreen(appState)},
      selectionChanged_(appState.selectionChanged.observe([this] { visit(); })) {}

void ScreenHistory::visit() {
    const SidebarItem shown = shownScreen(appState_);
    // A step along the history has its place already.
    if (shown != screens_[present_]) {
        screens_.resize(present_ + 1);
        screens_.push_back(shown);
        ++present_;
    }
}

void ScreenHistory::go(const std::optional<std::size_t>& place) {
    if (place) {
        present_ = *place;
        appState_.setSelection(screens_[*place]);
    }
}

std::optional<std::size_t> ScreenHistory::placeBefore() const {
    for (std::size_t place = present_; place > 0; --place) {
        if (leadsElsewhere(place - 1)) {
            return place - 1;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> ScreenHistory::placeAfter() const {
    for (std::size_t place = present_ + 1; place < screens_.size(); ++place) {
        if (leadsElsewhere(place)) {
            return place;
        }
    }
    return std::nullopt;
}

bool ScreenHistory::leadsElsewhere(std::size_t place) const {
    const SidebarItem& screen = screens_[place];
    const bool isThere = screen.kind != SidebarItem::Kind::account ||
                         store_.index().account(screen.accountID) != nullptr;
    return isThere && screen != screens_[present_];
}

} // namespace oakfen
