#include "OakfenCore/LibraryIndex/IndexTables.h"

#include <utility>

namespace oakfen {

TransactionsByID::TransactionsByID(const SharedArray<Transaction>& transactions)
    : transactions_(transactions), positions_(transactions.size()) {
    std::uint32_t position = 0;
    for (const Transaction& entry : transactions) {
        const auto [stored, isNew] =
            positions_.insert(entry.id, position, [this](std::uint32_t index) -> const UUID& {
                return transactions_[index].id;
            });
        if (!isNew) {
            stored = position;
            repeatedIDs_.insert(entry.id);
        }
        ++position;
    }
}

const Transaction* TransactionsByID::find(const UUID& id) const {
    const auto position = positions_.find(
        id, [this](std::uint32_t index) -> const UUID& { return transactions_[index].id; });
    return position ? &transactions_[*position] : nullptr;
}

LibraryIndex::Tables::Tables(Library snapshot, Date instant, const Calendar& calendar)
    : library(std::move(snapshot)), now(instant), cutOff(calendar.endOfDay(instant)),
      accounts(library.accounts), securities(library.securities), categories(library.categories) {
    for (const Account& account : library.accounts) {
        ledgerFor(account.id).begin(account.openingBalance);
    }
    addTransactions();
    for (const InvestmentTransaction& row : library.investmentTransactions) {
        ledgerFor(row.accountID).add(row);
    }
    const auto security = [this](const UUID& id) { return securities.find(id); };
    for (AccountLedger& ledger : ledgers_) {
        ledger.finish(cutOff, security);
        sumsAreExact = sumsAreExact && ledger.sumsAreExact();
    }
}

void LibraryIndex::Tables::addTransactions() {
    AccountLedger* ledger = nullptr;
    for (const Transaction& entry : library.transactions) {
        if (!ledger || ledger->id() != entry.accountID) {
            ledger = &ledgerFor(entry.accountID);
        }
        ledger->add(entry, cutOff);
        if (!entry.categoryID && !entry.isTransfer() && !entry.isSplit()) {
            ++uncategorizedCount;
        }
        for (const Split& split : entry.splits) {
            sumsAreExact = sumsAreExact && ExactSum::fits(split.amount);
        }
    }
}

AccountLedger& LibraryIndex::Tables::ledgerFor(const UUID& accountID) {
    const auto position = static_cast<std::uint32_t>(ledgers_.size());
    const auto [stored, isNew] =
        ledgerPositions_.insert(accountID, position, [this](std::uint32_t index) -> const UUID& {
            return ledgers_[index].id();
        });
    return isNew ? ledgers_.emplace_back(accountID) : ledgers_[stored];
}

const AccountLedger* LibraryIndex::Tables::ledger(const UUID& accountID) const {
    const auto position = ledgerPositions_.find(
        accountID, [this](std::uint32_t index) -> const UUID& { return ledgers_[index].id(); });
    return position ? &ledgers_[*position] : nullptr;
}

const TransactionsByID& LibraryIndex::Tables::transactionsByID() const {
    std::call_once(transactionsOnce_, [this] { transactionsByID_.emplace(library.transactions); });
    return *transactionsByID_;
}

const PayeeMemory& LibraryIndex::Tables::payeeMemory() const {
    std::call_once(memoryOnce_, [this] { payeeMemory_.emplace(library.transactions); });
    return *payeeMemory_;
}

const std::unordered_map<UUID, Decimal>& LibraryIndex::Tables::repeatedBalances() const {
    std::call_once(repeatedOnce_, [this] {
        const UUIDSet& repeated = transactionsByID().repeatedIDs();
        if (repeated.empty()) {
            return;
        }
        for (const Account& account : library.accounts) {
            const AccountLedger& entries = *ledger(account.id);
            for (std::size_t index = 0; index < entries.entries().size(); ++index) {
                const UUID& id = entries.entries()[index]->id;
                if (repeated.contains(id)) {
                    repeatedBalances_[id] = entries.runningBalances()[index];
                }
            }
        }
    });
    return repeatedBalances_;
}

} // namespace oakfen
