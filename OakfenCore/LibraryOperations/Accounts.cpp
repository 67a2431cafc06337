#include "OakfenCore/LibraryOperations/Accounts.h"

#include <utility>

#include "OakfenCore/LibraryOperations/ReplaceOrAppend.h"

namespace oakfen {

void upsert(Library& library, Account account) {
    replaceOrAppend(library.accounts, std::move(account));
}

void deleteAccount(Library& library, const UUID& id) {
    library.accounts.eraseIf([&](const Account& account) { return account.id == id; });
    library.transactions.eraseIf(
        [&](const Transaction& transaction) { return transaction.accountID == id; });
    // The other accounts' balances must not change, so what went to or came from here stays there.
    library.transactions.editWhere(
        [&](const Transaction& transaction) { return transaction.transferAccountID == id; },
        [](Transaction& transaction) {
            transaction.transferAccountID.reset();
            transaction.transferID.reset();
        });
    library.investmentTransactions.eraseIf(
        [&](const InvestmentTransaction& row) { return row.accountID == id; });
    library.scheduled.eraseIf([&](const ScheduledTransaction& scheduled) {
        return scheduled.accountID == id || scheduled.transferAccountID == id;
    });
}

} // namespace oakfen
