#include "Fuzz/LibraryRules.h"

#include <unordered_map>
#include <unordered_set>

#include "Fuzz/Targets.h"
#include "OakfenCore/LibraryIndex/NetWorthSeries.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/Models/InvestmentAmounts.h"
#include "OakfenCore/Models/LibraryCoding.h"

namespace oakfen::fuzz {

namespace {

constexpr Date now{796'000'000};

const Calendar& calendar() {
    static const Calendar havana = Calendar::inZone("America/Havana").value();
    return havana;
}

void requireInStep(const Transaction& leg, const Transaction& twin) {
    require(twin.transferID == leg.id, "a leg's twin points back at it");
    require(twin.accountID == *leg.transferAccountID && twin.transferAccountID == leg.accountID,
            "each leg names the other's account");
    require(twin.amount == -leg.amount, "legs have opposite amounts");
    require(twin.date == leg.date && twin.payee == leg.payee && twin.memo == leg.memo,
            "legs agree in date, payee and memo");
}

void requireSound(const Transaction& entry,
                  const std::unordered_map<UUID, const Transaction*>& entries) {
    require(!entry.amount.isNaN(), "an entry's amount is a number");
    if (entry.isSplit()) {
        require(entry.amount == sum(entry.splits, &Split::amount), "splits add up to the amount");
        require(!entry.categoryID, "a split entry has no category of its own");
    }
    if (!entry.isTransfer()) {
        require(!entry.transferID, "only transfers have another leg");
        return;
    }
    require(!entry.categoryID && !entry.isSplit(), "a transfer has no category and no splits");
    const auto twin = entry.transferID ? entries.find(*entry.transferID) : entries.end();
    require(twin != entries.end(), "a transfer has both its legs");
    requireInStep(entry, *twin->second);
}

} // namespace

void requireReadableCopy(const Library& library) {
    const std::string json = encodeLibrary(library);
    const Library copy = decodeLibrary(json);
    require(copy == library, "a document is read as it was written");
    require(encodeLibrary(copy) == json, "equal documents have the same text");
}

void requireSound(const Library& library) {
    std::unordered_map<UUID, const Transaction*> entries;
    for (const Transaction& entry : library.transactions) {
        require(entries.emplace(entry.id, &entry).second, "ids of entries are unique");
    }
    for (const Transaction& entry : library.transactions) {
        requireSound(entry, entries);
    }
}

void requireBalanced(const LibraryIndex& index) {
    const Library& library = index.library();
    std::unordered_map<UUID, Decimal> cash;
    for (const Account& account : library.accounts) {
        cash[account.id] = account.openingBalance;
    }
    for (const Transaction& entry : library.transactions) {
        cash[entry.accountID] += entry.amount;
    }
    for (const InvestmentTransaction& row : library.investmentTransactions) {
        cash[row.accountID] += cashEffect(row);
    }
    Decimal netWorth;
    for (const Account& account : library.accounts) {
        require(index.endingCash(account.id) == cash[account.id],
                "an account's cash is the sum of its entries");
        const auto rows = index.registerRows(account.id);
        Decimal balance = account.openingBalance;
        for (const RegisterRow& row : rows) {
            balance += row.amount;
            require(row.balance == balance, "the balance runs along the register");
        }
        netWorth += account.isClosed ? Decimal() : index.balance(account.id);
    }
    require(index.netWorth() == netWorth, "net worth is the sum of the open accounts");
}

void askEverything(const Library& library) {
    const LibraryIndex index(library, now, calendar());
    std::size_t answers = index.payees().size() + index.tags().size() + index.allHoldings().size();
    for (const Account& account : library.accounts) {
        answers += index.registerRows(account.id).size();
        answers += index.balance(account, now).isZero() ? 0 : 1;
        answers += index.endingBalance(account.id).isZero() ? 0 : 1;
    }
    for (const Transaction& entry : library.transactions) {
        require(index.transaction(entry.id) != nullptr, "every entry is found by its id");
        answers += index.categoryDescription(entry).size();
    }
    for (const CategoryKind kind : allCases<CategoryKind>) {
        answers += index.sortedCategories(kind).size() + index.topLevelCategories(kind).size();
    }
    const DateInterval always{Date::distantPast(), Date::distantFuture()};
    for (const Category& category : library.categories) {
        answers += index.children(category.id).size();
        answers += actual(index, category.id, always, true).isZero() ? 0 : 1;
    }
    answers += spendingByCategory(index, always, true).size();
    answers += incomeByCategory(index, always, false).size();
    answers += spendingByPayee(index, always).size();
    answers += cashFlow(index, always, calendar()).size();
    answers += netWorthSeries(index, 24, calendar()).size();
    require(answers < std::size_t{1} << 40U, "the answers are finite");
}

} // namespace oakfen::fuzz
