#include "Oakfen/Views/Register/RegisterRows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::makeTransaction;
using testing::RandomLibrary;

/// An account with a thousand entries of one cent, a day each.
class RegisterRowsOfAnAccount : public ::testing::Test {
protected:
    RegisterRowsOfAnAccount() {
        test.store->mutate("Add", [this](Library& library) {
            library.accounts.push_back(account);
            for (int number = 0; number < 1000; ++number) {
                library.transactions.push_back(
                    makeTransaction(account.id, day(2020, 1, 1).adding(86'400.0 * number),
                                    "Payee " + std::to_string(number), "0.01"));
            }
        });
    }

    RegisterRows::State now() { return rows.at(test.store->sharedIndex()); }

    template <typename Change>
    void edit(std::size_t place, Change&& change) {
        test.store->mutate("Edit",
                           [&](Library& library) { change(library.transactions.edit(place)); });
    }

    /// How many rows of both states are the same objects.
    static std::size_t shared(const RegisterRows::State& a, const RegisterRows::State& b) {
        std::size_t count = 0;
        for (std::size_t place = 0; place < std::min(a->size(), b->size()); ++place) {
            count += &(*a)[place] == &(*b)[place] ? 1 : 0;
        }
        return count;
    }

    Account account = makeAccount("Everyday");
    testing::TestEnvironment test;
    RegisterRows rows{account.id};
};

TEST_F(RegisterRowsOfAnAccount, AreMadeOnceForAnIndex) {
    EXPECT_EQ(now(), now());
    EXPECT_EQ(now()->size(), 1000U);
    EXPECT_EQ(now()->back().balance, amount("10"));
}

TEST_F(RegisterRowsOfAnAccount, ShareWhatAnEditDoesNotTouch) {
    const RegisterRows::State before = now();
    edit(500, [](Transaction& entry) { entry.cleared = ClearedState::cleared; });
    EXPECT_GE(shared(before, now()), 1000 - SharedArray<RegisterRow>::chunkCapacity);
    EXPECT_EQ((*now())[500].cleared, ClearedState::cleared);
    EXPECT_EQ((*before)[500].cleared, ClearedState::uncleared);
}

TEST_F(RegisterRowsOfAnAccount, ShareWhatStandsBeforeAChangedAmount) {
    const RegisterRows::State before = now();
    edit(600, [](Transaction& entry) { entry.amount = amount("5"); });
    EXPECT_GE(shared(before, now()), 600 - SharedArray<RegisterRow>::chunkCapacity);
    EXPECT_EQ(now()->back().balance, amount("14.99"));
    EXPECT_EQ(before->back().balance, amount("10"));
}

TEST_F(RegisterRowsOfAnAccount, EqualRowsMadeAfreshAfterAnyEditsAndLeaveTheEarlierAlone) {
    RandomLibrary source(20260316);
    for (int step = 0; step < 120; ++step) {
        SCOPED_TRACE(step);
        const RegisterRows::State before = now();
        const std::vector<RegisterRow> kept(before->begin(), before->end());
        test.store->mutate("Edit", [&](Library& library) {
            auto& entries = library.transactions;
            for (std::size_t edits = 1 + source.below(3); edits > 0; --edits) {
                const std::size_t place = source.below(entries.size());
                switch (source.below(6)) {
                case 0:
                    entries.push_back(makeTransaction(account.id, entries[place].date, "New", "2"));
                    break;
                case 1:
                    entries.erase(place);
                    break;
                case 2:
                    entries.edit(place).date = day(2020, 1, 1);
                    break;
                case 3:
                    library.accounts.edit(0).openingBalance += amount("1");
                    break;
                case 4:
                    entries.edit(place).payee += "!";
                    break;
                default:
                    entries.edit(place).amount += amount("0.5");
                }
            }
        });
        const std::vector<RegisterRow> fresh = test.index().registerRows(account.id);
        ASSERT_TRUE(std::ranges::equal(*now(), fresh));
        ASSERT_TRUE(std::ranges::equal(*before, kept));
    }
}

} // namespace
} // namespace oakfen
