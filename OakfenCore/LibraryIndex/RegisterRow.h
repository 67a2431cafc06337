#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Models/Records.h"

namespace oakfen {

/// What stands in the place of a category's name where there is none.
inline constexpr std::string_view uncategorizedName = "Uncategorized";

/// One entry as the register shows it, with the balance along ledger order and the category's text.
struct RegisterRow {
    UUID id;
    Date date;
    std::string checkNumber;
    std::string payee;
    std::string categoryName;
    std::string memo;
    Decimal amount;
    Decimal balance;
    ClearedState cleared = ClearedState::uncleared;
    bool isTransfer = false;
    bool isSplit = false;
    std::vector<std::string> tags;

    /// What went out, as a positive figure; zero for money in.
    [[nodiscard]] Decimal payment() const { return amount.isNegative() ? -amount : Decimal(); }
    /// What came in; zero for money out.
    [[nodiscard]] Decimal deposit() const { return amount.isPositive() ? amount : Decimal(); }
    /// The state's word, by which rows sort: cleared, reconciled, uncleared.
    [[nodiscard]] std::string_view clearedSort() const { return rawValue(cleared); }

    friend bool operator==(const RegisterRow&, const RegisterRow&) = default;
};

} // namespace oakfen
