#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace oakfen {

/// The sections of the sidebar, in order.
enum class AccountGroup { banking, credit, investing, propertyDebt };

enum class AccountType {
    chequing,
    savings,
    cash,
    creditCard,
    lineOfCredit,
    brokerage,
    retirement,
    asset,
    liability,
    loan,
};

enum class CategoryKind { income, expense };

enum class ClearedState { uncleared, cleared, reconciled };

enum class SecurityKind { stock, etf, mutualFund, bond, gic, crypto, other };

enum class InvestmentAction { buy, sell, dividend, interest, reinvest, sharesIn, sharesOut };

enum class Frequency { once, weekly, biweekly, monthly, quarterly, yearly };

/// All cases of an enumeration in the order in which people see them.
template <typename Enumeration>
inline constexpr auto allCases = std::array<Enumeration, 0>{};
template <>
inline constexpr auto allCases<AccountGroup> =
    std::array{AccountGroup::banking, AccountGroup::credit, AccountGroup::investing,
               AccountGroup::propertyDebt};
template <>
inline constexpr auto allCases<AccountType> = std::array{
    AccountType::chequing,   AccountType::savings,      AccountType::cash,
    AccountType::creditCard, AccountType::lineOfCredit, AccountType::brokerage,
    AccountType::retirement, AccountType::asset,        AccountType::liability,
    AccountType::loan};
template <>
inline constexpr auto allCases<CategoryKind> =
    std::array{CategoryKind::income, CategoryKind::expense};
template <>
inline constexpr auto allCases<ClearedState> =
    std::array{ClearedState::uncleared, ClearedState::cleared, ClearedState::reconciled};
template <>
inline constexpr auto allCases<SecurityKind> =
    std::array{SecurityKind::stock, SecurityKind::etf,    SecurityKind::mutualFund,
               SecurityKind::bond,  SecurityKind::gic,    SecurityKind::crypto,
               SecurityKind::other};
template <>
inline constexpr auto allCases<InvestmentAction> =
    std::array{InvestmentAction::buy,      InvestmentAction::sell,     InvestmentAction::dividend,
               InvestmentAction::interest, InvestmentAction::reinvest, InvestmentAction::sharesIn,
               InvestmentAction::sharesOut};
template <>
inline constexpr auto allCases<Frequency> =
    std::array{Frequency::once,    Frequency::weekly,    Frequency::biweekly,
               Frequency::monthly, Frequency::quarterly, Frequency::yearly};

/// The text that the document stores: the case's own name.
[[nodiscard]] std::string_view rawValue(AccountGroup value) noexcept;
[[nodiscard]] std::string_view rawValue(AccountType value) noexcept;
[[nodiscard]] std::string_view rawValue(CategoryKind value) noexcept;
[[nodiscard]] std::string_view rawValue(ClearedState value) noexcept;
[[nodiscard]] std::string_view rawValue(SecurityKind value) noexcept;
[[nodiscard]] std::string_view rawValue(InvestmentAction value) noexcept;
[[nodiscard]] std::string_view rawValue(Frequency value) noexcept;

/// The case whose stored text this is, to the letter.
template <typename Enumeration>
[[nodiscard]] std::optional<Enumeration> fromRawValue(std::string_view text) noexcept {
    for (const Enumeration value : allCases<Enumeration>) {
        if (rawValue(value) == text) {
            return value;
        }
    }
    return std::nullopt;
}

/// What people read.
[[nodiscard]] std::string_view title(AccountGroup value) noexcept;
[[nodiscard]] std::string_view title(AccountType value) noexcept;
[[nodiscard]] std::string_view title(CategoryKind value) noexcept;
[[nodiscard]] std::string_view title(ClearedState value) noexcept;
[[nodiscard]] std::string_view title(SecurityKind value) noexcept;
[[nodiscard]] std::string_view title(InvestmentAction value) noexcept;
[[nodiscard]] std::string_view title(Frequency value) noexcept;

/// The name of the case's icon.
[[nodiscard]] std::string_view symbolName(AccountType value) noexcept;
[[nodiscard]] std::string_view symbolName(InvestmentAction value) noexcept;

[[nodiscard]] AccountGroup group(AccountType type) noexcept;
/// What is owed rather than owned.
[[nodiscard]] bool isLiability(AccountType type) noexcept;
[[nodiscard]] bool isInvestment(AccountType type) noexcept;
/// Whether the action moves shares and not only cash.
[[nodiscard]] bool usesShares(InvestmentAction action) noexcept;

} // namespace oakfen
