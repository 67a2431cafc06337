#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace testing;

/// A chequing account with entries in one category, and a second account.
class RegisterRowsUpdate : public ::testing::Test {
protected:
    RegisterRowsUpdate() {
        ledger.library.accounts.push_back(accountWith("0", "Savings"));
        ledger.library.categories = {makeCategory("Food")};
        for (int number = 0; number < 40; ++number) {
            add(number % 28 + 1, number);
        }
        index = indexOf(ledger.library);
        rows = index->registerRows(ledger.id());
    }

    void add(int dayOfMonth, int number) {
        Transaction entry = makeTransaction(ledger.id(), day(2026, 1, dayOfMonth),
                                            "Payee " + std::to_string(number), "-3.25");
        entry.categoryID = ledger.library.categories.front().id;
        ledger.library.transactions.push_back(entry);
    }

    /// Updates the rows to the document as it is now, and compares them with rows made afresh.
    void expectUpdated() {
        auto after = indexOf(ledger.library);
        after->updateRegisterRows(rows, ledger.id(), *index);
        index = std::move(after);
        ASSERT_EQ(rows, index->registerRows(ledger.id()));
    }

    OneAccount ledger{"100"};
    std::unique_ptr<LibraryIndex> index;
    std::vector<RegisterRow> rows;
};

TEST_F(RegisterRowsUpdate, FollowsAChangedEntryAndTheBalancesAfterIt) {
    ledger.library.transactions.edit(7).amount = amount("-10");
    expectUpdated();
}

TEST_F(RegisterRowsUpdate, FollowsAnEntryThatMovesToAnotherDay) {
    ledger.library.transactions.edit(30).date = day(2025, 12, 1);
    expectUpdated();
    EXPECT_EQ(rows.front().payee, "Payee 30");
}

TEST_F(RegisterRowsUpdate, FollowsEntriesThatComeAndGo) {
    add(15, 100);
    add(1, 101);
    expectUpdated();
    ledger.library.transactions.eraseIf(
        [](const Transaction& entry) { return entry.payee.ends_with('3'); });
    expectUpdated();
    ledger.library.transactions.clear();
    expectUpdated();
    EXPECT_TRUE(rows.empty());
    add(9, 102);
    expectUpdated();
    EXPECT_EQ(rows.size(), 1U);
}

TEST_F(RegisterRowsUpdate, FollowsANewNameOfACategory) {
    ledger.library.categories.edit(0).name = "Groceries";
    expectUpdated();
    EXPECT_EQ(rows.front().categoryName, "Groceries");
}

TEST_F(RegisterRowsUpdate, FollowsANewNameOfTheOtherAccount) {
    ledger.library.transactions.edit(5).transferAccountID = ledger.library.accounts[1].id;
    expectUpdated();
    ledger.library.accounts.edit(1).name = "Rainy Days";
    expectUpdated();
    const auto moved = std::ranges::find(rows, "Payee 5", &RegisterRow::payee);
    ASSERT_NE(moved, rows.end());
    EXPECT_EQ(moved->categoryName, "[Rainy Days]");
}

TEST_F(RegisterRowsUpdate, FollowsTheOpeningBalance) {
    ledger.library.accounts.edit(0).openingBalance = amount("7");
    expectUpdated();
}

TEST_F(RegisterRowsUpdate, FollowsTheEndOfTheAccount) {
    ledger.library.accounts.eraseIf([](const Account& each) { return each.name == "Chequing"; });
    auto after = indexOf(ledger.library);
    const UUID id = index->library().accounts.front().id;
    after->updateRegisterRows(rows, id, *index);
    EXPECT_EQ(rows, after->registerRows(id));
}

TEST_F(RegisterRowsUpdate, FollowsEntriesThatShareAnId) {
    Transaction twin = ledger.library.transactions[20];
    twin.date = day(2026, 1, 2);
    ledger.library.transactions.push_back(twin);
    expectUpdated();
    ledger.library.transactions.edit(35).amount = amount("-77");
    expectUpdated();
    ledger.library.transactions.erase(ledger.library.transactions.size() - 1);
    expectUpdated();
}

TEST_F(RegisterRowsUpdate, EqualsRowsMadeAfreshAfterAnyEdits) {
    std::mt19937 random(20260315);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (int step = 0; step < 300; ++step) {
        auto& entries = ledger.library.transactions;
        for (std::size_t edits = below(4); edits-- > 0;) {
            const std::size_t place = below(entries.size());
            switch (below(5)) {
            case 0:
                add(static_cast<int>(below(28)) + 1, step);
                break;
            case 1:
                entries.edit(place).date = day(2026, 1, static_cast<int>(below(28)) + 1);
                break;
            case 2:
                entries.edit(place).amount += Decimal::cents(25);
                break;
            case 3:
                entries.edit(place).cleared = ClearedState::cleared;
                break;
            default:
                if (entries.size() > 10) {
                    entries.eraseIf([id = entries[place].id](const Transaction& entry) {
                        return entry.id == id;
                    });
                }
            }
        }
        expectUpdated();
    }
}

} // namespace
} // namespace oakfen
