#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Editor.h"

namespace oakfen {

/// The sheet that creates an account or changes one.
class AccountEditor final : public Editor {
public:
    /// Without an id, a new account.
    AccountEditor(AppEnvironment& environment, std::optional<UUID> accountID);

    // The form.
    Account draft;
    bool hasLowBalanceAlert = false;
    Decimal lowBalance;
    Decimal creditLimit;
    Decimal interestRate;

    [[nodiscard]] bool isNew() const { return !accountID_; }
    [[nodiscard]] std::string title() const override;
    [[nodiscard]] std::string primaryTitle() const override;
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    void save() override;
    [[nodiscard]] std::optional<ConfirmationRequest> deleteConfirmation() const override;
    void performDelete() override;

    // Which fields the draft's type has, and how they read.
    [[nodiscard]] std::string_view openingBalanceLabel() const;
    /// Under the opening balance of what is owed; empty otherwise.
    [[nodiscard]] std::string_view openingBalanceHint() const;
    /// What the opening balance of a debt says as it stands; empty for other accounts.
    [[nodiscard]] std::string openingBalanceMeaning() const;
    /// Turns what is owed into what is in one's favour, or back.
    void turnOpeningBalance() { draft.openingBalance = -draft.openingBalance; }
    [[nodiscard]] bool showsCreditLimit() const;
    [[nodiscard]] bool showsInterestRate() const;
    [[nodiscard]] bool showsLowBalanceAlert() const;
    [[nodiscard]] bool showsMinimumBalance() const {
        return showsLowBalanceAlert() && hasLowBalanceAlert;
    }
    [[nodiscard]] bool showsClosed() const { return !isNew(); }

private:
    AppEnvironment& environment_;
    std::optional<UUID> accountID_;
};

} // namespace oakfen
