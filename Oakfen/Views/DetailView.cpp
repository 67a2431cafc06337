#include "Oakfen/Views/DetailView.h"

namespace oakfen {

namespace {

using Kind = DetailScreen::Kind;

DetailScreen accountScreen(const UUID& id, const LibraryIndex& index) {
    const Account* account = index.account(id);
    if (account == nullptr) {
        return {Kind::noAccount};
    }
    return {isInvestment(account->type) ? Kind::investmentAccount : Kind::registerOfAccount, id};
}

EmptyState laterScreen(SidebarItem::Kind item) {
    return {std::string(title(item)), std::string(symbolName(item)),
            "This screen isn’t part of this version yet."};
}

} // namespace

DetailScreen detailScreen(const std::optional<SidebarItem>& selection, const LibraryIndex& index) {
    if (!selection) {
        return {Kind::dashboard};
    }
    switch (selection->kind) {
    case SidebarItem::Kind::account:
        return accountScreen(selection->accountID, index);
    case SidebarItem::Kind::dashboard:
        return {Kind::dashboard};
    case SidebarItem::Kind::bills:
        return {Kind::bills};
    case SidebarItem::Kind::budget:
        return {Kind::budget};
    case SidebarItem::Kind::reports:
        return {Kind::reports};
    case SidebarItem::Kind::investing:
        return {Kind::investing};
    case SidebarItem::Kind::goals:
        return {Kind::goals};
    case SidebarItem::Kind::categories:
        return {Kind::categories};
    }
    return {Kind::dashboard};
}

EmptyState placeholder(DetailScreen::Kind kind) {
    switch (kind) {
    case Kind::bills:
        return laterScreen(SidebarItem::Kind::bills);
    case Kind::budget:
        return laterScreen(SidebarItem::Kind::budget);
    case Kind::reports:
        return laterScreen(SidebarItem::Kind::reports);
    case Kind::investing:
        return laterScreen(SidebarItem::Kind::investing);
    case Kind::goals:
        return laterScreen(SidebarItem::Kind::goals);
    case Kind::categories:
        return laterScreen(SidebarItem::Kind::categories);
    case Kind::dashboard:
    case Kind::registerOfAccount:
    case Kind::investmentAccount:
    case Kind::noAccount:
        break;
    }
    return {"No Account Selected", "building.columns", "Choose an account in the sidebar."};
}

} // namespace oakfen
