// Totals over periods against the same figures worked out plainly, for random documents with
// refunds, splits, circles of categories, closed accounts, unknown ids and amounts of absurd sizes.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <tuple>

#include "OakfenCore/LibraryIndex/Actuals.h"
#include "Tests/OakfenCore/LibraryIndex/NaiveTotals.h"
#include "Tests/OakfenCore/LibraryIndex/RandomPeriods.h"

namespace oakfen {
namespace {

using namespace testing;

const Date now = periodsNow;
const Calendar& calendar = periodsCalendar();

using Check =
    std::function<void(const Library&, const LibraryIndex&, const NaiveTotals&, DateInterval)>;

void forRandomDocuments(const Check& check) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const Library library = randomDocument(seed);
        const LibraryIndex index(library, now, Calendar::utc());
        for (const DateInterval& interval : intervalsFor(library, seed)) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", interval from " +
                         std::to_string(interval.start.secondsSinceReference) + " to " +
                         std::to_string(interval.end.secondsSinceReference));
            ASSERT_NO_FATAL_FAILURE(
                check(library, index, NaiveTotals(library, interval), interval));
        }
    }
}

TEST(TotalsComparedWithNaiveOnes, AreOfDocumentsWithSumsOfBothKinds) {
    std::set<bool> kinds;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        kinds.insert(LibraryIndex(randomDocument(seed), now, calendar).sumsAreExact());
    }
    EXPECT_EQ(kinds, (std::set{false, true}));
}

/// The largest first, then by name, then by id.
bool inOrder(const std::vector<CategoryTotal>& totals) {
    return std::is_sorted(totals.begin(), totals.end(), [](const auto& a, const auto& b) {
        return std::tie(b.total, a.name, a.categoryID) < std::tie(a.total, b.name, b.categoryID);
    });
}

bool inOrder(const std::vector<PayeeTotal>& totals) {
    return std::is_sorted(totals.begin(), totals.end(), [](const auto& a, const auto& b) {
        return std::tie(b.total, a.payee) < std::tie(a.total, b.payee);
    });
}

NaiveTotals::ByCategory keyed(const LibraryIndex& index, const std::vector<CategoryTotal>& totals) {
    NaiveTotals::ByCategory result;
    EXPECT_TRUE(inOrder(totals));
    for (const CategoryTotal& total : totals) {
        EXPECT_TRUE(result.emplace(total.categoryID, total.total).second);
        EXPECT_EQ(total.name, index.categoryName(total.categoryID));
    }
    return result;
}

TEST(TotalsComparedWithNaiveOnes, HaveTheSameLines) {
    forRandomDocuments([](const Library&, const LibraryIndex& index, const NaiveTotals& naive,
                          const DateInterval& interval) {
        const auto lines = index.categoryLines(interval);
        ASSERT_EQ(lines, naive.lines());
        for (const CategoryLine& line : lines) {
            ASSERT_EQ(index.isIncomeLine(line), naive.isIncome(line));
        }
    });
}

TEST(TotalsComparedWithNaiveOnes, AgreeByCategory) {
    forRandomDocuments([](const Library&, const LibraryIndex& index, const NaiveTotals& naive,
                          const DateInterval& interval) {
        for (const bool rollUp : {false, true}) {
            ASSERT_EQ(keyed(index, spendingByCategory(index, interval, rollUp)),
                      naive.byCategory(false, rollUp));
            ASSERT_EQ(keyed(index, incomeByCategory(index, interval, rollUp)),
                      naive.byCategory(true, rollUp));
        }
    });
}

TEST(TotalsComparedWithNaiveOnes, AgreeByPayee) {
    forRandomDocuments([](const Library&, const LibraryIndex& index, const NaiveTotals& naive,
                          const DateInterval& interval) {
        const auto totals = spendingByPayee(index, interval);
        std::map<std::string, Decimal> byPayee;
        for (const PayeeTotal& total : totals) {
            ASSERT_TRUE(byPayee.emplace(total.payee, total.total).second);
        }
        ASSERT_EQ(byPayee, naive.byPayee());
        ASSERT_TRUE(inOrder(totals));
    });
}

TEST(TotalsComparedWithNaiveOnes, AgreeOnWhatABudgetComparesWith) {
    forRandomDocuments([](const Library& library, const LibraryIndex& index,
                          const NaiveTotals& naive, const DateInterval& interval) {
        std::vector<UUID> ids{UUID{}};
        for (const Category& category : library.categories) {
            ids.push_back(category.id);
        }
        const Actuals actuals(index, interval);
        for (const UUID& id : ids) {
            ASSERT_EQ(index.topLevelID(id), naive.root(id));
            ASSERT_EQ(actuals.of(id, false), naive.actual(id, false));
            ASSERT_EQ(actuals.of(id, true), naive.actual(id, true));
            ASSERT_EQ(actual(index, id, interval, false), naive.actual(id, false));
            ASSERT_EQ(actual(index, id, interval, true), naive.actual(id, true));
        }
    });
}

TEST(TotalsComparedWithNaiveOnes, AgreeMonthByMonthForAtMostTwentyYears) {
    std::size_t longest = 0;
    forRandomDocuments([&](const Library& library, const LibraryIndex& index, const NaiveTotals&,
                           const DateInterval& interval) {
        constexpr std::size_t mostMonths = 240;
        const DateInterval range = naiveClamp(library, interval, now);
        ASSERT_EQ(clamp(index, interval), range);
        const auto flow = cashFlow(index, interval, calendar);
        Date month = calendar.startOfMonth(range.start);
        for (const MonthlyCashFlow& each : flow) {
            ASSERT_EQ(each.month, month);
            const NaiveTotals ofMonth(library, {std::max(month, range.start),
                                                std::min(calendar.endOfMonth(month), range.end)});
            ASSERT_EQ(each.income, ofMonth.sum(true));
            ASSERT_EQ(each.expenses, ofMonth.sum(false));
            month = calendar.addingMonths(month, 1);
        }
        ASSERT_TRUE(flow.size() == mostMonths || month > range.end);
        longest = std::max(longest, flow.size());
    });
    EXPECT_EQ(longest, 240U);
}

TEST(TotalsComparedWithNaiveOnes, StayTheSameHoweverOftenAndInWhateverOrderOneAsks) {
    const Library library = randomDocument(21);
    const LibraryIndex index(library, now, Calendar::utc());
    std::mt19937 random(1);
    for (int question = 0; question < 400; ++question) {
        // More intervals than an index remembers.
        const Date start{790000000.0 + 200000.0 * static_cast<double>(random() % 60)};
        const DateInterval interval{start, start.adding(300000)};
        const NaiveTotals naive(library, interval);
        ASSERT_EQ(keyed(index, spendingByCategory(index, interval, false)),
                  naive.byCategory(false, false));
    }
}

} // namespace
} // namespace oakfen
