#pragma once

#include <deque>
#include <mutex>
#include <optional>
#include <unordered_map>

#include "OakfenCore/LibraryIndex/AccountLedger.h"
#include "OakfenCore/LibraryIndex/CategoryTree.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/LibraryIndex/PayeeMemory.h"
#include "OakfenCore/LibraryIndex/PeriodSums.h"
#include "OakfenCore/LibraryIndex/PositionTable.h"

namespace oakfen {

/// The document's entries by id; of two with one id the last counts.
class TransactionsByID {
public:
    explicit TransactionsByID(const SharedArray<Transaction>& transactions);

    [[nodiscard]] const Transaction* find(const UUID& id) const;
    /// The ids that several entries share; a sound document has none.
    [[nodiscard]] const UUIDSet& repeatedIDs() const { return repeatedIDs_; }

private:
    const SharedArray<Transaction>& transactions_;
    PositionTable positions_;
    UUIDSet repeatedIDs_;
};

/// What an index knows. The balances are made at once; a screen asks for them after every edit.
/// What only some screens ask for is made at the first question, by whichever thread puts it.
struct LibraryIndex::Tables {
    Tables(Library snapshot, Date instant, const Calendar& calendar);

    /// Of all accounts, and of ids that name none but have entries or rows.
    [[nodiscard]] const std::deque<AccountLedger>& ledgers() const { return ledgers_; }
    /// The ledger of an id, or null when neither an account nor an entry nor a row has it.
    [[nodiscard]] const AccountLedger* ledger(const UUID& accountID) const;
    [[nodiscard]] const TransactionsByID& transactionsByID() const;
    [[nodiscard]] const PayeeMemory& payeeMemory() const;
    /// The running balances of entries whose id is not theirs alone: each id has one figure, that
    /// of the entry that comes last in the order of the accounts.
    [[nodiscard]] const std::unordered_map<UUID, Decimal>& repeatedBalances() const;

    Library library;
    Date now;
    Date cutOff;
    RecordsByID<Account> accounts;
    RecordsByID<Security> securities;
    CategoryTree categories;
    int uncategorizedCount = 0;
    /// Whether sums of lines are the same in any order.
    bool sumsAreExact = true;
    mutable PeriodMemory periods;

private:
    AccountLedger& ledgerFor(const UUID& accountID);
    void addTransactions();

    std::deque<AccountLedger> ledgers_;
    PositionTable ledgerPositions_;
    mutable std::once_flag transactionsOnce_;
    mutable std::optional<TransactionsByID> transactionsByID_;
    mutable std::once_flag memoryOnce_;
    mutable std::optional<PayeeMemory> payeeMemory_;
    mutable std::once_flag repeatedOnce_;
    mutable std::unordered_map<UUID, Decimal> repeatedBalances_;
};

} // namespace oakfen
