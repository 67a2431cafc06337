#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace testing;

TEST(LedgerOrder, IsByInstantAndNotByDay) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 1, 18), "Evening deposit", "100");
    ledger.add(day(2026, 1, 1, 9), "Morning payment", "-5");
    EXPECT_EQ(payeesOf(indexOf(ledger.library)->transactions(ledger.id())),
              (Texts{"Morning payment", "Evening deposit"}));
}

TEST(LedgerOrder, PutsDepositsFirstOnOneInstantWhateverTheDocumentSays) {
    for (const bool depositFirst : {true, false}) {
        OneAccount ledger("0");
        const UUID first =
            ledger.add(day(2026, 1, 1), depositFirst ? "In" : "Out", depositFirst ? "10" : "-10");
        const UUID second =
            ledger.add(day(2026, 1, 1), depositFirst ? "Out" : "In", depositFirst ? "-10" : "10");
        const auto index = indexOf(ledger.library);
        EXPECT_EQ(payeesOf(index->transactions(ledger.id())), (Texts{"In", "Out"}));
        EXPECT_EQ(index->runningBalance(depositFirst ? first : second), amount("10"));
        EXPECT_EQ(index->runningBalance(depositFirst ? second : first), amount("0"));
    }
}

TEST(LedgerOrder, ComparesPayeesPlainlyWithCapitalsFirst) {
    OneAccount ledger;
    for (const char* payee : {"apple", "Zoo", "Éclair", "Apple"}) {
        ledger.add(day(2026, 1, 1), payee, "-5");
    }
    EXPECT_EQ(payeesOf(indexOf(ledger.library)->transactions(ledger.id())),
              (Texts{"Apple", "Zoo", "apple", "Éclair"}));
}

TEST(LedgerOrder, KeepsTheDocumentsOrderOfEqualEntries) {
    OneAccount ledger;
    std::vector<UUID> ids;
    for (int count = 0; count < 5; ++count) {
        ids.push_back(ledger.add(day(2026, 1, 2), "Same", "-5"));
    }
    ids.push_back(ledger.add(day(2026, 1, 1), "Earlier", "1"));
    const auto index = indexOf(ledger.library);
    const auto entries = index->transactions(ledger.id());
    ASSERT_EQ(entries.size(), 6U);
    EXPECT_EQ(entries[0]->id, ids[5]);
    for (std::size_t position = 0; position < 5; ++position) {
        EXPECT_EQ(entries[position + 1]->id, ids[position]);
    }
}

TEST(LedgerOrder, SortsANewestFirstDocument) {
    OneAccount ledger("1000");
    std::vector<UUID> ids;
    for (int dayOfMonth = 28; dayOfMonth >= 1; --dayOfMonth) {
        ids.push_back(ledger.add(day(2026, 1, dayOfMonth), "Coffee", "-3.25"));
    }
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->runningBalance(ids.back()), amount("996.75"));
    EXPECT_EQ(index->runningBalance(ids.front()), amount("909"));
    EXPECT_EQ(index->transactions(ledger.id()).front()->date, day(2026, 1, 1));
}

TEST(LedgerOrder, DoesNotReachEntriesOfAMissingAccount) {
    OneAccount ledger;
    const UUID missing = UUID::random();
    ledger.library.transactions = {makeTransaction(missing, day(2026, 1, 2), "Later", "1"),
                                   makeTransaction(missing, day(2026, 1, 1), "Earlier", "1")};
    EXPECT_EQ(payeesOf(indexOf(ledger.library)->transactions(missing)),
              (Texts{"Later", "Earlier"}));
}

TEST(RunningBalance, LeavesInvestmentCashOut) {
    OneAccount ledger("100");
    const UUID entry = ledger.add(day(2026, 1, 10), "A", "5");
    ledger.library.investmentTransactions.push_back({.id = UUID::random(),
                                                     .accountID = ledger.id(),
                                                     .date = day(2026, 1, 5),
                                                     .action = InvestmentAction::dividend,
                                                     .amount = amount("40")});
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->runningBalance(entry), amount("105"));
    EXPECT_EQ(index->endingCash(ledger.id()), amount("145"));
}

TEST(RunningBalance, OfARepeatedIDIsThatOfTheEntryLastInTheOrderOfAccounts) {
    OneAccount ledger("100");
    const Account second = accountWith("1000", "Second");
    ledger.library.accounts.push_back(second);
    Transaction inSecond = makeTransaction(second.id, day(2026, 1, 1), "In second", "1");
    Transaction inFirst = makeTransaction(ledger.id(), day(2026, 1, 1), "In first", "1");
    inFirst.id = inSecond.id;
    ledger.library.transactions = {inSecond, inFirst};
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->transaction(inFirst.id)->payee, "In first");
    EXPECT_EQ(index->runningBalance(inFirst.id), amount("1001"));
    EXPECT_EQ(index->registerRows(ledger.id()).front().balance, amount("1001"));
    EXPECT_EQ(index->endingCash(ledger.id()), amount("101"));
}

TEST(RunningBalance, OfARepeatedIDInMissingAccountsOnlyIsZero) {
    Library library{.currencyCode = "CAD"};
    const Transaction entry = makeTransaction(UUID::random(), day(2026, 1, 1), "A", "1");
    library.transactions = {entry, entry};
    EXPECT_EQ(indexOf(library)->runningBalance(entry.id), Decimal());
}

TEST(Lookup, FindsTheFirstOfRecordsWithOneIDAndTheLastOfEntries) {
    OneAccount ledger;
    Category category = makeCategory("First");
    ledger.library.categories.push_back(category);
    category.name = "Second";
    ledger.library.categories.push_back(category);
    Security security{.id = UUID::random(), .name = "First"};
    ledger.library.securities.push_back(security);
    security.name = "Second";
    ledger.library.securities.push_back(security);
    Transaction entry = makeTransaction(ledger.id(), day(2026, 1, 1), "First", "1");
    ledger.library.transactions.push_back(entry);
    entry.payee = "Second";
    ledger.library.transactions.push_back(entry);
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->category(category.id)->name, "First");
    EXPECT_EQ(*index->categoryPath(category.id), "First");
    EXPECT_EQ(index->security(security.id)->name, "First");
    EXPECT_EQ(index->transaction(entry.id)->payee, "Second");
    EXPECT_EQ(index->transactions(ledger.id()).size(), 2U);
}

TEST(Lookup, GivesNullForWhatIsNotThere) {
    const auto index = indexOf(OneAccount().library);
    const UUID unknown = UUID::random();
    EXPECT_EQ(index->account(unknown), nullptr);
    EXPECT_EQ(index->category(unknown), nullptr);
    EXPECT_EQ(index->security(unknown), nullptr);
    EXPECT_EQ(index->transaction(unknown), nullptr);
    EXPECT_EQ(index->categoryPath(unknown), nullptr);
    EXPECT_TRUE(index->transactions(unknown).empty());
}

TEST(Lookup, FindsEveryOneOfManyAccountsAndEntries) {
    Library library{.currencyCode = "CAD"};
    for (int count = 0; count < 500; ++count) {
        Account account = accountWith(std::to_string(count));
        // Ids that differ only at one end, as a foreign program might number them.
        account.id = UUID();
        account.id.bytes[14] = static_cast<std::uint8_t>(count / 256);
        account.id.bytes[15] = static_cast<std::uint8_t>(count % 256);
        Transaction entry = makeTransaction(account.id, today(), "Entry", "1");
        entry.id = account.id;
        library.accounts.push_back(account);
        library.transactions.push_back(entry);
    }
    const auto index = indexOf(library);
    for (const Account& account : library.accounts) {
        EXPECT_EQ(index->account(account.id)->id, account.id);
        EXPECT_EQ(index->transaction(account.id)->accountID, account.id);
        EXPECT_EQ(index->runningBalance(account.id), account.openingBalance + amount("1"));
    }
}

TEST(Index, KeepsItsDocumentAndItsInstant) {
    OneAccount ledger("5");
    ledger.add(day(2026, 1, 1), "A", "1");
    Library edited = ledger.library;
    const auto index = indexOf(ledger.library);
    edited.transactions.edit(0).payee = "B";
    EXPECT_EQ(index->library(), ledger.library);
    EXPECT_EQ(index->now(), today());
    EXPECT_EQ(index->transactions(ledger.id()).front()->payee, "A");
}

} // namespace
} // namespace oakfen
