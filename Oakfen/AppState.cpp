#include "Oakfen/AppState.h"

#include <utility>

namespace oakfen {

namespace {

struct SidebarItemText {
    std::string_view title;
    std::string_view symbolName;
};

SidebarItemText text(SidebarItem::Kind kind) noexcept {
    switch (kind) {
    case SidebarItem::Kind::account:
        return {"Account", "building.columns"};
    case SidebarItem::Kind::dashboard:
        return {"Dashboard", "square.grid.2x2"};
    case SidebarItem::Kind::bills:
        return {"Bills & Income", "calendar.badge.clock"};
    case SidebarItem::Kind::budget:
        return {"Budget", "chart.bar.doc.horizontal"};
    case SidebarItem::Kind::reports:
        return {"Reports", "chart.pie"};
    case SidebarItem::Kind::investing:
        return {"Investing", "chart.line.uptrend.xyaxis"};
    case SidebarItem::Kind::goals:
        return {"Savings Goals", "target"};
    case SidebarItem::Kind::categories:
        return {"Categories", "tag"};
    }
    return {};
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
    return text(kind).title;
}

std::string_view symbolName(SidebarItem::Kind kind) noexcept {
    return text(kind).symbolName;
}

const std::vector<SidebarItem>& overviewItems() {
    using Kind = SidebarItem::Kind;
    static const std::vector<SidebarItem> items = {
        {Kind::dashboard}, {Kind::bills}, {Kind::budget},    {Kind::reports},
        {Kind::investing}, {Kind::goals}, {Kind::categories}};
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
