#include "Oakfen/Views/Register/RegisterView.h"

#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

void RegisterView::reveal(const UUID& id) {
    const Transaction* entry = environment_.store.index().transaction(id);
    if (entry == nullptr) {
        return;
    }
    const UUID leg = entry->accountID == accountID_ ? id : entry->transferID.value_or(id);
    const RegisterRow* saved = rowOf(leg);
    if (saved == nullptr) {
        return;
    }
    if (rowTest().shows(*saved)) {
        selectAndReveal({leg}, leg);
    } else if (std::ranges::find(hidden_, leg) == hidden_.end()) {
        hidden_.push_back(leg);
    }
    stateChanged();
}

void RegisterView::show(const UUID& id) {
    const RegisterRow* wanted = rowOf(id);
    if (wanted == nullptr) {
        return;
    }
    if (!rowTest().shows(*wanted)) {
        showAll();
    }
    selectAndReveal({id}, id);
    stateChanged();
}

const RegisterRow* RegisterView::rowOf(const UUID& id) const {
    return rows()->first([&](const RegisterRow& row) { return row.id == id; });
}

void RegisterView::showAll() {
    filter_ = RegisterFilter::all;
    searchText_.clear();
    hidden_.clear();
}

void RegisterView::showHidden() {
    const std::vector<UUID> ids = stillHidden();
    showAll();
    if (!ids.empty()) {
        selectAndReveal(UUIDSet(ids.begin(), ids.end()), ids.back());
    }
    stateChanged();
}

void RegisterView::selectAndReveal(UUIDSet ids, const UUID& last) {
    selection_ = std::make_shared<const UUIDSet>(std::move(ids));
    revealed_ = {.id = last, .number = revealed_ ? revealed_->number + 1 : 1};
}

void RegisterView::followLibrary() {
    if (shownChoice_.index != nullptr && environment_.undoManager.isTaking()) {
        revealWhatCameBack(*shownChoice_.index);
    }
    stateChanged();
}

void RegisterView::revealWhatCameBack(const LibraryIndex& earlier) {
    const auto before = earlier.transactions(accountID_);
    const auto now = environment_.store.index().transactions(accountID_);
    // Entries are immutable, so those that lie where they lay are the same; mostly nearly all do.
    const auto same = std::ranges::mismatch(before, now);
    const auto first = same.in2 - now.begin();
    const auto sameAtEnd =
        std::ranges::mismatch(std::ranges::subrange(same.in1, before.end()) | std::views::reverse,
                              std::ranges::subrange(same.in2, now.end()) | std::views::reverse);
    const auto last = sameAtEnd.in2.base() - now.begin();
    RegisterRowTest test = rowTest();
    UUIDSet ids;
    std::optional<UUID> latest;
    for (auto place = first; place < last; ++place) {
        const Transaction& entry = *now[static_cast<std::size_t>(place)];
        const Transaction* was = earlier.transaction(entry.id);
        if (was != &entry && (was == nullptr || *was != entry) &&
            test.shows((*rows())[static_cast<std::size_t>(place)])) {
            ids.insert(entry.id);
            latest = entry.id;
        }
    }
    if (latest) {
        selectAndReveal(std::move(ids), *latest);
    }
}

std::optional<std::string> RegisterView::hiddenNotice() const {
    const std::size_t count = stillHidden().size();
    if (count == 0) {
        return std::nullopt;
    }
    const bool isSearched = !trimmingWhitespaces(searchText_).empty();
    const std::string by = filter_ == RegisterFilter::all ? "search"
                           : isSearched                   ? "search and filter"
                                                          : "filter";
    return (count == 1 ? "The saved transaction is"
                       : countText(count) + " saved transactions are") +
           " hidden by the " + by + ".";
}

std::vector<UUID> RegisterView::stillHidden() const {
    if (hidden_.empty()) {
        return {};
    }
    // One pass through the rows, of which there may be as many as a person has ever entered.
    const UUIDSet saved(hidden_.begin(), hidden_.end());
    UUIDSet hidden;
    RegisterRowTest test = rowTest();
    for (const RegisterRow& row : *rows()) {
        if (saved.contains(row.id) && !test.shows(row)) {
            hidden.insert(row.id);
        }
    }
    std::vector<UUID> ids;
    std::ranges::copy_if(hidden_, std::back_inserter(ids),
                         [&](const UUID& id) { return hidden.contains(id); });
    return ids;
}

} // namespace oakfen
