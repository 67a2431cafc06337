#include "OakfenCore/LibraryIndex/PeriodTotals.h"

#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryIndex/IndexFixture.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;

/// A ledger with a small category tree; March 2026 is its present month.
struct Household : OneAccount {
    UUID food = add("Food", CategoryKind::expense);
    UUID groceries = add("Groceries", CategoryKind::expense, food);
    UUID dining = add("Dining", CategoryKind::expense, food);
    UUID salary = add("Salary", CategoryKind::income);

    using OneAccount::add;
    UUID add(std::string name, CategoryKind kind, std::optional<UUID> parent = {}) {
        const Category category{
            .id = UUID::random(), .name = std::move(name), .kind = kind, .parentID = parent};
        library.categories.push_back(category);
        return category.id;
    }

    void enter(std::string_view amountText, std::optional<UUID> category,
               Date date = day(2026, 3, 10), std::string payee = "Shop") {
        Transaction entry = makeTransaction(id(), date, std::move(payee), amountText);
        entry.categoryID = category;
        library.transactions.push_back(entry);
    }
};

const DateInterval march{day(2026, 3, 1, 0), Calendar::utc().endOfMonth(day(2026, 3, 1))};

CategoryTotal total(const std::optional<UUID>& id, std::string name, std::string_view text) {
    return {id, std::move(name), amount(text)};
}

using Totals = std::vector<CategoryTotal>;

TEST(PeriodTotals, LeaveTransfersOutInBothDirections) {
    Household home;
    home.enter("-50", home.groceries);
    home.enter("70", home.salary);
    Transaction out = home.library.transactions[0];
    Transaction in = home.library.transactions[1];
    out.transferAccountID = in.transferAccountID = UUID::random();
    home.library.transactions = {out, in};
    const auto index = indexOf(home.library);
    EXPECT_TRUE(spendingByCategory(*index, march, false).empty());
    EXPECT_TRUE(incomeByCategory(*index, march, false).empty());
    EXPECT_EQ(cashFlow(*index, march, Calendar::utc()).at(0).net(), Decimal(0));
}

TEST(PeriodTotals, CountARefundAloneAsNegativeSpendingAndNoIncome) {
    Household home;
    home.enter("20", home.groceries);
    const auto index = indexOf(home.library);
    EXPECT_EQ(spendingByCategory(*index, march, false),
              Totals{total(home.groceries, "Food: Groceries", "-20")});
    EXPECT_TRUE(incomeByCategory(*index, march, false).empty());
    EXPECT_TRUE(spendingByPayee(*index, march).empty());
}

TEST(PeriodTotals, TakeUncategorisedMoneyBySignWithAndWithoutRollUp) {
    Household home;
    home.enter("30", std::nullopt);
    home.enter("-12.50", std::nullopt);
    const auto index = indexOf(home.library);
    for (const bool rollUp : {false, true}) {
        EXPECT_EQ(incomeByCategory(*index, march, rollUp),
                  Totals{total(std::nullopt, "Uncategorized", "30")});
        EXPECT_EQ(spendingByCategory(*index, march, rollUp),
                  Totals{total(std::nullopt, "Uncategorized", "12.5")});
    }
    EXPECT_EQ(spendingByCategory(*index, march, true)[0].id(), "uncategorized");
}

TEST(PeriodTotals, MergeSubcategoriesUnderTheTopOfTheirTree) {
    Household home;
    home.enter("-30", home.groceries);
    home.enter("-20", home.dining);
    home.enter("-1", home.food);
    const auto index = indexOf(home.library);
    EXPECT_EQ(spendingByCategory(*index, march, true), Totals{total(home.food, "Food", "51")});
    const Totals apart{total(home.groceries, "Food: Groceries", "30"),
                       total(home.dining, "Food: Dining", "20"), total(home.food, "Food", "1")};
    EXPECT_EQ(spendingByCategory(*index, march, false), apart);
}

TEST(PeriodTotals, CountEachSplitUnderItsOwnCategory) {
    Household home;
    home.enter("-50", std::nullopt);
    home.library.transactions.edit(0).splits = {{UUID::random(), home.groceries, "", amount("-30")},
                                                {UUID::random(), home.dining, "", amount("-20")}};
    const auto index = indexOf(home.library);
    const Totals expected{total(home.groceries, "Food: Groceries", "30"),
                          total(home.dining, "Food: Dining", "20")};
    EXPECT_EQ(spendingByCategory(*index, march, false), expected);
}

TEST(PeriodTotals, DropWhatComesToExactlyNothingBeforeRounding) {
    Household home;
    home.enter("-5", home.groceries);
    home.enter("5", home.groceries);
    home.enter("-0.004", home.dining);
    const auto index = indexOf(home.library);
    EXPECT_EQ(spendingByCategory(*index, march, false),
              Totals{total(home.dining, "Food: Dining", "0")});
    EXPECT_TRUE(spendingByPayee(*index, march).empty());
}

TEST(PeriodTotals, RoundATotalOnceHalfAwayFromZero) {
    Household home;
    home.enter("-0.0025", home.groceries);
    home.enter("-0.0025", home.groceries);
    const auto index = indexOf(home.library);
    EXPECT_EQ(spendingByCategory(*index, march, false),
              Totals{total(home.groceries, "Food: Groceries", "0.01")});
}

TEST(PeriodTotals, KeepTwoSpellingsOfAPayeeApartAndNameAnEmptyOne) {
    Household home;
    home.enter("-3", home.food, day(2026, 3, 1), "Acme");
    home.enter("-5", home.food, day(2026, 3, 2), "acme");
    home.enter("-4", home.food, day(2026, 3, 3), "");
    const auto index = indexOf(home.library);
    const std::vector<PayeeTotal> expected{
        {"acme", Decimal(5)}, {"(No Payee)", Decimal(4)}, {"Acme", Decimal(3)}};
    EXPECT_EQ(spendingByPayee(*index, march), expected);
}

TEST(PeriodTotals, ClampAnIntervalToTheLedgerAndNeverInvertIt) {
    Household home;
    home.library.accounts.edit(0).openingDate = day(2025, 5, 1);
    home.enter("-1", home.food, day(2025, 6, 1));
    const auto index = indexOf(home.library);
    const DateInterval everything{Date::distantPast(), Date::distantFuture()};
    EXPECT_EQ(clamp(*index, everything), (DateInterval{day(2025, 5, 1), today()}));
    const DateInterval future{day(2027, 1, 1), day(2027, 2, 1)};
    EXPECT_EQ(clamp(*index, future), (DateInterval{future.start, future.start}));
    const DateInterval past{day(2020, 1, 1), day(2020, 2, 1)};
    EXPECT_EQ(clamp(*index, past), (DateInterval{day(2025, 5, 1), day(2025, 5, 1)}));
}

TEST(PeriodTotals, GiveTheCurrentMonthWithZerosForAnEmptyLedger) {
    const auto index = indexOf(Library{});
    const std::vector<MonthlyCashFlow> expected{{.month = day(2026, 3, 1, 0)}};
    EXPECT_EQ(cashFlow(*index, {Date::distantPast(), Date::distantFuture()}, Calendar::utc()),
              expected);
}

TEST(PeriodTotals, GiveEveryMonthOfTheRangeItsIncomeAndExpenses) {
    Household home;
    home.library.accounts.edit(0).openingDate = day(2026, 1, 20);
    home.enter("100", home.salary, day(2026, 1, 25));
    home.enter("-40", home.food, day(2026, 3, 2));
    home.enter("10", home.food, day(2026, 3, 3));
    const auto index = indexOf(home.library);
    const auto flow =
        cashFlow(*index, {Date::distantPast(), Date::distantFuture()}, Calendar::utc());
    const std::vector<MonthlyCashFlow> expected{{day(2026, 1, 1, 0), Decimal(100), Decimal(0)},
                                                {day(2026, 2, 1, 0), Decimal(0), Decimal(0)},
                                                {day(2026, 3, 1, 0), Decimal(0), Decimal(30)}};
    EXPECT_EQ(flow, expected);
}

TEST(PeriodTotals, NetIsIncomeLessExpenses) {
    Household home;
    home.enter("100", home.salary);
    home.enter("-130.25", home.food);
    const auto index = indexOf(home.library);
    EXPECT_EQ(cashFlow(*index, march, Calendar::utc()).at(0).net(), amount("-30.25"));
}

TEST(PeriodTotals, GoByTheTextOfTheirCategorysID) {
    EXPECT_EQ(
        (CategoryTotal{.categoryID = UUID::parse("0A1B2C3D-0000-4000-8000-00000000FFEE")}.id()),
        "0A1B2C3D-0000-4000-8000-00000000FFEE");
    EXPECT_EQ(CategoryTotal{}.id(), "uncategorized");
}

TEST(PeriodTotals, EndACashFlowAfterTwoHundredAndFortyMonths) {
    Household home;
    home.library.accounts.edit(0).openingDate = day(2000, 1, 20);
    home.enter("1", home.salary, day(2019, 12, 31, 23));
    home.enter("2", home.salary, day(2020, 1, 1, 0));
    home.enter("-4", home.food, day(2026, 3, 1));
    const auto index = indexOf(home.library);
    const auto flow =
        cashFlow(*index, {Date::distantPast(), Date::distantFuture()}, Calendar::utc());
    ASSERT_EQ(flow.size(), 240U);
    EXPECT_EQ(flow.back(), (MonthlyCashFlow{day(2019, 12, 1, 0), Decimal(1), Decimal(0)}));
}

TEST(PeriodTotals, LeaveTheLastFractionOfAMonthToNoMonth) {
    Household home;
    home.library.accounts.edit(0).openingDate = day(2026, 2, 1);
    const Date end = Calendar::utc().endOfMonth(day(2026, 2, 1));
    home.enter("1", home.salary, end);
    home.enter("2", home.salary, end.adding(0.5));
    home.enter("4", home.salary, end.adding(1));
    const auto index = indexOf(home.library);
    const auto flow =
        cashFlow(*index, {Date::distantPast(), Date::distantFuture()}, Calendar::utc());
    const std::vector<MonthlyCashFlow> expected{{day(2026, 2, 1, 0), Decimal(1), Decimal(0)},
                                                {day(2026, 3, 1, 0), Decimal(4), Decimal(0)}};
    EXPECT_EQ(flow, expected);
    EXPECT_EQ(incomeByCategory(*index, {day(2026, 2, 1, 0), end}, false),
              Totals{total(home.salary, "Salary", "1")});
}

TEST(PeriodTotals, AddUpInDocumentOrderWhereThatMatters) {
    Household home;
    // Beside the first of these a cent is too small to be held; beside what is left, it isn't.
    home.enter("-10000000000000000000000000000000000000", home.food, day(2026, 3, 20));
    home.enter("10000000000000000000000000000000000000", home.food, day(2026, 3, 10));
    home.enter("-0.01", home.food, day(2026, 3, 15));
    EXPECT_FALSE(indexOf(home.library)->sumsAreExact());
    EXPECT_EQ(actual(*indexOf(home.library), home.food, march, false), amount("0.01"));
    std::vector<Transaction> entries(home.library.transactions.begin(),
                                     home.library.transactions.end());
    std::swap(entries[1], entries[2]);
    home.library.transactions = SharedArray(entries);
    EXPECT_EQ(actual(*indexOf(home.library), home.food, march, false), Decimal(0));
}

TEST(PeriodTotals, AddUpInAnyOrderUnlessAnAmountIsOfAnAbsurdSize) {
    Household home;
    home.enter("-12.345678", home.food);
    EXPECT_TRUE(indexOf(home.library)->sumsAreExact());
    home.library.transactions.edit(0).splits = {{.amount = amount("0.0000000000001")}};
    EXPECT_FALSE(indexOf(home.library)->sumsAreExact());
}

TEST(PeriodTotals, CompareABudgetWithItsCategoryAloneOrWithItsChildren) {
    Household home;
    home.enter("-30", home.groceries);
    home.enter("-2.005", home.food);
    home.enter("500", home.salary);
    const auto index = indexOf(home.library);
    EXPECT_EQ(actual(*index, home.food, march, false), amount("2.005"));
    EXPECT_EQ(actual(*index, home.food, march, true), amount("32.005"));
    EXPECT_EQ(actual(*index, home.groceries, march, true), Decimal(30));
    EXPECT_EQ(actual(*index, home.salary, march, false), Decimal(500));
    EXPECT_EQ(actual(*index, UUID::random(), march, true), Decimal(0));
}

TEST(PeriodTotals, TakeOnlyAPositiveAmountForABudget) {
    Household home;
    home.library.budget = {
        {home.food, Decimal(0)}, {home.dining, Decimal(-3)}, {home.groceries, Decimal(200)}};
    EXPECT_EQ(budgetedCategoryIDs(home.library), std::vector<UUID>{home.groceries});
}

TEST(PeriodTotals, ListBudgetsByTheNamesOfTheirCategories) {
    Household home;
    for (const UUID& id : {home.food, home.groceries, home.dining, home.salary}) {
        home.library.budget[id] = Decimal(1);
    }
    const std::vector<UUID> byName{home.dining, home.food, home.groceries, home.salary};
    EXPECT_EQ(budgetedCategoryIDs(home.library), byName);
}

TEST(PeriodTotals, KeepAnUnknownCategoryApartFromNone) {
    Household home;
    const UUID unknown = UUID::random();
    home.enter("-1", unknown);
    home.enter("-2", std::nullopt);
    const auto index = indexOf(home.library);
    const Totals expected{total(std::nullopt, "Uncategorized", "2"),
                          total(unknown, "Uncategorized", "1")};
    EXPECT_EQ(spendingByCategory(*index, march, false), expected);
}

} // namespace
} // namespace oakfen
