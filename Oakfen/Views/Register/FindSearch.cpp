#include "Oakfen/Views/Register/FindSearch.h"

#include <algorithm>

namespace oakfen {

bool FindSearch::finds(const RegisterRow& row) {
    if (search_.finds(row)) {
        return true;
    }
    const Transaction* entry = row.isSplit ? index_.transaction(row.id) : nullptr;
    return entry != nullptr && std::ranges::any_of(entry->splits, [this](const Split& line) {
               return findsLine(line);
           });
}

bool FindSearch::findsLine(const Split& line) {
    line_.memo = line.memo;
    line_.amount = line.amount;
    return findsCategory(line.categoryID) || search_.finds(line_);
}

bool FindSearch::findsCategory(const std::optional<UUID>& id) {
    const auto [path, isNew] = paths_.try_emplace(id);
    if (isNew) {
        path->second = index_.categoryName(id);
    }
    return search_.findsCategory(path->second);
}

std::vector<const FoundEntry*> found(const FindRows::State& all, std::string_view searchText) {
    FindSearch search(searchText, *all.index);
    if (!search.isActive()) {
        return all.inOrder;
    }
    std::vector<const FoundEntry*> entries;
    for (const FoundEntry* entry : all.inOrder) {
        if (search.finds(*entry->row)) {
            entries.push_back(entry);
        }
    }
    return entries;
}

} // namespace oakfen
