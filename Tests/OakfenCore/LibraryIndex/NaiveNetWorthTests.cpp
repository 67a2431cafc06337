// Balances as they once stood against the same worked out plainly, instant by instant.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Tests/OakfenCore/LibraryIndex/NaiveTotals.h"
#include "Tests/OakfenCore/LibraryIndex/RandomPeriods.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using namespace testing;

const Date now = periodsNow;
const Calendar& calendar = periodsCalendar();

TEST(PastBalancesComparedWithNaiveOnes, GiveTheSameHistory) {
    for (unsigned seed = 1; seed <= 25; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Library library = UnsoundLibrary(seed).make(seed * 12U);
        const LibraryIndex index(library, now, calendar);
        for (const int months : {0, 1, 3, 12, 300}) {
            ASSERT_EQ(netWorthSeries(index, months, calendar),
                      naiveNetWorth(library, months, now, calendar));
        }
    }
}

TEST(PastBalancesComparedWithNaiveOnes, AreTheSameOneByOneAndInOneWalk) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Library library = randomDocument(seed);
        const LibraryIndex index(library, now, calendar);
        std::vector<Date> instants;
        for (const DateInterval& interval : intervalsFor(library, seed)) {
            instants.insert(instants.end(), {interval.start, interval.end});
        }
        std::sort(instants.begin(), instants.end());
        std::vector<Account> accounts(library.accounts.begin(), library.accounts.end());
        accounts.push_back(makeAccount("Of no document", AccountType::brokerage));
        accounts.push_back(accounts.front());
        accounts.back().openingBalance += Decimal::cents(5); // as of another document
        for (const Account& account : accounts) {
            std::vector<Decimal> expected;
            for (const Date instant : instants) {
                expected.push_back(index.balance(account, instant));
            }
            ASSERT_EQ(index.balances(account, instants), expected);
        }
    }
}

TEST(PastBalancesComparedWithNaiveOnes, AreTheSameAtRandomInstants) {
    for (unsigned seed = 1; seed <= 40; seed += 2) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Library library = randomDocument(seed);
        const LibraryIndex index(library, now, calendar);
        const NaiveIndex naive(library, now, calendar);
        for (const Account& account : library.accounts) {
            for (const DateInterval& interval : intervalsFor(library, seed)) {
                ASSERT_EQ(index.balance(account, interval.end),
                          naive.balance(library, account, interval.end));
            }
        }
    }
}

TEST(PastBalancesComparedWithNaiveOnes, AddUpCashInLedgerOrder) {
    for (unsigned seed = 2; seed <= 40; seed += 2) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Library library = randomDocument(seed);
        const LibraryIndex index(library, now, calendar);
        const NaiveIndex naive(library, now, calendar);
        for (const Account& account : library.accounts) {
            if (isInvestment(account.type)) {
                continue;
            }
            for (const DateInterval& interval : intervalsFor(library, seed)) {
                Decimal expected = account.openingBalance;
                for (const Transaction& entry : naive.entries.at(account.id)) {
                    expected += entry.date <= interval.end ? entry.amount : Decimal();
                }
                ASSERT_EQ(index.balance(account, interval.end),
                          account.openingDate <= interval.end ? expected : Decimal());
            }
        }
    }
}

} // namespace
} // namespace oakfen
