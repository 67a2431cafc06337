#include <algorithm>
#include <utility>

#include "OakfenCore/LibraryIndex/IndexTables.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/LibraryIndex/Sorting.h"
#include "OakfenCore/Models/InvestmentAmounts.h"

namespace oakfen {

namespace {

const CashFigures& figuresOf(const AccountLedger* ledger) {
    static const CashFigures none;
    return ledger ? ledger->figures() : none;
}

Decimal valueOf(const std::vector<Holding>& holdings) {
    return sum(holdings, &Holding::marketValue);
}

} // namespace

Decimal LibraryIndex::runningBalance(const UUID& transactionID) const {
    const TransactionsByID& byID = tables_->transactionsByID();
    if (byID.repeatedIDs().contains(transactionID)) {
        const auto& balances = tables_->repeatedBalances();
        const auto found = balances.find(transactionID);
        return found == balances.end() ? Decimal() : found->second;
    }
    const Transaction* entry = byID.find(transactionID);
    return entry ? tables_->ledger(entry->accountID)->runningBalance(*entry) : Decimal();
}

Decimal LibraryIndex::endingCash(const UUID& accountID) const {
    return figuresOf(tables_->ledger(accountID)).ending;
}

Decimal LibraryIndex::currentCash(const UUID& accountID) const {
    return figuresOf(tables_->ledger(accountID)).current;
}

Decimal LibraryIndex::clearedBalance(const UUID& accountID) const {
    return figuresOf(tables_->ledger(accountID)).cleared;
}

Decimal LibraryIndex::reconciledBalance(const UUID& accountID) const {
    return figuresOf(tables_->ledger(accountID)).reconciled;
}

const std::vector<Holding>& LibraryIndex::holdings(const UUID& accountID) const {
    static const std::vector<Holding> none;
    const AccountLedger* ledger = tables_->ledger(accountID);
    return ledger ? ledger->holdings() : none;
}

std::vector<Holding> LibraryIndex::allHoldings() const {
    std::vector<const std::vector<Holding>*> holdings;
    for (const AccountLedger& ledger : tables_->ledgers()) {
        holdings.push_back(&ledger.holdings());
    }
    return mergeHoldings(holdings, [this](const UUID& id) { return security(id); });
}

Decimal LibraryIndex::marketValue(const UUID& accountID) const {
    return valueOf(holdings(accountID));
}

Decimal LibraryIndex::balance(const UUID& accountID) const {
    return currentCash(accountID) + marketValue(accountID);
}

Decimal LibraryIndex::endingBalance(const UUID& accountID) const {
    return endingCash(accountID) + marketValue(accountID);
}

Decimal LibraryIndex::balance(const Account& account, Date asOf) const {
    return balances(account, std::span(&asOf, 1)).front();
}

std::vector<Decimal> LibraryIndex::balances(const Account& account,
                                            std::span<const Date> instants) const {
    const auto opening = std::lower_bound(instants.begin(), instants.end(), account.openingDate);
    std::vector<Decimal> result(static_cast<std::size_t>(opening - instants.begin()));
    const std::span<const Date> since(opening, instants.end());
    const AccountLedger* ledger = tables_->ledger(account.id);
    if (!ledger) {
        result.resize(instants.size(), account.openingBalance);
        return result;
    }
    std::vector<Decimal> cash = ledger->cash(account.openingBalance, since);
    if (isInvestment(account.type)) {
        addInvestments(cash, *ledger, since);
    }
    result.insert(result.end(), cash.begin(), cash.end());
    return result;
}

void LibraryIndex::addInvestments(std::vector<Decimal>& balances, const AccountLedger& ledger,
                                  std::span<const Date> instants) const {
    std::vector<std::pair<Date, Decimal>> effects;
    for (const InvestmentTransaction* row : ledger.rows()) {
        effects.emplace_back(row->date, cashEffect(*row));
    }
    HoldingsHistory history(ledger.rows(), [this](const UUID& id) { return security(id); });
    for (std::size_t index = 0; index < instants.size(); ++index) {
        for (const auto& [date, effect] : effects) {
            if (date <= instants[index]) {
                balances[index] += effect;
            }
        }
        balances[index] += valueOf(history.at(instants[index]));
    }
}

Decimal LibraryIndex::netWorth() const {
    return sum(openAccounts(), [this](const Account* account) { return balance(account->id); });
}

Decimal LibraryIndex::totalAssets() const {
    return sum(openAccounts(), [this](const Account* account) {
        return std::max(balance(account->id), Decimal());
    });
}

Decimal LibraryIndex::totalLiabilities() const {
    return sum(openAccounts(), [this](const Account* account) {
        return std::min(balance(account->id), Decimal());
    });
}

std::vector<const Account*> LibraryIndex::openAccounts() const {
    std::vector<const Account*> result;
    for (const Account& account : library().accounts) {
        if (!account.isClosed) {
            result.push_back(&account);
        }
    }
    return result;
}

std::vector<const Account*> LibraryIndex::accounts(AccountGroup group, bool includeClosed) const {
    std::vector<const Account*> result;
    for (const Account& account : library().accounts) {
        if (oakfen::group(account.type) == group && (includeClosed || !account.isClosed)) {
            result.push_back(&account);
        }
    }
    sortRecordsForPeople(result, &Account::name);
    return result;
}

} // namespace oakfen
