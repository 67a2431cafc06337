#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Oakfen/Views/Register/FindRows.h"
#include "Oakfen/Views/Register/RegisterFilter.h"

namespace oakfen {

/// Answers for many rows of all accounts whether they hold a term: wherever the register finds it,
/// and of a split entry also in the category paths, memos and amounts of its lines, of which the
/// register shows nothing. Index and rows must outlive it.
class FindSearch {
public:
    FindSearch(std::string_view searchText, const LibraryIndex& index)
        : index_(index), search_(searchText) {}

    /// Whether there is anything to look for.
    [[nodiscard]] bool isActive() const { return search_.isActive(); }
    [[nodiscard]] bool finds(const RegisterRow& row);

private:
    bool findsLine(const Split& line);
    bool findsCategory(const std::optional<UUID>& id);

    const LibraryIndex& index_;
    RegisterSearch search_;
    // Of the categories that were asked for. The search remembers the texts where they lie.
    std::unordered_map<std::optional<UUID>, std::string> paths_;
    RegisterRow line_;
};

/// The entries that hold the term, all of them where there is nothing to look for, in their order.
[[nodiscard]] std::vector<const FoundEntry*> found(const FindRows::State& all,
                                                   std::string_view searchText);

} // namespace oakfen
