#include "Oakfen/Views/RegisterView.h"

#include <algorithm>
#include <utility>

#include "Oakfen/Availability.h"
#include "Oakfen/FileActions.h"
#include "Oakfen/Views/RegisterCopy.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Support/Text.h"

namespace oakfen {

RegisterView::RegisterView(AppEnvironment& environment, const UUID& accountID)
    : environment_(environment), accountID_(accountID) {}

const Account* RegisterView::account() const {
    return environment_.store.index().account(accountID_);
}

std::string RegisterView::title() const {
    const Account* shown = account();
    return shown != nullptr ? shown->name : std::string();
}

std::string RegisterView::subtitle() const {
    const Account* shown = account();
    if (shown == nullptr) {
        return {};
    }
    return shown->institution.empty() ? std::string(oakfen::title(shown->type))
                                      : shown->institution;
}

std::string_view RegisterView::columnTitle(RegisterColumn column) const {
    const Account* shown = account();
    const bool isOwed = shown != nullptr && isLiability(shown->type);
    switch (column) {
    case RegisterColumn::cleared:
        return "";
    case RegisterColumn::date:
        return "Date";
    case RegisterColumn::number:
        return "Num";
    case RegisterColumn::payee:
        return "Payee";
    case RegisterColumn::category:
        return "Category";
    case RegisterColumn::tags:
        return "Tags";
    case RegisterColumn::payment:
        return isOwed ? "Charge" : "Payment";
    case RegisterColumn::deposit:
        return isOwed ? "Payment" : "Deposit";
    case RegisterColumn::balance:
        return "Balance";
    }
    return {};
}

std::string_view RegisterView::columnName(RegisterColumn column) const {
    return column == RegisterColumn::cleared ? "Cleared" : columnTitle(column);
}

bool RegisterView::isSortable(RegisterColumn column) {
    return column != RegisterColumn::tags;
}

const std::vector<RegisterRow>& RegisterView::rows() const {
    auto index = environment_.store.sharedIndex();
    if (index != rowsIndex_) {
        rows_ = index->registerRows(accountID_);
        rowsIndex_ = std::move(index);
    }
    return rows_;
}

std::vector<const RegisterRow*> RegisterView::filteredRows() const {
    const RegisterFilterTest test(filter, environment_.clock.now(), environment_.clock.calendar());
    RegisterSearch search(searchText);
    std::vector<const RegisterRow*> shown;
    shown.reserve(rows().size());
    for (const RegisterRow& row : rows()) {
        if (test.keeps(row) && (!search.isActive() || search.finds(row))) {
            shown.push_back(&row);
        }
    }
    sorter_.sort(shown, sort);
    return shown;
}

bool RegisterView::isNarrowed() const {
    return !searchText.empty() || filter != RegisterFilter::all;
}

EmptyState RegisterView::emptyState() const {
    if (!isNarrowed()) {
        return {.title = "No Transactions",
                .symbolName = "list.bullet.rectangle",
                .text = "Add a transaction or import a statement from your bank."};
    }
    const std::string_view term = trimmingWhitespaces(searchText);
    return {.title = term.empty() ? "No Results" : "No Results for “" + std::string(term) + "”",
            .symbolName = "magnifyingglass",
            .text = "Check the spelling, or try another search or filter."};
}

RegisterFooter RegisterView::footer() const {
    const LibraryIndex& index = environment_.store.index();
    const Decimal balance = index.balance(accountID_);
    RegisterFooter footer{.figures = {{"Cleared", index.clearedBalance(accountID_)},
                                      {"Today", balance},
                                      {"Ending", index.endingBalance(accountID_)}}};
    const Account* shown = account();
    if (shown != nullptr && shown->creditLimit && shown->creditLimit->isPositive()) {
        footer.figures.push_back({"Available Credit", *shown->creditLimit + balance});
    }
    if (!selection.empty()) {
        const Decimal total = sum(rows(), [this](const RegisterRow& row) {
            return selection.contains(row.id) ? row.amount : Decimal();
        });
        footer.selection = {std::to_string(selection.size()) + " selected", total};
    }
    return footer;
}

void RegisterView::sortBy(RegisterColumn column) {
    if (!isSortable(column)) {
        return;
    }
    sort = {.column = column, .ascending = sort.column != column || !sort.ascending};
}

void RegisterView::keepSelectionVisible(const std::vector<const RegisterRow*>& shown) {
    UUIDSet visible;
    for (const RegisterRow* row : shown) {
        if (selection.contains(row->id)) {
            visible.insert(row->id);
        }
    }
    selection = std::move(visible);
}

std::string RegisterView::copiedText(const std::vector<const RegisterRow*>& shown) const {
    const Calendar calendar = environment_.clock.calendar();
    std::vector<std::string> lines;
    for (const RegisterRow* row : shown) {
        if (selection.contains(row->id)) {
            lines.push_back(copiedLine(*row, calendar));
        }
    }
    return joined(lines, "\n");
}

std::optional<UUID> RegisterView::reveal(const UUID& id) {
    const Transaction* entry = environment_.store.index().transaction(id);
    if (entry == nullptr) {
        return std::nullopt;
    }
    const UUID leg = entry->accountID == accountID_ ? id : entry->transferID.value_or(id);
    const auto shown = filteredRows();
    if (std::ranges::none_of(shown, [&](const RegisterRow* row) { return row->id == leg; })) {
        return std::nullopt;
    }
    selection = {leg};
    return leg;
}

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
