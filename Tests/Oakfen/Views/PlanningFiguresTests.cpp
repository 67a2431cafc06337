// One figure, however many screens show it: on random documents, what is the same agrees wherever
// it stands, and what differs on purpose does so for the reason that is known.
#include <gtest/gtest.h>

#include <map>

#include "Oakfen/Views/Bills/BillsView.h"
#include "Oakfen/Views/Budget/BudgetView.h"
#include "Oakfen/Views/Categories/CategoriesView.h"
#include "Oakfen/Views/Dashboard/DashboardView.h"
#include "Oakfen/Views/Lines/LinesView.h"
#include "Oakfen/Views/Shell/SidebarView.h"
#include "OakfenCore/LibraryIndex/NetWorthSeries.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/Models/Money.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::makeCategory;
using testing::makeTransaction;
using testing::RandomLibrary;
using testing::TestEnvironment;

class PlanningFigures : public ::testing::Test {
protected:
    PlanningFigures()
        : follow_(test.appState->linesWanted.observe(
              [this](const FigureLines& figure) { wanted_ = figure; })) {}

    /// On the day of one of its entries, so that its month is not empty.
    void open(std::uint64_t seed) {
        RandomLibrary source(seed);
        Library library = source.make(20 + source.below(80));
        const std::size_t place = source.below(library.transactions.size());
        test.clock.set(library.transactions[place].date);
        test.environment->dayChange.check();
        test.store->replaceLibrary(std::move(library), std::nullopt);
    }
    /// What the panel says of the figure that was asked about last.
    [[nodiscard]] std::string behind() {
        if (!wanted_) {
            return "nothing was asked for";
        }
        return LinesView(*test, *std::exchange(wanted_, std::nullopt)).content()->total.text;
    }
    [[nodiscard]] std::string behind(const FigureLines& figure) {
        return LinesView(*test, figure).content()->total.text;
    }
    [[nodiscard]] std::string text(const Decimal& sum) const {
        return currencyText(sum, test.library().currencyCode);
    }

    testing::LocaleForTest locale{"en_CA"};
    TestEnvironment test;

private:
    std::optional<FigureLines> wanted_;
    Subscription follow_;
};

TEST_F(PlanningFigures, AgreeWhereverTheyStand) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        open(seed);
        const auto dashboard = DashboardView(*test).content();
        if (dashboard->isEmpty) {
            continue;
        }
        EXPECT_EQ(dashboard->netWorth.today.figure,
                  SidebarView(*test).content()->footer.netWorth.text);

        BudgetView budget(*test);
        budget.setShowsAllCategories(true);
        std::map<UUID, BudgetLine> lines;
        Decimal spent;
        for (const BudgetLine& line : budget.budgetLines()) {
            lines.emplace(line.id, line);
            budget.showEntries(line.id);
            EXPECT_EQ(behind(), text(line.actual)) << line.name;
            spent += line.kind == CategoryKind::expense ? line.actual : Decimal();
        }
        EXPECT_EQ(budget.content()->spending.actual.figure, text(spent));
        budget.showEntries(CategoryKind::expense);
        EXPECT_EQ(behind(), text(spent));

        for (const BudgetSummaryCard::Row& row : dashboard->budget.rows) {
            const BudgetLine& line = lines.at(row.categoryID);
            EXPECT_EQ(row.left.text, text(line.remaining())) << line.name;
            EXPECT_EQ(behind(row.lines), text(line.actual)) << line.name;
        }
        EXPECT_EQ(behind(dashboard->budget.lines), dashboard->budget.spent);
        for (std::size_t sector = 0; sector < dashboard->spending.lines.size(); ++sector) {
            EXPECT_EQ(behind(dashboard->spending.lines[sector]),
                      dashboard->spending.chart.sectors[sector].value.text);
        }
        for (std::size_t month = 0; month < dashboard->cashFlow.lines.size(); ++month) {
            for (const std::size_t side : {0U, 1U}) {
                EXPECT_EQ(behind(dashboard->cashFlow.lines[month][side]),
                          dashboard->cashFlow.chart.value(month, side).text);
            }
        }

        CategoriesView categories(*test);
        for (const CategoryKind kind : allCases<CategoryKind>) {
            categories.setKind(kind);
            const auto content = categories.content();
            for (const CategoryRow* row : content->table->rows()) {
                categories.showEntries(row->id);
                EXPECT_EQ(behind(), text(row->total)) << row->name;
            }
        }
    }
}

TEST_F(PlanningFigures, CategoriesOfTheYearAreTheSumOfTheirMonthsInTheBudget) {
    const Account account = makeAccount("Everyday");
    const Category food = makeCategory("Food");
    const Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    test.store->mutate("Edit", [&](Library& library) {
        library.accounts.push_back(account);
        library.categories = {food, groceries};
        for (int month = 1; month <= 3; ++month) {
            Transaction entry = makeTransaction(account.id, day(2026, month, 5), "Shop", "-10.10");
            entry.categoryID = month == 2 ? food.id : groceries.id;
            library.transactions.push_back(entry);
        }
    });
    BudgetView budget(*test);
    Decimal sum;
    for (int month = 0; month < 3; ++month) {
        for (const BudgetLine& line : budget.budgetLines()) {
            sum += line.actual;
        }
        budget.shift(-1);
    }
    const auto categories = CategoriesView(*test).content();
    EXPECT_EQ(categories->table->rows()[0]->total, sum);
    EXPECT_EQ(sum, amount("30.3"));
    EXPECT_EQ(categories->table->rows()[1]->total, amount("20.2"));
}

// What differs, and why.

TEST_F(PlanningFigures, TheCashFlowEndsTodayWhileTheBudgetCountsTheWholeMonth) {
    const Account account = makeAccount("Everyday");
    const Category food = makeCategory("Food");
    test.store->mutate("Edit", [&](Library& library) {
        library.accounts.push_back(account);
        library.categories = {food};
        library.budget[food.id] = amount("100");
        Transaction entry = makeTransaction(account.id, day(2026, 3, 20), "Shop", "-40");
        entry.categoryID = food.id;
        library.transactions.push_back(entry);
    });
    const auto dashboard = DashboardView(*test).content();
    EXPECT_EQ(dashboard->cashFlow.spending.figure, "$0.00");
    EXPECT_EQ(dashboard->spending.chart.figure, "$40.00");
    EXPECT_EQ(dashboard->budget.spent, "$40.00");
    // The year to date ends today too.
    EXPECT_EQ(CategoriesView(*test).content()->table->rows()[0]->total, Decimal());
}

TEST_F(PlanningFigures, ClosedAccountsAreInTheCourseOfNetWorthButNotInToday) {
    Account closed = makeAccount("Old");
    closed.isClosed = true;
    closed.openingBalance = amount("500");
    test.store->mutate("Edit", [&](Library& library) {
        library.accounts = {makeAccount("Everyday"), closed};
    });
    const auto dashboard = DashboardView(*test).content();
    EXPECT_EQ(dashboard->netWorth.today.figure, "$0.00");
    EXPECT_EQ(dashboard->netWorth.chart.value(11, 0).text, "$500.00");
}

TEST_F(PlanningFigures, WithMoreThanSixCategoriesTheRingIsLessThanTheMonth) {
    const Account account = makeAccount("Everyday");
    test.store->mutate("Edit", [&](Library& library) {
        library.accounts.push_back(account);
        for (int each = 1; each <= 7; ++each) {
            const Category category = makeCategory("Category " + std::to_string(each));
            library.categories.push_back(category);
            Transaction entry =
                makeTransaction(account.id, day(2026, 3, 2), "Shop", std::to_string(-each));
            entry.categoryID = category.id;
            library.transactions.push_back(entry);
        }
    });
    const auto dashboard = DashboardView(*test).content();
    EXPECT_EQ(dashboard->spending.chart.figure, "$27.00");
    EXPECT_EQ(dashboard->cashFlow.spending.figure, "$28.00");
}

TEST_F(PlanningFigures, TheDueOfTheSidebarEndsTodayAndThatOfTheDashboardInTwoWeeks) {
    const Account account = makeAccount("Everyday");
    test.store->mutate("Edit", [&](Library& library) {
        library.accounts.push_back(account);
        for (const int each : {13, 15, 28}) {
            library.scheduled.push_back({.id = UUID::random(),
                                         .payee = "Bill",
                                         .accountID = account.id,
                                         .amount = amount("-10"),
                                         .nextDate = day(2026, 3, each)});
        }
    });
    EXPECT_EQ(SidebarView(*test).content()->overview[1].badge, 2);
    const auto dashboard = DashboardView(*test).content();
    EXPECT_EQ(dashboard->upcoming.rows.size(), 3U);
    ASSERT_FALSE(dashboard->alerts.items.empty());
    EXPECT_EQ(dashboard->alerts.items[0].text, "1 reminder is overdue.");
    BillsView bills(*test);
    bills.setHorizonDays(14);
    EXPECT_EQ(bills.content()->figures[0].money.text, "$30.00");
}

} // namespace
} // namespace oakfen
