#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// The sheet that creates an account or changes one. Edits a draft; nothing happens before `save`.
class AccountEditor {
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
    [[nodiscard]] std::string_view title() const;
    [[nodiscard]] std::string_view primaryTitle() const;
    /// Why the draft can't be saved yet; empty when it can.
    [[nodiscard]] std::string_view obstacle() const;
    [[nodiscard]] bool canSave() const { return obstacle().empty(); }

    // Which fields the draft's type has, and how they read.
    [[nodiscard]] std::string_view openingBalanceLabel() const;
    /// Under the opening balance of what is owed; empty otherwise.
    [[nodiscard]] std::string_view openingBalanceHint() const;
    [[nodiscard]] bool showsCreditLimit() const;
    [[nodiscard]] bool showsInterestRate() const;
    [[nodiscard]] bool showsLowBalanceAlert() const;
    [[nodiscard]] bool showsClosed() const { return !isNew(); }

    void save();

    /// Absent for a new account.
    [[nodiscard]] std::optional<ConfirmationRequest> deleteConfirmation() const;
    /// Deletes the account, after the person confirmed.
    void deleteAccount();

private:
    AppEnvironment& environment_;
    std::optional<UUID> accountID_;
};

} // namespace oakfen
