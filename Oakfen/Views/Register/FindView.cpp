#include "Oakfen/Views/Register/FindView.h"

#include <utility>

#include "Oakfen/Views/Register/FindSearch.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

FindView::FindView(AppEnvironment& environment, std::string& term)
    : Screen(environment), EntryList(environment), term_(term) {}

void FindView::setSearchText(std::string text) {
    if (text != term_) {
        term_ = std::move(text);
        stateChanged();
    }
}

void FindView::setSort(const TableOrder& sort) {
    sort_ = sort;
    stateChanged();
}

void FindView::sortBy(std::string_view column) {
    setSort(afterClick(sort_, foundColumns(), column));
}

void FindView::select(UUIDSet ids) {
    if (ids != *selection_) {
        selection_ = std::make_shared<const UUIDSet>(std::move(ids));
        stateChanged();
    }
}

void FindView::deleted(const UUIDSet& ids) {
    select(without(*selection_, ids));
}

std::string FindView::copiedText() const {
    const auto shown = content();
    return clipboardText(*shown->table, rowsOf(*shown->selection, *shown->table));
}

std::vector<MenuEntry> FindView::sortMenu() {
    return sortMenuOf(*this);
}

std::vector<MenuEntry> FindView::rowMenu(const SharedIDs& ids) {
    std::vector<MenuEntry> menu = EntryList::rowMenu(ids);
    // Beside what opens the entry in its editor.
    menu.insert(menu.begin() + 1, {.title = "Show in Register",
                                   .symbolName = "list.bullet.rectangle",
                                   .shortcut = "Ctrl+Return",
                                   .leavesKeyToFocus = true,
                                   .perform = [this, ids] { showInRegister(*ids->begin()); },
                                   .isEnabled = ids->size() == 1});
    return menu;
}

void FindView::showInRegister(const UUID& id) {
    if (const Transaction* entry = environment_.store.index().transaction(id)) {
        // This view may end as soon as another screen is shown.
        AppState& state = environment_.appState;
        const UUID wanted = entry->id;
        state.setSelection(SidebarItem::account(entry->accountID));
        state.entryWanted.notify(wanted);
    }
}

FindContent FindView::derive(const FindContent* earlier) const {
    FindContent content{.searchText = term_,
                        .sort = sort_,
                        .table = tableAfter(earlier != nullptr ? earlier->table : nullptr)};
    content.selection = shownOf(selection_, *content.table);
    content.footer = footer(*content.table, *content.selection);
    return content;
}

FindView::SharedTable FindView::tableAfter(const SharedTable& earlier) const {
    Choice choice{environment_.store.sharedIndex(), term_, sort_};
    if (earlier != nullptr && choice == shownChoice_) {
        return earlier;
    }
    const FindRows::SharedState all = rows_.at(choice.index);
    if (choice.index != shownChoice_.index) {
        reaches_ = reachesOf<FoundEntry>(foundColumns(), all->entries);
    }
    shownChoice_ = std::move(choice);
    auto rows = found(*all, term_);
    sorter_.sort(rows, *columnNamed(foundColumns(), sort_.column), sort_.ascending);
    return keepingEqual(earlier,
                        std::make_shared<const Table<FoundEntry>>(foundColumns(), std::move(rows),
                                                                  all, reaches_, cellContext()));
}

RegisterFooter FindView::footer(const Table<FoundEntry>& table, const UUIDSet& selection) {
    const std::size_t count = table.rowCount();
    const auto amountOf = [](const FoundEntry& entry) { return entry.row->amount; };
    const Decimal total =
        sum(table.rows(), [&](const FoundEntry* entry) { return amountOf(*entry); });
    return {
        .figures = {{countText(count) + (count == 1 ? " transaction" : " transactions"), total}},
        .selection = selectedFigure(table, selection, amountOf)};
}

} // namespace oakfen
