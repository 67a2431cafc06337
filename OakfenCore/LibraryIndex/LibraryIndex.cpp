#include "OakfenCore/LibraryIndex/LibraryIndex.h"

#include <utility>

#include "OakfenCore/LibraryIndex/IndexTables.h"

namespace oakfen {

LibraryIndex::LibraryIndex(Library library, Date now, const Calendar& calendar)
    : tables_(std::make_unique<const Tables>(std::move(library), now, calendar)) {}

LibraryIndex::~LibraryIndex() = default;

const Library& LibraryIndex::library() const {
    return tables_->library;
}

Date LibraryIndex::now() const {
    return tables_->now;
}

const Account* LibraryIndex::account(const UUID& id) const {
    return tables_->accounts.find(id);
}

const Category* LibraryIndex::category(const UUID& id) const {
    return tables_->categories.find(id);
}

const Security* LibraryIndex::security(const UUID& id) const {
    return tables_->securities.find(id);
}

const Transaction* LibraryIndex::transaction(const UUID& id) const {
    return tables_->transactionsByID().find(id);
}

std::span<const Transaction* const> LibraryIndex::transactions(const UUID& accountID) const {
    const AccountLedger* ledger = tables_->ledger(accountID);
    return ledger ? ledger->entries() : std::span<const Transaction* const>();
}

const Transaction* LibraryIndex::memorized(std::string_view payee) const {
    return tables_->payeeMemory().latest(payee);
}

const std::vector<std::string>& LibraryIndex::payees() const {
    return tables_->payeeMemory().payees();
}

const std::vector<std::string>& LibraryIndex::tags() const {
    return tables_->payeeMemory().tags();
}

} // namespace oakfen
