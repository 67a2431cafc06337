#include "OakfenCore/LibraryIndex/PayeeMemory.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <unordered_set>
#include <utility>

#include "OakfenCore/LibraryIndex/Sorting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// An entry and its place in the document, which decides between entries of one instant.
struct Placed {
    const Transaction* entry = nullptr;
    std::size_t position = 0;

    [[nodiscard]] bool isLaterThan(const Placed& other) const {
        return std::pair(entry->date, position) > std::pair(other.entry->date, other.position);
    }
};

template <typename Key>
void keepLatest(std::unordered_map<Key, Placed>& latest, Key key, const Placed& placed) {
    const auto [found, isNew] = latest.try_emplace(std::move(key), placed);
    if (!isNew && placed.isLaterThan(found->second)) {
        found->second = placed;
    }
}

std::string normalized(std::string_view payee) {
    return lowercased(trimmingWhitespaces(payee));
}

} // namespace

PayeeMemory::PayeeMemory(const SharedArray<Transaction>& transactions) {
    // By exact spelling first, so that each spelling is normalised once and not once per entry.
    std::unordered_map<std::string_view, Placed> latestBySpelling;
    std::unordered_set<std::string_view> tags;
    std::size_t position = 0;
    for (const Transaction& entry : transactions) {
        keepLatest(latestBySpelling, std::string_view(entry.payee), {&entry, position});
        tags.insert(entry.tags.begin(), entry.tags.end());
        ++position;
    }
    std::unordered_map<std::string, Placed> latestByName;
    for (const auto& [spelling, placed] : latestBySpelling) {
        if (std::string name = normalized(spelling); !name.empty()) {
            keepLatest(latestByName, std::move(name), placed);
        }
    }
    payees_.reserve(latestByName.size());
    for (const auto& [name, placed] : latestByName) {
        latest_.emplace(name, placed.entry);
        payees_.push_back(placed.entry->payee);
    }
    sortForPeople(payees_, std::identity());
    tags_.assign(tags.begin(), tags.end());
    std::sort(tags_.begin(), tags_.end());
}

const Transaction* PayeeMemory::latest(std::string_view payee) const {
    const auto found = latest_.find(normalized(payee));
    return found == latest_.end() ? nullptr : found->second;
}

} // namespace oakfen
