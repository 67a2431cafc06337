#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace testing;

TEST(PayeeMemory, IgnoresAPayeeOfBlanks) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 1), " \t\u00A0", "1");
    ledger.add(day(2026, 1, 1), "", "1");
    const auto index = indexOf(ledger.library);
    EXPECT_TRUE(index->payees().empty());
    EXPECT_EQ(index->memorized(""), nullptr);
    EXPECT_EQ(index->memorized("  "), nullptr);
}

TEST(PayeeMemory, TakesSpellingsInCaseAndBlanksForOnePayee) {
    OneAccount ledger;
    const UUID earlier = ledger.add(day(2026, 1, 1), "acme", "1");
    const UUID later = ledger.add(day(2026, 1, 2), " Acme ", "2");
    auto index = indexOf(ledger.library);
    EXPECT_EQ(index->payees(), (Texts{" Acme "}));
    EXPECT_EQ(index->memorized("ACME\t")->id, later);

    ledger.library.transactions.edit(0).date = day(2026, 1, 3);
    index = indexOf(ledger.library);
    EXPECT_EQ(index->payees(), (Texts{"acme"}));
    EXPECT_EQ(index->memorized("Acme")->id, earlier);
}

TEST(PayeeMemory, KeepsLineEndsAsPartOfTheName) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 1), "Acme\n", "1");
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->memorized("Acme"), nullptr);
    EXPECT_NE(index->memorized("acme\n"), nullptr);
}

TEST(PayeeMemory, PrefersTheLaterInTheDocumentOnOneInstantWhateverItsAmount) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 1), "Acme", "-5");
    ledger.add(day(2026, 1, 1), "ACME", "-9");
    const UUID last = ledger.add(day(2026, 1, 1), "Acme", "50");
    ledger.add(day(2025, 12, 31), "acme", "1");
    EXPECT_EQ(indexOf(ledger.library)->memorized("acme")->id, last);
}

TEST(PayeeMemory, TakesTransfersSplitsAndMissingAccountsLikeAnyOther) {
    OneAccount ledger;
    Transaction transfer = makeTransaction(ledger.id(), day(2026, 1, 1), "Transfer", "1");
    transfer.transferAccountID = UUID::random();
    Transaction split = makeTransaction(ledger.id(), day(2026, 1, 1), "Split", "1");
    split.splits.push_back({.id = UUID::random(), .amount = amount("1")});
    const Transaction stray = makeTransaction(UUID::random(), day(2026, 1, 1), "Stray", "1");
    ledger.library.transactions = {transfer, split, stray};
    const auto index = indexOf(ledger.library);
    EXPECT_EQ(index->payees(), (Texts{"Split", "Stray", "Transfer"}));
    EXPECT_EQ(index->memorized("split")->id, split.id);
}

TEST(PayeeMemory, ListsPayeesInTheOrderForPeople) {
    OneAccount ledger;
    for (const char* payee : {"zebra", "Éclair", "apple", "Banana", "fig"}) {
        ledger.add(day(2026, 1, 1), payee, "1");
    }
    EXPECT_EQ(indexOf(ledger.library)->payees(),
              (Texts{"apple", "Banana", "Éclair", "fig", "zebra"}));
}

TEST(Tags, AreEachListedOnceInPlainOrder) {
    OneAccount ledger;
    ledger.add(day(2026, 1, 1), "A", "1");
    ledger.add(day(2026, 1, 2), "B", "1");
    ledger.library.transactions.edit(0).tags = {"tax", "trip", "tax"};
    ledger.library.transactions.edit(1).tags = {"Tax", "éclair"};
    EXPECT_EQ(indexOf(ledger.library)->tags(), (Texts{"Tax", "tax", "trip", "éclair"}));
}

} // namespace
} // namespace oakfen
