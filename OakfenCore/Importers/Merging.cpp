#include "OakfenCore/Importers/Merging.h"

#include "OakfenCore/Importers/CategoryChooser.h"
#include "OakfenCore/Importers/DuplicateFinder.h"

namespace oakfen {

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
