#pragma once

#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/Models/Enumerations.h"
#include "OakfenCore/Support/Number/Decimal.h"
#include "OakfenCore/Support/Time/Date.h"
#include "OakfenCore/Support/Values/UUID.h"

/// The records of the document. Plain values that point at each other by id; a reference that names
/// nothing is tolerated everywhere. Absent text is the empty string.
namespace oakfen {

struct Account {
    UUID id;
    std::string name;
    AccountType type = AccountType::chequing;
    std::string institution;
    /// The balance before the first entry; negative for what is owed.
    Decimal openingBalance;
    Date openingDate;
    bool isClosed = false;
    std::optional<Decimal> creditLimit = {};
    std::optional<Decimal> lowBalanceAlert = {};
    /// Percent a year.
    std::optional<Decimal> interestRate = {};
    std::string notes;

    friend bool operator==(const Account&, const Account&) = default;
};

struct Category {
    UUID id;
    /// The leaf name; full paths are derived.
    std::string name;
    CategoryKind kind = CategoryKind::expense;
    std::optional<UUID> parentID = {};
    bool isTaxRelated = false;

    friend bool operator==(const Category&, const Category&) = default;
};

/// One line of a split entry.
struct Split {
    UUID id;
    std::optional<UUID> categoryID = {};
    std::string memo;
    Decimal amount;

    friend bool operator==(const Split&, const Split&) = default;
};

/// One ledger entry in one account.
struct Transaction {
    UUID id;
    UUID accountID;
    Date date;
    std::string payee;
    /// The signed effect on the account's balance: money in is positive, in every type of account.
    Decimal amount;
    /// None for uncategorised entries and for split ones.
    std::optional<UUID> categoryID = {};
    std::vector<Split> splits;
    /// The other account of a transfer.
    std::optional<UUID> transferAccountID = {};
    /// The id of a transfer's other leg.
    std::optional<UUID> transferID = {};
    std::string memo;
    std::string checkNumber;
    ClearedState cleared = ClearedState::uncleared;
    std::vector<std::string> tags;
    /// The statement's own id of the entry, for finding duplicates.
    std::optional<std::string> importID = {};

    /// A transfer with no known second leg is a transfer still.
    [[nodiscard]] bool isTransfer() const { return transferAccountID.has_value(); }
    [[nodiscard]] bool isSplit() const { return !splits.empty(); }

    friend bool operator==(const Transaction&, const Transaction&) = default;
};

struct PricePoint {
    Date date;
    Decimal price;

    friend bool operator==(const PricePoint&, const PricePoint&) = default;
};

struct Security {
    UUID id;
    std::string symbol;
    std::string name;
    SecurityKind kind = SecurityKind::stock;
    /// The latest price.
    Decimal price;
    std::vector<PricePoint> priceHistory;

    friend bool operator==(const Security&, const Security&) = default;
};

/// One row of an investment account. Shares, price and commission are magnitudes whose direction
/// the action gives.
struct InvestmentTransaction {
    UUID id;
    UUID accountID;
    std::optional<UUID> securityID = {};
    Date date;
    InvestmentAction action = InvestmentAction::buy;
    Decimal shares;
    Decimal price;
    Decimal commission;
    Decimal amount;
    std::string memo;

    friend bool operator==(const InvestmentTransaction&, const InvestmentTransaction&) = default;
};

/// A bill, an income or a transfer that comes again.
struct ScheduledTransaction {
    UUID id;
    std::string payee;
    UUID accountID;
    Decimal amount;
    std::optional<UUID> categoryID = {};
    std::optional<UUID> transferAccountID = {};
    std::string memo;
    Frequency frequency = Frequency::monthly;
    /// The next due date.
    Date nextDate;
    std::optional<Date> endDate = {};
    /// Entered without asking when due.
    bool autoEnter = false;

    [[nodiscard]] bool isTransfer() const { return transferAccountID.has_value(); }

    friend bool operator==(const ScheduledTransaction&, const ScheduledTransaction&) = default;
};

struct SavingsGoal {
    UUID id;
    std::string name;
    /// The name of the goal's icon.
    std::string symbolName;
    Decimal target;
    Decimal saved;
    std::optional<Date> targetDate = {};

    friend bool operator==(const SavingsGoal&, const SavingsGoal&) = default;
};

} // namespace oakfen
