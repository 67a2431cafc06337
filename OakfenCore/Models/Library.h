#pragma once

#include <map>
#include <string>

#include "OakfenCore/Models/Records.h"
#include "OakfenCore/Support/Values/SharedArray.h"

namespace oakfen {

/// The whole document: one plain value. Copies share their storage, so a snapshot is nearly free.
struct Library {
    /// The newest format version that this program writes and reads.
    static constexpr long long currentVersion = 1;

    long long version = currentVersion;
    /// The one currency of the document, an ISO 4217 code.
    std::string currencyCode;
    SharedArray<Account> accounts;
    SharedArray<Category> categories;
    /// All accounts' entries; ledger order is derived by the index.
    SharedArray<Transaction> transactions;
    SharedArray<Security> securities;
    SharedArray<InvestmentTransaction> investmentTransactions;
    SharedArray<ScheduledTransaction> scheduled;
    /// The monthly amount for a category, by its id.
    std::map<UUID, Decimal> budget;
    SharedArray<SavingsGoal> goals;

    friend bool operator==(const Library&, const Library&) = default;
};

/// The code of the user's locale; "CAD" when it has none.
[[nodiscard]] std::string defaultCurrencyCode();

} // namespace oakfen
