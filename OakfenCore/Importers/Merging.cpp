#include "OakfenCore/Importers/Merging.h"

#include <string>
#include <unordered_map>

#include "OakfenCore/Importers/DuplicateFinder.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/LibraryOperations/Categories.h"

namespace oakfen {

namespace {

/// Chooses the category of each line; asks the document but once for each name.
class CategoryChooser {
public:
    explicit CategoryChooser(const LibraryIndex& index) : index_(index) {}

    std::optional<UUID> category(const ImportedTransaction& item) {
        if (item.categoryName && !item.categoryName->empty()) {
            if (const auto named = categoryOfName(*item.categoryName)) {
                return named;
            }
        }
        const Transaction* memorized = index_.memorized(item.payee);
        return memorized != nullptr && !memorized->isTransfer() ? memorized->categoryID
                                                                : std::nullopt;
    }

private:
    std::optional<UUID> categoryOfName(const std::string& name) {
        const auto [place, isNew] = named_.try_emplace(name);
        if (isNew) {
            if (const Category* found = categoryNamed(index_.library(), name)) {
                place->second = found->id;
            }
        }
        return place->second;
    }

    const LibraryIndex& index_;
    std::unordered_map<std::string, std::optional<UUID>> named_;
};

} // namespace

std::size_t importTransactions(Library& library, std::span<const ImportedTransaction> items,
                               const UUID& accountID, Date now, const Calendar& calendar) {
    // The index keeps the document as it was: what this import adds is neither compared with its
    // later lines nor remembered for them.
    const LibraryIndex index(library, now, calendar);
    const DuplicateFinder duplicates(index.transactions(accountID), calendar);
    CategoryChooser categories(index);
    std::size_t added = 0;
    for (const ImportedTransaction& item : items) {
        if (duplicates.match(item) != nullptr) {
            continue;
        }
        library.transactions.push_back({
            .id = UUID::random(),
            .accountID = accountID,
            .date = item.date,
            .payee = item.payee,
            .amount = item.amount,
            .categoryID = categories.category(item),
            .memo = item.memo,
            .checkNumber = item.checkNumber,
            .cleared = ClearedState::cleared, // the bank has it, so it is cleared there
            .importID = item.importID,
        });
        ++added;
    }
    return added;
}

} // namespace oakfen
