#include "Oakfen/Views/EntryActions.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/EntryName.h"
#include "Oakfen/Views/Screen.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

void EntryActions::toggleCleared(const UUID& id) {
    toggleCleared(UUIDSet{id});
}

void EntryActions::toggleCleared(const UUIDSet& ids) {
    UUIDSet uncleared;
    UUIDSet cleared;
    for (const UUID& id : ids) {
        const Transaction* entry = environment_.store.index().transaction(id);
        if (entry != nullptr && entry->cleared != ClearedState::reconciled) {
            (entry->cleared == ClearedState::uncleared ? uncleared : cleared).insert(id);
        }
    }
    if (!uncleared.empty()) {
        markAs(ClearedState::cleared, uncleared);
    } else if (!cleared.empty()) {
        markAs(ClearedState::uncleared, cleared);
    }
}

void EntryActions::markAs(ClearedState state, const UUIDSet& ids) {
    environment_.store.mutate("Mark " + std::string(oakfen::title(state)),
                              [&](Library& library) { setCleared(library, state, ids); });
}

void EntryActions::chooseCategory(const UUIDSet& ids) {
    environment_.appState.setSheet(
        ActiveSheet{ActiveSheet::SetCategory{std::make_shared<const UUIDSet>(ids)}});
}

bool EntryActions::canBeCategorized(const UUIDSet& ids) const {
    return std::ranges::any_of(ids, [this](const UUID& id) {
        const Transaction* entry = environment_.store.index().transaction(id);
        return entry != nullptr && !entry->transferAccountID;
    });
}

void EntryActions::duplicate(const UUID& id) {
    const Transaction* original = environment_.store.index().transaction(id);
    if (original == nullptr) {
        return;
    }
    Transaction copy = *original;
    copy.id = UUID::random();
    copy.transferID.reset();
    copy.date = environment_.clock.now();
    copy.cleared = ClearedState::uncleared;
    copy.importID.reset();
    for (Split& split : copy.splits) {
        split.id = UUID::random();
    }
    environment_.store.mutate("Duplicate Transaction",
                              [&](Library& library) { upsert(library, copy); });
}

void EntryActions::makeReminder(const UUID& id) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Scheduled{.likeEntry = id}});
}

void EntryActions::goToTransfer(const UUID& id) {
    const Transaction* entry = environment_.store.index().transaction(id);
    if (entry == nullptr || !entry->transferAccountID) {
        return;
    }
    AppState& state = environment_.appState;
    const std::optional<UUID> twin = entry->transferID;
    state.setSelection(SidebarItem::account(*entry->transferAccountID));
    if (twin) {
        state.entryWanted.notify(*twin);
    }
}

std::vector<MenuEntry> EntryActions::contextMenu(const UUIDSet& ids) {
    std::vector<MenuEntry> menu = rowMenu(std::make_shared<const UUIDSet>(ids));
    std::erase_if(menu, [](const MenuEntry& line) { return !line.isEnabled; });
    if (!menu.empty()) {
        menu.front().startsGroup = false;
    }
    return menu;
}

std::vector<MenuEntry> EntryActions::rowMenu(const SharedIDs& ids) {
    const bool isAny = !ids->empty();
    std::vector<MenuEntry> menu =
        menuForOne(ids->size() == 1 ? std::optional(*ids->begin()) : std::nullopt);
    menu.push_back(
        {.title = "Edit Several…",
         .symbolName = "pencil",
         .perform = [&state = environment_.appState,
                     ids] { state.setSheet(ActiveSheet{ActiveSheet::EditSeveral{ids}}); },
         .isEnabled = ids->size() > 1});
    menu.push_back(
        {.title = "Mark As", .isEnabled = isAny, .startsGroup = true, .children = markMenu(ids)});
    menu.push_back({.title = "Set Category",
                    .perform = canBeCategorized(*ids) ? [this, ids] { chooseCategory(*ids); }
                                                      : std::function<void()>(),
                    .isEnabled = isAny});
    menu.push_back({.title = "Delete",
                    .symbolName = "trash",
                    .shortcut = "Del",
                    .leavesKeyToFocus = true,
                    .perform = [this, ids] { requestDelete(*ids); },
                    .isEnabled = isAny,
                    .isDestructive = true,
                    .startsGroup = true});
    return menu;
}

std::vector<MenuEntry> EntryActions::menuForOne(const std::optional<UUID>& id) {
    const LibraryIndex& index = environment_.store.index();
    const Transaction* entry = id ? index.transaction(*id) : nullptr;
    const bool isTransfer = entry != nullptr && entry->transferAccountID.has_value();
    const Account* other = isTransfer ? index.account(*entry->transferAccountID) : nullptr;
    return {{.title = "Edit",
             .symbolName = "pencil",
             .shortcut = "Return",
             .leavesKeyToFocus = true,
             .perform = [this, id] { editTransaction(*id); },
             .isEnabled = id.has_value()},
            {.title = "Duplicate",
             .symbolName = "plus.rectangle.on.rectangle",
             .shortcut = "Ctrl+D",
             .perform = [this, id] { duplicate(*id); },
             .isEnabled = id.has_value()},
            {.title = "Make Reminder…",
             .symbolName = "calendar.badge.plus",
             .perform = [this, id] { makeReminder(*id); },
             .isEnabled = id.has_value()},
            {.title = "Go to " + (other != nullptr ? other->name : std::string("Transfer")),
             .symbolName = "arrow.right",
             .shortcut = "Ctrl+J",
             .perform = [this, id] { goToTransfer(*id); },
             .isEnabled = isTransfer}};
}

std::vector<MenuEntry> EntryActions::markMenu(const SharedIDs& ids) {
    std::vector<MenuEntry> menu;
    for (const ClearedState state : allCases<ClearedState>) {
        menu.push_back({.title = std::string(oakfen::title(state)),
                        .symbolName = std::string(clearedBadge(state).symbolName),
                        .perform = [this, state, ids] { markAs(state, *ids); }});
    }
    return menu;
}

void EntryActions::requestDelete(const UUIDSet& ids) {
    if (ids.empty()) {
        return;
    }
    pendingDelete_ = ids;
    environment_.panels.confirm(deleteConfirmation(), whileAlive([this](bool isConfirmed) {
                                    isConfirmed ? confirmDelete() : pendingDelete_.clear();
                                }));
}

ConfirmationRequest EntryActions::deleteConfirmation() const {
    const std::size_t count = pendingDelete_.size();
    const Transaction* only =
        count == 1 ? environment_.store.index().transaction(*pendingDelete_.begin()) : nullptr;
    const std::string subject =
        only != nullptr ? entryName(*only, cellContextOf(environment_)) : std::string();
    return {.title = "Delete " + countText(count) + " transaction" + (count == 1 ? "" : "s") + "?",
            .message = "Transfers are removed from both accounts. You can undo this.",
            .confirmTitle = "Delete",
            .isDestructive = true,
            .subject = subject};
}

void EntryActions::confirmDelete() {
    const UUIDSet ids = std::exchange(pendingDelete_, {});
    environment_.store.mutate("Delete Transactions",
                              [&](Library& library) { deleteTransactions(library, ids); });
    deleted(ids);
}

void EntryActions::editTransaction(const UUID& id) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::EditTransaction{id}});
}

} // namespace oakfen
