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
    if (isShown(*saved)) {
        selection = {leg};
        return leg;
    }
    if (hidden_.filter != filter || hidden_.searchText != searchText) {
        hidden_ = {.filter = filter, .searchText = searchText};
    }
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

bool RegisterView::isShown(const RegisterRow& row) const {
    RegisterSearch search(searchText);
    return RegisterFilterTest(filter, environment_.clock.now(), environment_.clock.calendar())
               .keeps(row) &&
           (!search.isActive() || search.finds(row));
}

std::vector<UUID> RegisterView::stillHidden() const {
    std::vector<UUID> ids;
    if (hidden_.filter == filter && hidden_.searchText == searchText) {
        std::ranges::copy_if(hidden_.ids, std::back_inserter(ids), [this](const UUID& id) {
            const RegisterRow* saved = row(id);
            return saved != nullptr && !isShown(*saved);
        });
    }
    return ids;
}

} // namespace oakfen
