#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace testing;

InvestmentTransaction makeRow(const UUID& accountID, Date date, InvestmentAction action,
                              std::string_view figure) {
    InvestmentTransaction row{
        .id = UUID::random(), .accountID = accountID, .date = date, .action = action};
    row.shares = amount("1");
    row.price = amount(figure);
    row.amount = amount(figure);
    return row;
}

TEST(Balances, OfAnEmptyDocumentAreZero) {
    const auto index = indexOf(Library{.currencyCode = "CAD"});
    EXPECT_EQ(index->netWorth(), Decimal());
    EXPECT_EQ(index->totalAssets(), Decimal());
    EXPECT_EQ(index->totalLiabilities(), Decimal());
    EXPECT_TRUE(index->openAccounts().empty());
    EXPECT_TRUE(index->payees().empty());
    EXPECT_TRUE(index->tags().empty());
    EXPECT_EQ(index->uncategorizedCount(), 0);
}

TEST(Balances, AllStartFromTheOpeningBalance) {
    OneAccount ledger("250.75");
    const UUID id = ledger.id();
    const auto index = indexOf(ledger.library);
    EXPECT_TRUE(index->transactions(id).empty());
    EXPECT_EQ(index->endingCash(id), amount("250.75"));
    EXPECT_EQ(index->currentCash(id), amount("250.75"));
    EXPECT_EQ(index->clearedBalance(id), amount("250.75"));
    EXPECT_EQ(index->reconciledBalance(id), amount("250.75"));
}

TEST(Balances, CountTheLastSecondOfTodayAsCurrentAndTomorrowAsFuture) {
    OneAccount ledger("100");
    const Date endOfToday = Calendar::utc().endOfDay(today());
    ledger.add(endOfToday, "Tonight", "10", ClearedState::cleared);
    ledger.add(endOfToday.adding(1), "Tomorrow", "1", ClearedState::cleared);
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->currentCash(ledger.id()), amount("110"));
    EXPECT_EQ(index->endingCash(ledger.id()), amount("111"));
    EXPECT_EQ(index->clearedBalance(ledger.id()), amount("111"));
}

TEST(Balances, CountReconciledEntriesAsClearedToo) {
    OneAccount ledger("100");
    ledger.add(day(2026, 1, 1), "A", "1", ClearedState::uncleared);
    ledger.add(day(2026, 1, 2), "B", "10", ClearedState::cleared);
    ledger.add(day(2026, 1, 3), "C", "50", ClearedState::reconciled);
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->clearedBalance(ledger.id()), amount("160"));
    EXPECT_EQ(index->reconciledBalance(ledger.id()), amount("150"));
    EXPECT_EQ(index->endingCash(ledger.id()), amount("161"));
}

TEST(Balances, CountInvestmentCashEverywhereButInTheReconciledBalance) {
    OneAccount ledger("100");
    const UUID id = ledger.id();
    ledger.library.investmentTransactions = {
        makeRow(id, day(2026, 1, 5), InvestmentAction::dividend, "7"),
        makeRow(id, day(2026, 4, 5), InvestmentAction::interest, "20"),
        makeRow(id, day(2026, 1, 6), InvestmentAction::buy, "30")};
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->endingCash(id), amount("97"));
    EXPECT_EQ(index->clearedBalance(id), amount("97"));
    EXPECT_EQ(index->currentCash(id), amount("77"));
    EXPECT_EQ(index->reconciledBalance(id), amount("100"));
}

TEST(Balances, OfAnUnknownAccountAreZero) {
    OneAccount ledger("100");
    const UUID unknown = UUID::random();
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->balance(unknown), Decimal());
    EXPECT_EQ(index->endingBalance(unknown), Decimal());
    EXPECT_EQ(index->clearedBalance(unknown), Decimal());
    EXPECT_EQ(index->reconciledBalance(unknown), Decimal());
    EXPECT_EQ(index->runningBalance(unknown), Decimal());
}

TEST(Balances, OfAMissingAccountWithEntriesAreZero) {
    OneAccount ledger;
    const UUID missing = UUID::random();
    const Transaction entry = makeTransaction(missing, day(2026, 1, 1), "A", "5");
    ledger.library.transactions.push_back(entry);
    ledger.library.investmentTransactions.push_back(
        makeRow(missing, day(2026, 1, 1), InvestmentAction::dividend, "7"));
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->endingCash(missing), Decimal());
    EXPECT_EQ(index->currentCash(missing), Decimal());
    EXPECT_EQ(index->clearedBalance(missing), Decimal());
    EXPECT_EQ(index->runningBalance(entry.id), Decimal());
    EXPECT_EQ(index->transaction(entry.id)->payee, "A");
}

TEST(Balances, OfAClosedAccountStayButLeaveTheNetWorth) {
    OneAccount ledger("100");
    Account closed = accountWith("40", "Old");
    closed.isClosed = true;
    ledger.library.accounts.push_back(closed);
    ledger.library.accounts.push_back(accountWith("-30", "Card", AccountType::creditCard));
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->balance(closed.id), amount("40"));
    EXPECT_EQ(index->netWorth(), amount("70"));
    EXPECT_EQ(index->totalAssets(), amount("100"));
    EXPECT_EQ(index->totalLiabilities(), amount("-30"));
    EXPECT_EQ(namesOf(index->openAccounts()), (Texts{"Chequing", "Card"}));
}

TEST(Balances, TakeTheLastOpeningBalanceOfARepeatedAccountID) {
    OneAccount ledger("100");
    Account again = ledger.library.accounts.front();
    again.name = "Again";
    again.openingBalance = amount("7");
    ledger.library.accounts.push_back(again);
    const UUID entry = ledger.add(day(2026, 1, 1), "A", "1");
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->account(ledger.id())->name, "Chequing");
    EXPECT_EQ(index->endingCash(ledger.id()), amount("8"));
    EXPECT_EQ(index->runningBalance(entry), amount("8"));
    EXPECT_EQ(index->netWorth(), amount("16"));
}

TEST(Balances, AreAddedUpInLedgerOrderWhereDigitsRunOut) {
    // Seventy digits lie between these, so what is left of the small one depends on the order.
    OneAccount ledger("0");
    const std::string huge = "1" + std::string(36, '0');
    ledger.add(day(2026, 1, 3), "Third", "0.0004", ClearedState::reconciled);
    ledger.add(day(2026, 1, 1), "First", huge, ClearedState::reconciled);
    ledger.add(day(2026, 1, 2), "Second", "-" + huge, ClearedState::reconciled);
    ledger.add(day(2025, 1, 1), "Zeroth", "0.0004", ClearedState::reconciled);
    const auto index = indexOf(ledger.library);
    const Decimal expected =
        amount("0.0004") + amount(huge) + amount("-" + huge) + amount("0.0004");
    EXPECT_EQ(expected, amount("0.0004"));
    EXPECT_EQ(index->endingCash(ledger.id()), expected);
    EXPECT_EQ(index->currentCash(ledger.id()), expected);
    EXPECT_EQ(index->clearedBalance(ledger.id()), expected);
    EXPECT_EQ(index->reconciledBalance(ledger.id()), expected);
}

TEST(Balances, AreExactForAmountsOfEverySize) {
    OneAccount ledger("9223372036854775807");
    ledger.add(day(2026, 1, 1), "A", "9223372036854775807");
    ledger.add(day(2026, 1, 2), "B", "0.000001");
    ledger.add(day(2026, 1, 3), "C", "-5000");
    EXPECT_EQ(indexOf(ledger.library)->endingCash(ledger.id()),
              amount("18446744073709546614.000001"));
    ledger.add(day(2026, 1, 4), "D", "0.0000001");
    EXPECT_EQ(indexOf(ledger.library)->endingCash(ledger.id()),
              amount("18446744073709546614.0000011"));
}

TEST(Balances, AddTheValueOfWhatTheAccountHolds) {
    OneAccount ledger("100");
    const Security security{
        .id = UUID::random(), .symbol = "MPL", .name = "Maple", .price = amount("8")};
    ledger.library.securities.push_back(security);
    InvestmentTransaction bought =
        makeRow(ledger.id(), day(2026, 1, 5), InvestmentAction::buy, "5");
    bought.securityID = security.id;
    bought.shares = amount("10");
    ledger.library.investmentTransactions.push_back(bought);
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->currentCash(ledger.id()), amount("50"));
    EXPECT_EQ(index->marketValue(ledger.id()), amount("80"));
    EXPECT_EQ(index->balance(ledger.id()), amount("130"));
    EXPECT_EQ(index->endingBalance(ledger.id()), amount("130"));
    EXPECT_EQ(index->netWorth(), amount("130"));
    ASSERT_EQ(index->holdings(ledger.id()).size(), 1U);
    EXPECT_EQ(index->allHoldings(), index->holdings(ledger.id()));
    EXPECT_TRUE(index->holdings(UUID::random()).empty());
}

TEST(PastBalance, IsZeroBeforeTheOpeningDate) {
    const OneAccount ledger("100");
    const Account& account = ledger.library.accounts.front();
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->balance(account, account.openingDate.adding(-1)), Decimal());
    EXPECT_EQ(index->balance(account, account.openingDate), amount("100"));
}

TEST(PastBalance, IncludesEntriesOfThatVeryInstantAndNoLaterOne) {
    OneAccount ledger("100");
    const Date instant = day(2026, 1, 10);
    ledger.add(instant.adding(1), "After", "1");
    ledger.add(instant, "At", "10");
    ledger.add(instant, "At too", "20");
    ledger.add(instant.adding(-1), "Before", "50");
    const Account& account = ledger.library.accounts.front();
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->balance(account, instant), amount("180"));
    EXPECT_EQ(index->balance(account, instant.adding(-1)), amount("150"));
    EXPECT_EQ(index->balance(account, instant.adding(-2)), amount("100"));
    EXPECT_EQ(index->balance(account, instant.adding(1)), amount("181"));
}

TEST(PastBalance, StartsAtTheOpeningBalanceOfTheAccountThatIsAskedFor) {
    OneAccount ledger("100");
    ledger.add(day(2026, 1, 10), "A", "10");
    Account other = ledger.library.accounts.front();
    other.openingBalance = amount("1000");
    EXPECT_EQ(indexOf(ledger.library)->balance(other, today()), amount("1010"));
}

TEST(PastBalance, CountsInvestmentCashOnlyInInvestmentAccounts) {
    OneAccount ledger("100");
    ledger.library.accounts.push_back(accountWith("100", "Broker", AccountType::brokerage));
    for (const Account& account : ledger.library.accounts) {
        ledger.library.investmentTransactions.push_back(
            makeRow(account.id, day(2026, 1, 5), InvestmentAction::dividend, "7"));
        ledger.library.investmentTransactions.push_back(
            makeRow(account.id, day(2026, 2, 5), InvestmentAction::dividend, "9"));
    }
    const Account& chequing = ledger.library.accounts[0];
    const Account& broker = ledger.library.accounts[1];
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->balance(chequing, day(2026, 1, 20)), amount("100"));
    EXPECT_EQ(index->currentCash(chequing.id), amount("116"));
    EXPECT_EQ(index->balance(broker, day(2026, 1, 20)), amount("107"));
    EXPECT_EQ(index->currentCash(broker.id), amount("116"));
}

TEST(PastBalance, SumsTheEntriesOfAMissingAccount) {
    Library library{.currencyCode = "CAD"};
    const Account missing = accountWith("1");
    library.transactions = {makeTransaction(missing.id, day(2026, 1, 2), "B", "20"),
                            makeTransaction(missing.id, day(2026, 1, 1), "A", "10")};
    EXPECT_EQ(indexOf(library)->balance(missing, day(2026, 1, 1)), amount("11"));
}

TEST(Balances, OfAnAccountWithoutInvestmentRowsHaveNoMarketValue) {
    OneAccount ledger("100");
    ledger.library.accounts.push_back(accountWith("5", "Shares", AccountType::brokerage));
    ledger.library.securities.push_back({.id = UUID::random(), .price = Decimal(3)});
    const auto index = indexOf(ledger.library);
    for (const Account& account : ledger.library.accounts) {
        EXPECT_EQ(index->marketValue(account.id), Decimal(0));
        EXPECT_EQ(index->balance(account.id), account.openingBalance);
    }
    EXPECT_EQ(index->marketValue(UUID::random()), Decimal(0));
}

TEST(Balances, OfClosedAccountsBringTheirHoldingsIntoThoseOfAll) {
    Library library{.currencyCode = "CAD"};
    const Security fund{.id = UUID::random(), .name = "Fund", .price = Decimal(3)};
    library.securities = {fund};
    for (const bool isClosed : {false, true}) {
        Account account = accountWith("0", "Shares", AccountType::brokerage);
        account.isClosed = isClosed;
        library.accounts.push_back(account);
        library.investmentTransactions.push_back({.id = UUID::random(),
                                                  .accountID = account.id,
                                                  .securityID = fund.id,
                                                  .date = day(2026, 1, 5),
                                                  .action = InvestmentAction::sharesIn,
                                                  .shares = Decimal(isClosed ? 10 : 1),
                                                  .price = Decimal(2)});
    }
    const auto index = indexOf(library);
    const std::vector<Holding> expected{
        {fund.id, Decimal(11), Decimal(22), Decimal(3), Decimal(0)}};
    EXPECT_EQ(index->allHoldings(), expected);
    EXPECT_EQ(index->netWorth(), Decimal(3)); // of the open account alone
}

TEST(Accounts, OfAGroupComeByNameWithoutRegardToCase) {
    Library library{.currencyCode = "CAD"};
    Account closed = accountWith("0", "Bravo", AccountType::cash);
    closed.isClosed = true;
    library.accounts = {accountWith("0", "delta", AccountType::savings),
                        accountWith("0", "Card", AccountType::creditCard), closed,
                        accountWith("0", "Charlie"), accountWith("0", "alpha")};
    const auto index = indexOf(library);
    EXPECT_EQ(namesOf(index->accounts(AccountGroup::banking, false)),
              (Texts{"alpha", "Charlie", "delta"}));
    EXPECT_EQ(namesOf(index->accounts(AccountGroup::banking, true)),
              (Texts{"alpha", "Bravo", "Charlie", "delta"}));
    EXPECT_EQ(namesOf(index->accounts(AccountGroup::credit, false)), (Texts{"Card"}));
    EXPECT_TRUE(index->accounts(AccountGroup::investing, true).empty());
}

TEST(Accounts, OfOneNameComeByIDHoweverTheDocumentHoldsThem) {
    Account first = accountWith("0", "Card", AccountType::creditCard);
    Account second = first;
    first.id.bytes[0] = 1;
    second.id.bytes[0] = 2;
    Library library{.currencyCode = "CAD"};
    library.accounts = {second, first};
    const std::vector<UUID> expected{first.id, second.id};
    EXPECT_EQ(idsOf(indexOf(library)->accounts(AccountGroup::credit, false)), expected);
    library.accounts = {first, second};
    EXPECT_EQ(idsOf(indexOf(library)->accounts(AccountGroup::credit, false)), expected);
}

} // namespace
} // namespace oakfen
