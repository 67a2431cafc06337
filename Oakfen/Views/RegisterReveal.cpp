#include "Oakfen/Views/RegisterView.h"

#include <algorithm>
#include <iterator>

#include "OakfenCore/Support/Text.h"

namespace oakfen {

std::optional<UUID> RegisterView::reveal(const UUID& id) {
    const Transaction* entry = environment_.store.index().transaction(id);
    if (entry == nullptr) {
        return std::nullopt;
    }
    const UUID leg = entry->accountID == accountID_ ? id : entry->transferID.value_or(id);
    const RegisterRow* saved = row(leg);
    if (saved == nullptr) {
        return std::nullopt;
    }
    if (rowTest().shows(*saved)) {
        selection = {leg};
        return leg;
    }
    forgetHiddenIfChanged();
    hidden_.filter = filter;
    hidden_.searchText = searchText;
    if (std::ranges::find(hidden_.ids, leg) == hidden_.ids.end()) {
        hidden_.ids.push_back(leg);
    }
    return std::nullopt;
}

std::optional<std::string> RegisterView::hiddenNotice() const {
    const std::size_t count = stillHidden().size();
    if (count == 0) {
        return std::nullopt;
    }
    const bool isSearched = !trimmingWhitespaces(searchText).empty();
    const std::string by = filter == RegisterFilter::all ? "search"
                           : isSearched                  ? "search and filter"
                                                         : "filter";
    return (count == 1 ? "The saved transaction is"
                       : std::to_string(count) + " saved transactions are") +
           " hidden by the " + by + ".";
}

void RegisterView::forgetHiddenIfChanged() {
    if (hidden_.filter != filter || hidden_.searchText != searchText) {
        hidden_ = {};
    }
}

std::optional<UUID> RegisterView::showHidden() {
    const std::vector<UUID> ids = stillHidden();
    filter = RegisterFilter::all;
    searchText.clear();
    hidden_ = {};
    if (ids.empty()) {
        return std::nullopt;
    }
    selection = UUIDSet(ids.begin(), ids.end());
    return ids.back();
}

const RegisterRow* RegisterView::row(const UUID& id) const {
    const auto found = std::ranges::find(rows(), id, &RegisterRow::id);
    return found == rows().end() ? nullptr : &*found;
}

std::vector<UUID> RegisterView::stillHidden() const {
    if (hidden_.ids.empty() || hidden_.filter != filter || hidden_.searchText != searchText) {
        return {};
    }
    // One pass through the rows, of which there may be as many as a person has ever entered.
    const UUIDSet saved(hidden_.ids.begin(), hidden_.ids.end());
    UUIDSet hidden;
    RegisterRowTest test = rowTest();
    for (const RegisterRow& row : rows()) {
        if (saved.contains(row.id) && !test.shows(row)) {
            hidden.insert(row.id);
        }
    }
    std::vector<UUID> ids;
    std::ranges::copy_if(hidden_.ids, std::back_inserter(ids),
                         [&](const UUID& id) { return hidden.contains(id); });
    return ids;
}

} // namespace oakfen
