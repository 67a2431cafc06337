#include <thread>

#include <gtest/gtest.h>

#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"
#include "Tests/OakfenCore/LibraryIndex/NaiveIndex.h"
#include "Tests/OakfenCore/LibraryIndex/UnsoundLibrary.h"

namespace oakfen {
namespace {

using namespace testing;

const Date now{796000000.0};

template <typename Map, typename Key>
auto valueOr0(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? typename Map::mapped_type() : found->second;
}

void expectSameEntries(const LibraryIndex& index, const NaiveIndex& naive, const UUID& accountID) {
    const auto entries = index.transactions(accountID);
    const auto rows = index.registerRows(accountID);
    const auto expected = valueOr0(naive.entries, accountID);
    ASSERT_EQ(entries.size(), expected.size());
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t position = 0; position < expected.size(); ++position) {
        const Transaction& entry = expected[position];
        ASSERT_EQ(*entries[position], entry);
        const Decimal running = valueOr0(naive.running, entry.id);
        ASSERT_EQ(index.runningBalance(entry.id), running);
        ASSERT_EQ(rows[position].balance, running);
        ASSERT_EQ(rows[position].id, entry.id);
        ASSERT_EQ(rows[position].categoryName, index.categoryDescription(entry));
    }
}

std::map<UUID, Holding> byID(const std::vector<Holding>& holdings) {
    std::map<UUID, Holding> result;
    for (const Holding& holding : holdings) {
        EXPECT_TRUE(result.emplace(holding.securityID, holding).second);
    }
    EXPECT_TRUE(
        std::is_sorted(holdings.begin(), holdings.end(), [](const Holding& a, const Holding& b) {
            return a.marketValue() > b.marketValue();
        }));
    return result;
}

void expectSameFigures(const Library& library) {
    const LibraryIndex index(library, now, Calendar::utc());
    const NaiveIndex naive(library, now, Calendar::utc());
    Decimal netWorth;
    for (const Account& account : library.accounts) {
        const UUID& id = account.id;
        ASSERT_EQ(index.endingCash(id), naive.endingCash.at(id));
        ASSERT_EQ(index.currentCash(id), naive.currentCash.at(id));
        ASSERT_EQ(index.clearedBalance(id), naive.clearedBalance.at(id));
        ASSERT_EQ(index.reconciledBalance(id), naive.reconciledBalance.at(id));
        for (const double seconds : {790000000.0, 793000000.0, 795990000.0, 803000000.0}) {
            ASSERT_EQ(index.balance(account, Date{seconds}),
                      naive.balance(library, account, Date{seconds}));
        }
        const auto holdings = naiveHoldings(library, id, std::nullopt);
        ASSERT_EQ(byID(index.holdings(id)), holdings);
        const Decimal value = naiveValue(holdings);
        ASSERT_EQ(index.marketValue(id), value);
        ASSERT_EQ(index.balance(id), naive.currentCash.at(id) + value);
        ASSERT_EQ(index.endingBalance(id), naive.endingCash.at(id) + value);
        netWorth += account.isClosed ? Decimal() : naive.currentCash.at(id) + value;
    }
    ASSERT_EQ(index.netWorth(), netWorth);
    ASSERT_EQ(index.totalAssets() + index.totalLiabilities(), netWorth);
    for (const auto& [accountID, entries] : naive.entries) {
        expectSameEntries(index, naive, accountID);
    }
    for (const auto& [id, entry] : naive.byID) {
        ASSERT_EQ(*index.transaction(id), entry);
    }
    for (const auto& [payee, entry] : naive.memory) {
        ASSERT_EQ(*index.memorized(payee), entry);
    }
    ASSERT_EQ(index.payees().size(), naive.memory.size());
    ASSERT_EQ(index.tags(), Texts(naive.tags.begin(), naive.tags.end()));
    ASSERT_EQ(byID(index.allHoldings()), naiveHoldingsOfAll(library));
}

TEST(IndexComparedWithANaiveOne, HasTheSameFiguresForRandomDocuments) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Library library = UnsoundLibrary(seed).make(seed * 15U);
        ASSERT_NO_FATAL_FAILURE(expectSameFigures(library));
    }
}

TEST(IndexComparedWithANaiveOne, HasTheSameFiguresAfterEachOfManyEdits) {
    UnsoundLibrary source(7);
    Library library = source.make(400);
    for (int edit = 0; edit < 60; ++edit) {
        SCOPED_TRACE("edit " + std::to_string(edit));
        source.edit(library);
        ASSERT_NO_FATAL_FAILURE(expectSameFigures(library));
    }
}

TEST(Index, AnswersSeveralThreadsAtOnce) {
    const Library library = UnsoundLibrary(3).make(2000);
    const LibraryIndex index(library, now, Calendar::utc());
    const LibraryIndex alone(library, now, Calendar::utc());
    std::vector<std::thread> threads;
    std::vector<int> agreements(4);
    for (int& agreed : agreements) {
        threads.emplace_back([&] {
            const UUID& id = library.accounts.front().id;
            agreed += index.registerRows(id) == alone.registerRows(id) ? 1 : 0;
            agreed += index.payees() == alone.payees() ? 1 : 0;
            agreed += index.sortedCategories(CategoryKind::expense).size() ==
                              alone.sortedCategories(CategoryKind::expense).size()
                          ? 1
                          : 0;
            const Account& account = library.accounts.back();
            agreed += index.balance(account, now) == alone.balance(account, now) ? 1 : 0;
            // As many intervals as make an index forget some while others are made.
            int agreedPeriods = 0;
            for (int period = 0; period < 40; ++period) {
                const Date start{790000000.0 + 200000.0 * (period % 30)};
                const DateInterval interval{start, start.adding(1000000)};
                agreedPeriods += spendingByCategory(index, interval, true) ==
                                         spendingByCategory(alone, interval, true)
                                     ? 1
                                     : 0;
            }
            agreed += agreedPeriods == 40 ? 1 : 0;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(agreements, std::vector<int>(4, 5));
}

} // namespace
} // namespace oakfen
