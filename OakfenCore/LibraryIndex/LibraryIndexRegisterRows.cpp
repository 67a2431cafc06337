#include <algorithm>
#include <iterator>

#include "OakfenCore/LibraryIndex/IndexTables.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

namespace {

using Entries = std::span<const Transaction* const>;

/// Whether two lists hold the same entry at a place, though maybe not in the same state.
bool isSameEntry(const Transaction* a, const Transaction* b) {
    return a == b || a->id == b->id;
}

/// How many entries two lists have in common at their beginnings.
std::size_t commonStart(Entries a, Entries b) {
    const auto end = std::ranges::mismatch(a, b, isSameEntry).in1;
    return static_cast<std::size_t>(end - a.begin());
}

/// How many they have in common at their ends.
std::size_t commonEnd(Entries a, Entries b) {
    const auto end = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend(), isSameEntry).first;
    return static_cast<std::size_t>(end - a.rbegin());
}

} // namespace

std::vector<RegisterRow> LibraryIndex::registerRows(const UUID& accountID) const {
    std::vector<RegisterRow> rows;
    const Entries entries = transactions(accountID);
    rows.reserve(entries.size());
    for (const Transaction* entry : entries) {
        rows.push_back(registerRow(*entry));
    }
    fillBalances(rows, accountID);
    return rows;
}

void LibraryIndex::updateRegisterRows(std::vector<RegisterRow>& rows, const UUID& accountID,
                                      const LibraryIndex& earlier) const {
    const Entries before = earlier.transactions(accountID);
    const Entries after = transactions(accountID);
    // The names in the category column come from these.
    const bool hasSameNames = earlier.library().categories == library().categories &&
                              earlier.library().accounts == library().accounts;
    if (!hasSameNames || rows.size() != before.size()) {
        rows = registerRows(accountID);
        return;
    }
    const std::size_t firstChange = renewRows(rows, before, after);
    const bool hasRepeatedIDs =
        !tables_->repeatedBalances().empty() || !earlier.tables_->repeatedBalances().empty();
    if (firstChange == 0 || hasRepeatedIDs || account(accountID) == nullptr) {
        fillBalances(rows, accountID);
        return;
    }
    for (std::size_t index = firstChange; index < rows.size(); ++index) {
        rows[index].balance = rows[index - 1].balance + rows[index].amount;
    }
}

std::size_t LibraryIndex::renewRows(std::vector<RegisterRow>& rows, Entries before,
                                    Entries after) const {
    const std::size_t start = commonStart(before, after);
    const std::size_t end = commonEnd(before.subspan(start), after.subspan(start));
    const auto place = rows.begin() + static_cast<std::ptrdiff_t>(start);
    if (after.size() < before.size()) {
        rows.erase(place, place + static_cast<std::ptrdiff_t>(before.size() - after.size()));
    } else {
        rows.insert(place, after.size() - before.size(), RegisterRow());
    }
    std::size_t firstChange = before.size() == after.size() ? after.size() : start;
    for (std::size_t index = 0; index < after.size(); ++index) {
        const bool isStart = index < start;
        const bool isEnd = index >= after.size() - end;
        const std::size_t earlierIndex = isStart ? index : index + before.size() - after.size();
        // Entries are immutable, so one that still lies at its address is the same.
        if ((!isStart && !isEnd) || before[earlierIndex] != after[index]) {
            rows[index] = registerRow(*after[index]);
            firstChange = std::min(firstChange, index);
        }
    }
    return firstChange;
}

RegisterRow LibraryIndex::registerRow(const Transaction& entry) const {
    return {.id = entry.id,
            .date = entry.date,
            .checkNumber = entry.checkNumber,
            .payee = entry.payee,
            .categoryName = categoryDescription(entry),
            .memo = entry.memo,
            .amount = entry.amount,
            .cleared = entry.cleared,
            .isTransfer = entry.isTransfer(),
            .isSplit = entry.isSplit(),
            .tags = entry.tags};
}

void LibraryIndex::fillBalances(std::vector<RegisterRow>& rows, const UUID& accountID) const {
    const AccountLedger* ledger = tables_->ledger(accountID);
    if (ledger == nullptr) {
        return;
    }
    const std::vector<Decimal>& balances = ledger->runningBalances();
    const auto& repeatedBalances = tables_->repeatedBalances();
    for (std::size_t index = 0; index < rows.size(); ++index) {
        RegisterRow& row = rows[index];
        row.balance = balances.empty() ? Decimal() : balances[index];
        if (!repeatedBalances.empty()) {
            if (const auto repeated = repeatedBalances.find(row.id);
                repeated != repeatedBalances.end()) {
                row.balance = repeated->second;
            }
        }
    }
}

} // namespace oakfen
