#include "Oakfen/Views/RegisterView.h"

#include <utility>

#include "Oakfen/Availability.h"
#include "Oakfen/FileActions.h"
#include "OakfenCore/LibraryOperations/Transactions.h"

namespace oakfen {

void RegisterView::toggleCleared(const UUID& id) {
    const Transaction* entry = environment_.store.index().transaction(id);
    if (entry == nullptr || entry->cleared == ClearedState::reconciled) {
        return;
    }
    const bool clears = entry->cleared == ClearedState::uncleared;
    environment_.store.mutate(clears ? "Mark Cleared" : "Mark Uncleared", [&](Library& library) {
        setCleared(library, clears ? ClearedState::cleared : ClearedState::uncleared, {id});
    });
}

void RegisterView::markAs(ClearedState state, const UUIDSet& ids) {
    environment_.store.mutate("Mark " + std::string(oakfen::title(state)),
                              [&](Library& library) { setCleared(library, state, ids); });
}

void RegisterView::setCategory(const UUID& categoryID, const UUIDSet& ids) {
    environment_.store.mutate(
        "Set Category", [&](Library& library) { oakfen::setCategory(library, categoryID, ids); });
}

void RegisterView::duplicate(const UUID& id) {
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

void RegisterView::goToTransfer(const UUID& id) {
    const Transaction* entry = environment_.store.index().transaction(id);
    if (entry != nullptr && entry->transferAccountID) {
        environment_.appState.setSelection(SidebarItem::account(*entry->transferAccountID));
    }
}

RegisterContextMenu RegisterView::contextMenu(const UUIDSet& ids) const {
    RegisterContextMenu menu{.isEmpty = ids.empty()};
    if (ids.size() != 1) {
        return menu;
    }
    menu.single = *ids.begin();
    const LibraryIndex& index = environment_.store.index();
    const Transaction* entry = index.transaction(*menu.single);
    if (entry != nullptr && entry->transferAccountID) {
        const Account* other = index.account(*entry->transferAccountID);
        menu.goToTitle = "Go to " + (other != nullptr ? other->name : std::string("Transfer"));
    }
    return menu;
}

std::vector<PickerRow> RegisterView::categoryChoices(CategoryKind kind) const {
    return oakfen::categoryChoices(environment_.store.index(), kind);
}

void RegisterView::requestDelete(const UUIDSet& ids) {
    if (ids.empty()) {
        return;
    }
    pendingDelete = ids;
    environment_.panels.confirm(deleteConfirmation(),
                                [this, alive = std::weak_ptr(lifetime_)](bool isConfirmed) {
                                    if (alive.expired()) {
                                        return;
                                    }
                                    isConfirmed ? confirmDelete() : cancelDelete();
                                });
}

ConfirmationRequest RegisterView::deleteConfirmation() const {
    const std::size_t count = pendingDelete.size();
    return {.title =
                "Delete " + std::to_string(count) + " transaction" + (count == 1 ? "" : "s") + "?",
            .message = "Transfers are removed from both accounts. You can undo this.",
            .confirmTitle = "Delete",
            .isDestructive = true};
}

void RegisterView::confirmDelete() {
    const UUIDSet ids = std::exchange(pendingDelete, {});
    environment_.store.mutate("Delete Transactions",
                              [&](Library& library) { deleteTransactions(library, ids); });
    std::erase_if(selection, [&](const UUID& id) { return ids.contains(id); });
}

bool RegisterView::canCreateTransaction() {
    return isAvailable(Feature::transactionEditor);
}

bool RegisterView::canEditTransaction() {
    return isAvailable(Feature::transactionEditor);
}

bool RegisterView::canReconcile() {
    return isAvailable(Feature::reconcile);
}

void RegisterView::newTransaction() {
    if (canCreateTransaction()) {
        environment_.appState.setSheet(ActiveSheet{ActiveSheet::NewTransaction{accountID_}});
    }
}

void RegisterView::editTransaction(const UUID& id) {
    if (canEditTransaction()) {
        environment_.appState.setSheet(ActiveSheet{ActiveSheet::EditTransaction{id}});
    }
}

void RegisterView::reconcile() {
    if (canReconcile()) {
        environment_.appState.setSheet(ActiveSheet{ActiveSheet::Reconcile{accountID_}});
    }
}

void RegisterView::editAccount() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::EditAccount{accountID_}});
}

void RegisterView::importTransactions() {
    FileActions::importTransactions(environment_);
}

} // namespace oakfen
