#include "OakfenCore/Models/Enumerations.h"

#include <cstddef>

namespace oakfen {

namespace {

struct Names {
    std::string_view rawValue;
    std::string_view title;
};

struct AccountTypeFacts {
    Names names;
    std::string_view symbolName;
    AccountGroup group;
    bool isLiability = false;
    bool isInvestment = false;
};

struct InvestmentActionFacts {
    Names names;
    std::string_view symbolName;
    bool usesShares;
};

// The rows of each table stand in the order of the enumeration's cases.

constexpr std::array<Names, allCases<AccountGroup>.size()> accountGroups{{
    {"banking", "Banking"},
    {"credit", "Credit"},
    {"investing", "Investments"},
    {"propertyDebt", "Property & Debt"},
}};

constexpr std::array<AccountTypeFacts, allCases<AccountType>.size()> accountTypes{{
    {{"chequing", "Chequing"}, "building.columns", AccountGroup::banking},
    {{"savings", "Savings"}, "banknote", AccountGroup::banking},
    {{"cash", "Cash"}, "dollarsign.circle", AccountGroup::banking},
    {.names = {"creditCard", "Credit Card"},
     .symbolName = "creditcard",
     .group = AccountGroup::credit,
     .isLiability = true},
    {.names = {"lineOfCredit", "Line of Credit"},
     .symbolName = "arrow.left.arrow.right.circle",
     .group = AccountGroup::credit,
     .isLiability = true},
    {.names = {"brokerage", "Brokerage / TFSA"},
     .symbolName = "chart.line.uptrend.xyaxis",
     .group = AccountGroup::investing,
     .isInvestment = true},
    {.names = {"retirement", "Retirement (RRSP)"},
     .symbolName = "beach.umbrella",
     .group = AccountGroup::investing,
     .isInvestment = true},
    {{"asset", "Asset"}, "house", AccountGroup::propertyDebt},
    {.names = {"liability", "Liability"},
     .symbolName = "doc.text",
     .group = AccountGroup::propertyDebt,
     .isLiability = true},
    {.names = {"loan", "Loan / Mortgage"},
     .symbolName = "percent",
     .group = AccountGroup::propertyDebt,
     .isLiability = true},
}};

constexpr std::array<Names, allCases<CategoryKind>.size()> categoryKinds{{
    {"income", "Income"},
    {"expense", "Expense"},
}};

constexpr std::array<Names, allCases<ClearedState>.size()> clearedStates{{
    {"uncleared", "Uncleared"},
    {"cleared", "Cleared"},
    {"reconciled", "Reconciled"},
}};

constexpr std::array<Names, allCases<SecurityKind>.size()> securityKinds{{
    {"stock", "Stock"},
    {"etf", "ETF"},
    {"mutualFund", "Mutual Fund"},
    {"bond", "Bond"},
    {"gic", "GIC"},
    {"crypto", "Crypto"},
    {"other", "Other"},
}};

constexpr std::array<InvestmentActionFacts, allCases<InvestmentAction>.size()> investmentActions{{
    {{"buy", "Buy"}, "plus.circle", true},
    {{"sell", "Sell"}, "minus.circle", true},
    {{"dividend", "Dividend"}, "dollarsign.arrow.circlepath", false},
    {{"interest", "Interest"}, "dollarsign.arrow.circlepath", false},
    {{"reinvest", "Reinvest Dividend"}, "arrow.triangle.2.circlepath", true},
    {{"sharesIn", "Add Shares"}, "arrow.down.to.line", true},
    {{"sharesOut", "Remove Shares"}, "arrow.up.to.line", true},
}};

constexpr std::array<Names, allCases<Frequency>.size()> frequencies{{
    {"once", "Once"},
    {"weekly", "Weekly"},
    {"biweekly", "Every 2 Weeks"},
    {"monthly", "Monthly"},
    {"quarterly", "Quarterly"},
    {"yearly", "Yearly"},
}};

template <typename Enumeration, typename Table>
constexpr const auto& row(const Table& table, Enumeration value) noexcept {
    return table[static_cast<std::size_t>(value)];
}

} // namespace

std::string_view rawValue(AccountGroup value) noexcept {
    return row(accountGroups, value).rawValue;
}
std::string_view rawValue(AccountType value) noexcept {
    return row(accountTypes, value).names.rawValue;
}
std::string_view rawValue(CategoryKind value) noexcept {
    return row(categoryKinds, value).rawValue;
}
std::string_view rawValue(ClearedState value) noexcept {
    return row(clearedStates, value).rawValue;
}
std::string_view rawValue(SecurityKind value) noexcept {
    return row(securityKinds, value).rawValue;
}
std::string_view rawValue(InvestmentAction value) noexcept {
    return row(investmentActions, value).names.rawValue;
}
std::string_view rawValue(Frequency value) noexcept {
    return row(frequencies, value).rawValue;
}

std::string_view title(AccountGroup value) noexcept {
    return row(accountGroups, value).title;
}
std::string_view title(AccountType value) noexcept {
    return row(accountTypes, value).names.title;
}
std::string_view title(CategoryKind value) noexcept {
    return row(categoryKinds, value).title;
}
std::string_view title(ClearedState value) noexcept {
    return row(clearedStates, value).title;
}
std::string_view title(SecurityKind value) noexcept {
    return row(securityKinds, value).title;
}
std::string_view title(InvestmentAction value) noexcept {
    return row(investmentActions, value).names.title;
}
std::string_view title(Frequency value) noexcept {
    return row(frequencies, value).title;
}

std::string_view symbolName(AccountType value) noexcept {
    return row(accountTypes, value).symbolName;
}
std::string_view symbolName(InvestmentAction value) noexcept {
    return row(investmentActions, value).symbolName;
}

AccountGroup group(AccountType type) noexcept {
    return row(accountTypes, type).group;
}
bool isLiability(AccountType type) noexcept {
    return row(accountTypes, type).isLiability;
}
bool isInvestment(AccountType type) noexcept {
    return row(accountTypes, type).isInvestment;
}
bool usesShares(InvestmentAction action) noexcept {
    return row(investmentActions, action).usesShares;
}

} // namespace oakfen
