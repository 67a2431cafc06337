#include "OakfenCore/LibraryIndex/IndexTables.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

std::vector<RegisterRow> LibraryIndex::registerRows(const UUID& accountID) const {
    std::vector<RegisterRow> rows;
    const AccountLedger* ledger = tables_->ledger(accountID);
    if (!ledger) {
        return rows;
    }
    const std::vector<Decimal>& balances = ledger->runningBalances();
    const auto& repeatedBalances = tables_->repeatedBalances();
    rows.reserve(ledger->entries().size());
    for (const Transaction* entry : ledger->entries()) {
        RegisterRow& row = rows.emplace_back();
        row.id = entry->id;
        row.date = entry->date;
        row.checkNumber = entry->checkNumber;
        row.payee = entry->payee;
        row.categoryName = categoryDescription(*entry);
        row.memo = entry->memo;
        row.amount = entry->amount;
        row.balance = balances.empty() ? Decimal() : balances[rows.size() - 1];
        row.cleared = entry->cleared;
        row.isTransfer = entry->isTransfer();
        row.isSplit = entry->isSplit();
        row.tags = entry->tags;
        if (!repeatedBalances.empty()) {
            if (const auto repeated = repeatedBalances.find(entry->id);
                repeated != repeatedBalances.end()) {
                row.balance = repeated->second;
            }
        }
    }
    return rows;
}

} // namespace oakfen
