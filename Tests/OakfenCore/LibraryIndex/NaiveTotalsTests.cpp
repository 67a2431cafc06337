// Totals over periods against the same figures worked out plainly, for random
// documents with refunds, splits, circles of categories, closed accounts and unknown ids.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "Tests/OakfenCore/LibraryIndex/NaiveTotals.h"
#include "Tests/OakfenCore/LibraryIndex/UnsoundLibrary.h"

namespace oakfen {
namespace {

using namespace testing;

const Date now{796000000.0};
const std::vector<DateInterval> intervals{
    {Date::distantPast(), Date::distantFuture()}, {Date{792000000}, Date{795000000}},
    {Date{790030000}, Date{790030000}},           {Date{799000000}, Date{798000000}},
    {Date{900000000}, Date{910000000}},           {Date{100000000}, Date{200000000}},
};

using Check =
    std::function<void(const Library&, const LibraryIndex&, const NaiveTotals&, DateInterval)>;

void forRandomDocuments(const Check& check) {
    for (unsigned seed = 1; seed <= 25; ++seed) {
        const Library library = UnsoundLibrary(seed).make(seed * 12U);
        const LibraryIndex index(library, now, Calendar::utc());
        for (const DateInterval& interval : intervals) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", interval from " +
                         std::to_string(interval.start.secondsSinceReference));
            ASSERT_NO_FATAL_FAILURE(
                check(library, index, NaiveTotals(library, interval), interval));
        }
    }
}

template <typename Totals>
bool largestFirst(const Totals& totals) {
    return std::is_sorted(totals.begin(), totals.end(),
                          [](const auto& a, const auto& b) { return a.total > b.total; });
}

NaiveTotals::ByCategory keyed(const LibraryIndex& index, const std::vector<CategoryTotal>& totals) {
    NaiveTotals::ByCategory result;
    EXPECT_TRUE(largestFirst(totals));
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
        ASSERT_TRUE(largestFirst(totals));
    });
}

TEST(TotalsComparedWithNaiveOnes, AgreeOnWhatABudgetComparesWith) {
    forRandomDocuments([](const Library& library, const LibraryIndex& index,
                          const NaiveTotals& naive, const DateInterval& interval) {
        std::vector<UUID> ids{UUID{}};
        for (const Category& category : library.categories) {
            ids.push_back(category.id);
        }
        for (const UUID& id : ids) {
            ASSERT_EQ(index.topLevelID(id), naive.root(id));
            ASSERT_EQ(actual(index, id, interval, false), naive.actual(id, false));
            ASSERT_EQ(actual(index, id, interval, true), naive.actual(id, true));
        }
    });
}

TEST(TotalsComparedWithNaiveOnes, AgreeMonthByMonth) {
    forRandomDocuments([](const Library& library, const LibraryIndex& index, const NaiveTotals&,
                          const DateInterval& interval) {
        const Calendar calendar = Calendar::inZone("America/St_Johns").value();
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
        ASSERT_GT(month, range.end);
    });
}

} // namespace
} // namespace oakfen
