#include "Oakfen/Views/Editors/AccountEditor.h"

#include <algorithm>

#include "Oakfen/AccountClosing.h"
#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

AccountEditor::AccountEditor(AppEnvironment& environment, std::optional<UUID> accountID)
    : environment_(environment), accountID_(accountID) {
    const Account* account = accountID ? environment.store.index().account(*accountID) : nullptr;
    if (account == nullptr) {
        draft.id = UUID::random();
        draft.openingDate = environment.clock.now();
        return;
    }
    draft = *account;
    hasLowBalanceAlert = draft.lowBalanceAlert.has_value();
    lowBalance = draft.lowBalanceAlert.value_or(Decimal());
    creditLimit = draft.creditLimit.value_or(Decimal());
    interestRate = draft.interestRate.value_or(Decimal());
}

std::string AccountEditor::title() const {
    return isNew() ? "New Account" : "Edit Account";
}

std::string AccountEditor::primaryTitle() const {
    return isNew() ? "Add Account" : "Save";
}

std::optional<std::string> AccountEditor::obstacle() const {
    if (trimmingWhitespaces(draft.name).empty()) {
        return "Enter a name.";
    }
    const auto amounts = {draft.openingBalance, lowBalance, creditLimit, interestRate};
    if (std::ranges::any_of(amounts, &Decimal::isNaN)) {
        return "An amount is too large to keep.";
    }
    return std::nullopt;
}

std::string_view AccountEditor::openingBalanceLabel() const {
    return isInvestment(draft.type) ? "Opening Cash" : "Opening Balance";
}

std::string_view AccountEditor::openingBalanceHint() const {
    return isLiability(draft.type) ? "Enter amounts owed as a negative number, e.g. -1,250.00."
                                   : "";
}

std::string AccountEditor::openingBalanceMeaning() const {
    const Decimal& balance = draft.openingBalance;
    if (!isLiability(draft.type) || balance.isNaN()) {
        return {};
    }
    if (balance.isZero()) {
        return "You owe nothing.";
    }
    const std::string money = currencyText(balance.magnitude(), environment_.currencyCode());
    return (balance.isNegative() ? "You owe " : "In your favour: ") + money + ".";
}

bool AccountEditor::showsCreditLimit() const {
    return draft.type == AccountType::creditCard || draft.type == AccountType::lineOfCredit;
}

bool AccountEditor::showsInterestRate() const {
    return draft.type == AccountType::savings || draft.type == AccountType::lineOfCredit ||
           draft.type == AccountType::loan;
}

bool AccountEditor::showsLowBalanceAlert() const {
    return draft.type == AccountType::chequing || draft.type == AccountType::savings ||
           draft.type == AccountType::cash;
}

void AccountEditor::save() {
    const auto ifPositive = [](const Decimal& value) {
        return value.isPositive() ? std::optional(value) : std::nullopt;
    };
    draft.name = trimmingWhitespaces(draft.name);
    draft.lowBalanceAlert = showsMinimumBalance() ? std::optional(lowBalance) : std::nullopt;
    // Kept whatever the type, so that a change of type and back loses nothing.
    draft.creditLimit = ifPositive(creditLimit);
    draft.interestRate = ifPositive(interestRate);
    storeAccount(environment_, title(), draft);
    if (isNew()) {
        environment_.appState.setSelection(SidebarItem::account(draft.id));
    }
}

std::optional<ConfirmationRequest> AccountEditor::deleteConfirmation() const {
    if (isNew()) {
        return std::nullopt;
    }
    return destructiveConfirmation(
        "Delete Account", "All of this account’s transactions will be removed. Transfers to other "
                          "accounts stay but become uncategorized.");
}

void AccountEditor::performDelete() {
    if (isNew()) {
        return;
    }
    if (environment_.appState.selectedAccountID() == accountID_) {
        environment_.appState.setSelection(SidebarItem{});
    }
    environment_.store.mutate("Delete Account",
                              [this](Library& library) { deleteAccount(library, *accountID_); });
}

} // namespace oakfen
