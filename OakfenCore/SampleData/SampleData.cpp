#include "OakfenCore/SampleData/SampleData.h"

#include <utility>

#include "OakfenCore/SampleData/EmptyLibrary.h"
#include "OakfenCore/SampleData/SampleBuilder.h"

namespace oakfen::SampleData {

namespace {

SampleAccounts openSampleAccounts(SampleBuilder& builder) {
    SampleAccounts accounts;
    accounts.chequing = builder.account({.name = "Everyday Chequing",
                                         .type = AccountType::chequing,
                                         .institution = "Northern Maple Bank",
                                         .openingBalance = cents(3240.18),
                                         .lowBalanceAlert = Decimal(500)});
    accounts.savings = builder.account({.name = "High-Interest Savings",
                                        .type = AccountType::savings,
                                        .institution = "Northern Maple Bank",
                                        .openingBalance = Decimal(6500),
                                        .interestRate = cents(2.75)});
    accounts.visa = builder.account({.name = "Rewards Visa",
                                     .type = AccountType::creditCard,
                                     .openingBalance = cents(-1120.44),
                                     .creditLimit = Decimal(8000)});
    accounts.tfsa = builder.account({.name = "TFSA",
                                     .type = AccountType::brokerage,
                                     .institution = "Lakeshore Investing",
                                     .openingBalance = Decimal(14000)});
    accounts.mortgage = builder.account({.name = "Mortgage",
                                         .type = AccountType::loan,
                                         .institution = "Prairie Credit Union",
                                         .openingBalance = Decimal(-298500),
                                         .interestRate = cents(4.64)});
    accounts.carLoan = builder.account({.name = "Car Loan",
                                        .type = AccountType::loan,
                                        .institution = "Prairie Credit Union",
                                        .openingBalance = Decimal(-19800),
                                        .interestRate = cents(5.9)});
    return accounts;
}

} // namespace

Library make(Date now, const std::string& currencyCode, const Calendar& calendar) {
    SampleBuilder builder(emptyLibrary(currencyCode), now, calendar);
    const SampleAccounts accounts = openSampleAccounts(builder);
    tellSampleHistory(builder, accounts);
    fillSamplePortfolio(builder, accounts.tfsa);
    makeSamplePlans(builder, accounts);
    return std::move(builder.library());
}

} // namespace oakfen::SampleData
