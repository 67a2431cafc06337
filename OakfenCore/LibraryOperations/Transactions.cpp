#include "OakfenCore/LibraryOperations/Transactions.h"

#include <utility>

#include "OakfenCore/LibraryOperations/ReplaceOrAppend.h"

namespace oakfen {

namespace {

using Transactions = SharedArray<Transaction>;

std::optional<std::size_t> indexOf(const Transactions& transactions, const UUID& id) {
    return transactions.firstIndex(
        [&](const Transaction& candidate) { return candidate.id == id; });
}

/// Stores the entry where its id stands, if that is known, without another look through all.
void replace(Transactions& transactions, std::optional<std::size_t> index, Transaction entry) {
    if (index) {
        transactions.edit(*index) = std::move(entry);
    } else {
        replaceOrAppend(transactions, std::move(entry));
    }
}

/// What the leg `twin` must be for `leg` to be its other half. The state, the number, the tags and
/// the statement's id belong to each account's own paper and stay as they are.
Transaction mirrored(Transaction twin, const Transaction& leg) {
    twin.id = *leg.transferID;
    twin.accountID = *leg.transferAccountID;
    twin.date = leg.date;
    twin.payee = leg.payee;
    twin.amount = -leg.amount;
    twin.memo = leg.memo;
    twin.categoryID.reset();
    twin.splits.clear();
    twin.transferAccountID = leg.accountID;
    twin.transferID = leg.id;
    return twin;
}

/// A transfer into the same account moves nothing, so it is none.
bool hasTwoLegs(const Transaction& entry) {
    return entry.transferAccountID && entry.transferAccountID != entry.accountID;
}

/// Takes from a leg what a transfer has not.
void normaliseLeg(Transaction& leg) {
    leg.categoryID.reset();
    leg.splits.clear();
}

/// Takes from an entry what only a transfer has, and gives a split one the sum of its lines.
void normaliseOrdinary(Transaction& entry) {
    entry.transferAccountID.reset();
    entry.transferID.reset();
    if (entry.isSplit()) {
        entry.amount = sum(entry.splits, &Split::amount);
        entry.categoryID.reset();
    }
}

void upsertTransfer(Transactions& transactions, Transaction leg) {
    const auto index = indexOf(transactions, leg.id);
    normaliseLeg(leg);
    if (!leg.transferID && index) {
        leg.transferID = transactions[*index].transferID;
    }
    const bool mayHaveTwin = leg.transferID.has_value();
    if (!mayHaveTwin) {
        leg.transferID = UUID::random();
    }
    const auto twinIndex = mayHaveTwin ? indexOf(transactions, *leg.transferID) : std::nullopt;
    if (twinIndex) {
        Transaction& twin = transactions.edit(*twinIndex);
        twin = mirrored(std::move(twin), leg);
    } else {
        transactions.push_back(mirrored(Transaction{}, leg));
    }
    replace(transactions, index, std::move(leg));
}

void upsertOrdinary(Transactions& transactions, Transaction entry) {
    auto index = indexOf(transactions, entry.id);
    // The caller may have cleared the field already, so the stored entry knows its twin best.
    std::optional<UUID> droppedID = entry.transferID;
    if (index && transactions[*index].transferID) {
        droppedID = transactions[*index].transferID;
    }
    if (droppedID) {
        transactions.eraseIf(
            [&](const Transaction& candidate) { return candidate.id == *droppedID; });
        index.reset();
    }
    normaliseOrdinary(entry);
    replace(transactions, index, std::move(entry));
}

} // namespace

void upsert(Library& library, Transaction transaction) {
    if (hasTwoLegs(transaction)) {
        upsertTransfer(library.transactions, std::move(transaction));
    } else {
        upsertOrdinary(library.transactions, std::move(transaction));
    }
}

void appendNew(Library& library, Transaction transaction) {
    if (hasTwoLegs(transaction)) {
        normaliseLeg(transaction);
        transaction.transferID = UUID::random();
        library.transactions.push_back(mirrored(Transaction{}, transaction));
    } else {
        normaliseOrdinary(transaction);
    }
    library.transactions.push_back(std::move(transaction));
}

void deleteTransactions(Library& library, const UUIDSet& ids) {
    UUIDSet withTwins = ids;
    for (const Transaction& transaction : library.transactions) {
        if (transaction.transferID && ids.contains(transaction.id)) {
            withTwins.insert(*transaction.transferID);
        }
    }
    library.transactions.eraseIf(
        [&](const Transaction& transaction) { return withTwins.contains(transaction.id); });
}

void setCleared(Library& library, ClearedState state, const UUIDSet& ids) {
    library.transactions.editWhere(
        [&](const Transaction& transaction) { return ids.contains(transaction.id); },
        [&](Transaction& transaction) { transaction.cleared = state; });
}

void setCategory(Library& library, const std::optional<UUID>& categoryID, const UUIDSet& ids) {
    library.transactions.editWhere(
        [&](const Transaction& transaction) {
            return !transaction.isTransfer() && ids.contains(transaction.id);
        },
        [&](Transaction& transaction) {
            transaction.categoryID = categoryID;
            transaction.splits.clear();
        });
}

} // namespace oakfen
