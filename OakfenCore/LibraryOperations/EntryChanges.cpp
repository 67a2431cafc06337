#include "OakfenCore/LibraryOperations/EntryChanges.h"

#include <unordered_map>

namespace oakfen {

namespace {

/// The dates that the other legs of transfers among the entries get, by their ids.
using TwinDates = std::unordered_map<UUID, Date>;

Date changedDate(const EntryChanges& changes, Date date) {
    return changes.date ? changes.date(date) : date;
}

TwinDates datesOfTwins(const Library& library, const EntryChanges& changes, const UUIDSet& ids) {
    TwinDates dates;
    for (const Transaction& leg : library.transactions) {
        if (leg.isTransfer() && leg.transferID && ids.contains(leg.id) &&
            !ids.contains(*leg.transferID)) {
            dates[*leg.transferID] = changedDate(changes, leg.date);
        }
    }
    return dates;
}

/// What both legs of a transfer have in common.
void changeShared(Transaction& entry, const EntryChanges& changes, Date date) {
    entry.payee = changes.payee.value_or(entry.payee);
    entry.memo = changes.memo.value_or(entry.memo);
    entry.date = date;
}

} // namespace

void changeEntries(Library& library, const EntryChanges& changes, const UUIDSet& ids) {
    const TwinDates twins = datesOfTwins(library, changes, ids);
    library.transactions.editWhere([&](const Transaction& entry) { return ids.contains(entry.id); },
                                   [&](Transaction& entry) {
                                       changeShared(entry, changes,
                                                    changedDate(changes, entry.date));
                                       entry.tags = changes.tags.value_or(entry.tags);
                                   });
    if (twins.empty() || !(changes.payee || changes.memo || changes.date)) {
        return;
    }
    library.transactions.editWhere(
        [&](const Transaction& entry) { return twins.contains(entry.id); },
        [&](Transaction& entry) { changeShared(entry, changes, twins.at(entry.id)); });
}

} // namespace oakfen
