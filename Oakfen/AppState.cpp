#include "Oakfen/AppState.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace oakfen {

namespace {

struct ScreenInfo {
    SidebarItem::Kind kind;
    std::string_view title;
    std::string_view symbolName;
};

using Kind = SidebarItem::Kind;

/// Every screen, in the order of the sidebar and of the Go menu; before them that of an account.
constexpr std::array screens = {
    ScreenInfo{Kind::account, "Account", "building.columns"},
    ScreenInfo{Kind::dashboard, "Dashboard", "square.grid.2x2"},
    ScreenInfo{Kind::bills, "Bills & Income", "calendar.badge.clock"},
    ScreenInfo{Kind::budget, "Budget", "chart.bar.doc.horizontal"},
    ScreenInfo{Kind::reports, "Reports", "chart.pie"},
    ScreenInfo{Kind::investing, "Investing", "chart.line.uptrend.xyaxis"},
    ScreenInfo{Kind::goals, "Savings Goals", "target"},
    ScreenInfo{Kind::categories, "Categories", "tag"},
};

constexpr bool standInTheOrderOfTheirKinds() {
    for (std::size_t position = 0; position < screens.size(); ++position) {
        if (static_cast<std::size_t>(screens[position].kind) != position) {
            return false;
        }
    }
    return true;
}
static_assert(standInTheOrderOfTheirKinds());

const ScreenInfo& info(Kind kind) noexcept {
    return screens[static_cast<std::size_t>(kind)];
}

std::vector<SidebarItem> itemsWithoutAnAccount() {
    std::vector<SidebarItem> items;
    for (const ScreenInfo& screen : screens) {
        if (screen.kind != Kind::account) {
            items.push_back({screen.kind});
        }
    }
    return items;
}

/// Stores the value and tells of it; an equal value is neither.
template <typename Value>
void assign(Value& field, Value value, Observers<>& observers) {
    if (field == value) {
        return;
    }
    field = std::move(value);
    observers.notify();
}

} // namespace

std::string_view title(SidebarItem::Kind kind) noexcept {
    return info(kind).title;
}

std::string_view symbolName(SidebarItem::Kind kind) noexcept {
    return info(kind).symbolName;
}

const std::vector<SidebarItem>& overviewItems() {
    static const std::vector<SidebarItem> items = itemsWithoutAnAccount();
    return items;
}

AppState::AppState(const UserDefaults& defaults)
    : isUnlocked_(!defaults.get(settings::requireAuthentication)) {}

void AppState::setSelection(std::optional<SidebarItem> selection) {
    assign(selection_, std::move(selection), selectionChanged);
}

std::optional<UUID> AppState::selectedAccountID() const {
    if (!selection_ || selection_->kind != SidebarItem::Kind::account) {
        return std::nullopt;
    }
    return selection_->accountID;
}

void AppState::setSheet(std::optional<ActiveSheet> sheet) {
    assign(sheet_, std::move(sheet), sheetChanged);
}

void AppState::setUnlocked(bool unlocked) {
    assign(isUnlocked_, unlocked, lockChanged);
}

void AppState::setAlertMessage(std::optional<std::string> message) {
    assign(alertMessage_, std::move(message), alertChanged);
}

void AppState::setBusyMessage(std::optional<std::string> message) {
    assign(busyMessage_, std::move(message), busyChanged);
}

void AppState::showNotice(Notice notice) {
    notice_ = std::move(notice);
    noticeChanged.notify();
}

void AppState::dismissNotice() {
    if (std::exchange(notice_, std::nullopt)) {
        noticeChanged.notify();
    }
}

void AppState::rememberCategory(const UUID& id) {
    constexpr std::size_t most = 5;
    std::erase(recentCategories_, id);
    recentCategories_.insert(recentCategories_.begin(), id);
    recentCategories_.resize(std::min(recentCategories_.size(), most));
}

void AppState::whenFree(std::function<bool()> isFree, std::function<void()> work) {
    if (isFree()) {
        work();
    } else {
        waiting_.push_back({std::move(isFree), std::move(work)});
    }
}

void AppState::doWhatWaits() {
    // Each is asked anew: the first may open a sheet that the next has to wait for.
    for (WaitingWork& each : std::exchange(waiting_, {})) {
        whenFree(std::move(each.isFree), std::move(each.work));
    }
}

} // namespace oakfen
