#include "Oakfen/Views/Shell/DetailView.h"

namespace oakfen {

DetailScreen detailScreen(const std::optional<SidebarItem>& selection, const LibraryIndex& index) {
    if (!selection || selection->kind != SidebarItem::Kind::account) {
        return {selection.value_or(SidebarItem{})};
    }
    const Account* account = index.account(selection->accountID);
    if (account == nullptr) {
        return {std::nullopt};
    }
    return {selection, isInvestment(account->type)};
}

EmptyState placeholder(const DetailScreen& screen) {
    if (!screen.item) {
        return {"No Account Selected", "building.columns", "Choose an account in the sidebar."};
    }
    const SidebarItem::Kind kind = screen.item->kind;
    return {std::string(title(kind)), std::string(symbolName(kind)),
            "This screen isn’t part of this version yet."};
}

} // namespace oakfen
