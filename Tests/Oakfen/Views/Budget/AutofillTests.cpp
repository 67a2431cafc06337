#include "Oakfen/Views/Budget/Autofill.h"

#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Oakfen/Views/Budget/BudgetFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::RandomLibrary;

class Autofill : public testing::BudgetFixture {
protected:
    BudgetView view{*test};
};

TEST_F(Autofill, CountsWholeMonthsUpToTheLastSecondBeforeThisOne) {
    EXPECT_EQ(wholeMonthsBefore(day(2026, 3, 15), 3, Calendar::utc()),
              (DateInterval{day(2025, 12, 1, 0), day(2026, 3, 1, 0).adding(-1)}));
    EXPECT_EQ(wholeMonthsBefore(day(2026, 1, 31), 12, Calendar::utc()).start, day(2025, 1, 1, 0));
}

TEST_F(Autofill, CountsWholeMonthsWhereTheClockSkipsTheFirstMidnightOfThisOne) {
    // In Asunción, October 1st of 2023 began at one o'clock.
    const Calendar calendar = Calendar::inZone("America/Asuncion").value();
    const Date now = calendar.date({2023, 10, 20, 12, 0, 0});
    EXPECT_EQ(wholeMonthsBefore(now, 3, calendar),
              (DateInterval{calendar.date({2023, 7, 1, 0, 0, 0}),
                            calendar.date({2023, 9, 30, 23, 59, 59})}));
    test.clock = FixedClock(now, calendar);
    enter(food, calendar.date({2023, 7, 1, 0, 30, 0}), "-30");
    view.autofill(3);
    EXPECT_EQ(planned(food), amount("10"));
}

TEST_F(Autofill, LeavesThisMonthAndTheTimeBeforeOut) {
    enter(food, day(2025, 11, 30, 23), "-1000");
    enter(food, day(2025, 12, 1, 0), "-100");
    enter(food, day(2026, 1, 15), "-100");
    enter(food, day(2026, 2, 28, 23), "-100");
    enter(food, day(2026, 3, 1, 0), "-1000");
    view.autofill(3);
    EXPECT_EQ(planned(food), amount("100"));
}

TEST_F(Autofill, RoundsUpToWholeUnits) {
    enter(food, day(2026, 2, 1), "-300.03");
    enter(travel, day(2026, 2, 1), "-300");
    view.autofill(3);
    EXPECT_EQ(planned(food), amount("101"));
    EXPECT_EQ(planned(travel), amount("100"));
}

TEST_F(Autofill, AlwaysDividesByTheNumberOfMonths) {
    for (const int month : {12, 1, 2}) {
        enter(food, day(month == 12 ? 2025 : 2026, month, 5), "-400");
    }
    view.autofill(12);
    EXPECT_EQ(planned(food), amount("100"));
}

TEST_F(Autofill, LeavesABudgetAloneThatRefundsOutweigh) {
    plan(food, "70");
    plan(travel, "80");
    enter(food, day(2026, 2, 5), "-10");
    enter(food, day(2026, 2, 6), "40");
    view.autofill(3);
    EXPECT_EQ(planned(food), amount("70"));
    EXPECT_EQ(planned(travel), amount("80"));
    EXPECT_EQ(test.library().budget.size(), 2U);
}

TEST_F(Autofill, FillsInIncomeToo) {
    enter(pay, day(2026, 2, 5), "3000");
    view.autofill(3);
    EXPECT_EQ(planned(pay), amount("1000"));
}

TEST_F(Autofill, CountsASubcategoryByItself) {
    enter(groceries, day(2026, 2, 5), "-30");
    view.autofill(3);
    EXPECT_EQ(planned(groceries), amount("10"));
    EXPECT_EQ(planned(food), std::nullopt);
}

TEST_F(Autofill, FollowsTodayWhateverMonthIsShown) {
    enter(food, day(2026, 2, 5), "-30");
    view.shift(-12);
    view.autofill(3);
    EXPECT_EQ(planned(food), amount("10"));
}

TEST_F(Autofill, IsOneStepWhoseNoticeTakesItBack) {
    plan(travel, "5");
    enter(food, day(2026, 2, 5), "-30");
    enter(pay, day(2026, 2, 5), "30");
    view.autofill(3);
    EXPECT_EQ(test.undoManager->undoActionName(), "Auto-Fill Budget");
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->text, "Budget filled in from the 3-month average");
    EXPECT_EQ(test.appState->notice()->actionTitle, "Undo");
    test.appState->notice()->action();
    EXPECT_EQ(test.library().budget.size(), 1U);
    EXPECT_EQ(planned(travel), amount("5"));
}

TEST_F(Autofill, OffersNoUndoWhereItChangedNothing) {
    view.autofill(12);
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->text, "The 12-month average changes nothing in your budget");
    EXPECT_EQ(test.appState->notice()->actionTitle, "");
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Autofill, ClearsTheWholeBudgetInOneStep) {
    plan(food, "1");
    plan(pay, "2");
    view.clearBudget();
    EXPECT_TRUE(test.library().budget.empty());
    EXPECT_EQ(test.undoManager->undoActionName(), "Clear Budget");
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->text, "Budget cleared");
    test.appState->notice()->action();
    EXPECT_EQ(test.library().budget.size(), 2U);
}

TEST_F(Autofill, StandsInAMenuWithItsOpposite) {
    const auto titles = [this] {
        std::vector<std::string> result;
        for (const MenuEntry& each : view.autofillMenu()) {
            result.push_back(each.title);
        }
        return result;
    };
    EXPECT_EQ(titles(), (std::vector<std::string>{"Fill from 3-Month Average",
                                                  "Fill from 12-Month Average", "Clear Budget"}));
    EXPECT_FALSE(view.autofillMenu()[2].canBeChosen());
    enter(food, day(2025, 4, 5), "-120");
    view.autofillMenu()[1].perform();
    EXPECT_EQ(planned(food), amount("10"));
    enter(food, day(2026, 2, 5), "-120");
    view.autofillMenu()[0].perform();
    EXPECT_EQ(planned(food), amount("40"));
    view.autofillMenu()[2].perform();
    EXPECT_EQ(planned(food), std::nullopt);
}

TEST(AutofillProperties, FillsInTheNextWholeUnitOrNothing) {
    int filled = 0;
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        RandomLibrary random(seed);
        const Library before = random.make(1'000);
        const Date now = day(2020, 6, 15);
        const LibraryIndex index(before, now, Calendar::utc());
        for (const int months : {1, 3, 12}) {
            Library after = before;
            autofill(after, index, months, now, Calendar::utc());
            for (const Category& category : before.categories) {
                const Decimal average =
                    monthlyAverage(index, category.id, months, now, Calendar::utc());
                const bool isFilled = average.isPositive();
                const auto budget = after.budget.find(category.id);
                if (isFilled) {
                    ++filled;
                    ASSERT_NE(budget, after.budget.end());
                    EXPECT_EQ(budget->second, budget->second.rounded(0, RoundingMode::plain));
                    EXPECT_GE(budget->second, average);
                    EXPECT_LT(budget->second - average, Decimal(1));
                } else {
                    const auto kept = before.budget.find(category.id);
                    EXPECT_EQ(budget == after.budget.end(), kept == before.budget.end());
                    EXPECT_TRUE(budget == after.budget.end() || budget->second == kept->second);
                }
            }
        }
    }
    EXPECT_GT(filled, 100);
}

} // namespace
} // namespace oakfen
