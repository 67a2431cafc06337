#include "Oakfen/AccountClosing.h"

#include <utility>

#include "Oakfen/UndoNotice.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

std::string closingText(const Account& account, const Decimal& balance,
                        std::string_view currencyCode) {
    const std::string money = currencyText(balance.magnitude(), currencyCode);
    if (money == currencyText(Decimal(), currencyCode)) {
        return {};
    }
    return "Net worth no longer counts " + money + (balance.isNegative() ? " owed" : "") + " in " +
           quoted(account.name) + ".";
}

void storeAccount(AppEnvironment& environment, const std::string& actionName,
                  const Account& account) {
    LibraryStore& store = environment.store;
    const Account* earlier = store.index().account(account.id);
    const bool wasOpen = earlier != nullptr && !earlier->isClosed;
    const Decimal counted = store.index().balance(account.id);
    store.mutate(actionName, [&](Library& library) { upsert(library, account); });
    // A refused change has an alert of its own.
    const Account* stored = store.index().account(account.id);
    if (!wasOpen || stored == nullptr || !stored->isClosed) {
        return;
    }
    std::string text = closingText(*stored, counted, environment.currencyCode());
    if (!text.empty()) {
        offerUndo(environment, std::move(text));
    }
}

} // namespace oakfen
