#include <string>

#include "Oakfen/FigureLines.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Oakfen/Views/Budget/BudgetFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeCategory;
using testing::RandomLibrary;
using testing::TestEnvironment;

class BudgetScreen : public testing::BudgetFixture {
protected:
    /// "Food, Groceries": the names of the lines in their order.
    [[nodiscard]] std::string shownNames() const {
        std::string names;
        for (const BudgetView::Line& line : view.budgetLines()) {
            names += (names.empty() ? "" : ", ") + line.name;
        }
        return names;
    }
    [[nodiscard]] BudgetView::Line lineOf(const Category& category) const {
        for (const BudgetView::Line& line : view.budgetLines()) {
            if (line.id == category.id) {
                return line;
            }
        }
        ADD_FAILURE() << category.name << " is not shown";
        return {};
    }
    [[nodiscard]] static std::string cell(const BudgetTable& table, std::size_t row,
                                          std::string_view column) {
        return table.cell(row, columnNamed(table, column).value()).text;
    }
    [[nodiscard]] static TextTone tone(const BudgetTable& table, std::size_t row,
                                       std::string_view column) {
        return table.cell(row, columnNamed(table, column).value()).tone;
    }

    BudgetView view{*test};
};

TEST_F(BudgetScreen, BeginsWithThisMonth) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(view.month(), day(2026, 3, 1, 0));
    EXPECT_EQ(view.content()->monthTitle, "March 2026");
    EXPECT_TRUE(view.content()->isThisMonth);
    EXPECT_FALSE(view.content()->showsAllCategories);
}

TEST_F(BudgetScreen, GoesThroughTheMonthsAndBackToThisOne) {
    const LocaleForTest locale("en_CA");
    view.shift(-3);
    EXPECT_EQ(view.content()->monthTitle, "December 2025");
    EXPECT_FALSE(view.content()->isThisMonth);
    view.shift(1);
    EXPECT_EQ(view.content()->monthTitle, "January 2026");
    view.showThisMonth();
    EXPECT_EQ(view.content()->monthTitle, "March 2026");
    EXPECT_TRUE(view.content()->isThisMonth);
}

TEST_F(BudgetScreen, NoLongerShowsThisMonthOnceTheNextHasBegun) {
    ASSERT_TRUE(view.content()->isThisMonth);
    test.clock.set(day(2026, 4, 1));
    test->dayChange.check();
    EXPECT_FALSE(view.content()->isThisMonth);
    EXPECT_EQ(view.month(), day(2026, 3, 1, 0));
}

TEST_F(BudgetScreen, ShowsWholeMonthsWhereTheClockSkipsTheFirstMidnightOfOne) {
    // In Asunción, October 1st of 2023 began at one o'clock.
    const Calendar calendar = Calendar::inZone("America/Asuncion").value();
    const auto local = [&](int month, int dayOfMonth, int hour, int minute = 0, int second = 0) {
        return calendar.date({2023, month, dayOfMonth, hour, minute, second});
    };
    test.clock = FixedClock(local(10, 20, 12), calendar);
    BudgetView there(*test);
    EXPECT_EQ(there.month(), local(10, 1, 1));
    enter(food, local(10, 31, 23, 59, 59), "-1");
    enter(food, local(11, 1, 0), "-20");
    enter(food, local(11, 30, 23, 59, 59), "-300");
    const auto spent = [&] { return there.budgetLines().at(0).actual; };
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(there.content()->isThisMonth);
        EXPECT_EQ(spent(), amount("1"));
        there.shift(1);
        EXPECT_EQ(there.month(), local(11, 1, 0));
        EXPECT_EQ(spent(), amount("320"));
        EXPECT_FALSE(there.content()->isThisMonth);
        there.shift(-2);
        EXPECT_EQ(there.month(), local(9, 1, 0));
        there.shift(1);
        EXPECT_EQ(there.month(), local(10, 1, 1));
    }
}

TEST_F(BudgetScreen, ComparesTheSameBudgetWithEachMonth) {
    plan(food, "100");
    enter(food, day(2026, 3, 3), "-30");
    enter(food, day(2026, 2, 28, 23), "-80");
    EXPECT_EQ(lineOf(food).actual, amount("30"));
    view.shift(-1);
    EXPECT_EQ(lineOf(food).actual, amount("80"));
    EXPECT_EQ(lineOf(food).budget, amount("100"));
}

TEST_F(BudgetScreen, ShowsACategoryThatHasABudgetOrAnEntry) {
    EXPECT_EQ(shownNames(), "");
    plan(travel, "10");
    enter(pay, day(2026, 3, 1), "5");
    EXPECT_EQ(shownNames(), "Pay, Travel");
}

TEST_F(BudgetScreen, HidesALineOfNothingUntilAllCategoriesAreShown) {
    plan(food, "0");
    enter(groceries, day(2026, 3, 2), "-5");
    enter(groceries, day(2026, 3, 3), "5");
    EXPECT_EQ(shownNames(), "");
    view.setShowsAllCategories(true);
    EXPECT_EQ(shownNames(), "Food, Groceries, Pay, Travel");
    EXPECT_TRUE(view.content()->showsAllCategories);
    view.setShowsAllCategories(false);
    EXPECT_EQ(shownNames(), "");
}

TEST_F(BudgetScreen, ShowsACategoryThatHasEntriesAndABudgetOfZero) {
    plan(food, "0");
    enter(food, day(2026, 3, 2), "-5");
    EXPECT_EQ(shownNames(), "Food");
}

TEST_F(BudgetScreen, SortsByPathInPlainOrder) {
    const Category lower = makeCategory("apples");
    const Category upper = makeCategory("Zoo");
    test.store->mutate("Add", [&](Library& library) {
        upsert(library, lower);
        upsert(library, upper);
    });
    view.setShowsAllCategories(true);
    EXPECT_EQ(shownNames(), "Food, Groceries, Pay, Travel, Zoo, apples");
}

TEST_F(BudgetScreen, CountsASubcategoryOnItsOwnLineAlone) {
    enter(groceries, day(2026, 3, 2), "-40");
    enter(food, day(2026, 3, 2), "-2");
    EXPECT_EQ(lineOf(groceries).actual, amount("40"));
    EXPECT_EQ(lineOf(food).actual, amount("2"));
}

TEST_F(BudgetScreen, NamesTheParentBesideAChild) {
    enter(groceries, day(2026, 3, 2), "-40");
    EXPECT_EQ(lineOf(groceries).parent, "Food");
    const auto table = view.content()->spendingTable;
    EXPECT_EQ(table->cell(0, 0).text, "Groceries");
    EXPECT_EQ(table->cell(0, 0).detail, "Food");
    view.setShowsAllCategories(true);
    EXPECT_EQ(lineOf(food).parent, std::nullopt);
}

TEST_F(BudgetScreen, NamesNoParentThatIsGone) {
    test.store->mutate("Break", [this](Library& library) {
        Category orphan = makeCategory("Orphan");
        orphan.parentID = UUID::random();
        upsert(library, orphan);
        library.budget[orphan.id] = amount("1");
    });
    ASSERT_EQ(view.budgetLines().size(), 1U);
    EXPECT_EQ(view.budgetLines()[0].parent, std::nullopt);
}

TEST_F(BudgetScreen, MarksOnlySpendingThatIsTooMuch) {
    const LocaleForTest locale("en_CA");
    plan(food, "100");
    enter(food, day(2026, 3, 2), "-120");
    plan(travel, "100");
    plan(pay, "100");
    enter(pay, day(2026, 3, 2), "120");
    const auto spending = view.content()->spendingTable;
    const auto income = view.content()->incomeTable;
    EXPECT_EQ(cell(*spending, 0, "remaining"), "-$20.00");
    EXPECT_EQ(tone(*spending, 0, "remaining"), TextTone::negative);
    EXPECT_EQ(cell(*spending, 1, "remaining"), "$100.00");
    EXPECT_EQ(tone(*spending, 1, "remaining"), TextTone::secondary);
    EXPECT_EQ(lineOf(pay).remaining(), amount("-20"));
    EXPECT_EQ(cell(*income, 0, "remaining"), "-$20.00");
    EXPECT_EQ(tone(*income, 0, "remaining"), TextTone::secondary);
}

TEST_F(BudgetScreen, TellsHowMuchOfABudgetIsUsedUp) {
    EXPECT_EQ((BudgetLine{.budget = amount("200"), .actual = amount("50")}.fraction()), 0.25);
    EXPECT_EQ((BudgetLine{.budget = amount("200"), .actual = amount("-50")}.fraction()), -0.25);
    EXPECT_EQ(BudgetLine{}.fraction(), 0);
}

TEST_F(BudgetScreen, TakesSpendingWithoutABudgetAsFullyUsed) {
    EXPECT_EQ(BudgetLine{.actual = amount("0.01")}.fraction(), 1);
    EXPECT_EQ((BudgetLine{.budget = amount("-5"), .actual = amount("2")}.fraction()), 1);
    EXPECT_EQ(BudgetLine{.actual = amount("-3")}.fraction(), 0);
}

TEST_F(BudgetScreen, TakesAShareThatIsTooLargeForANumberAsAllOfTheBudget) {
    const Decimal huge = Decimal::make(1, 100);
    const Decimal tiny = Decimal::make(1, -100);
    EXPECT_EQ((BudgetLine{.budget = tiny, .actual = huge}.fraction()), 1);
    EXPECT_EQ((BudgetLine{.budget = tiny, .actual = -huge}.fraction()), 0);
    test.store->mutate("Plan", [&](Library& library) { library.budget[food.id] = tiny; });
    Transaction entry = testing::makeTransaction(everyday.id, day(2026, 3, 2), "Somebody", "0");
    entry.categoryID = food.id;
    entry.amount = -huge;
    test.store->mutate("New Transaction", [&](Library& library) { upsert(library, entry); });
    EXPECT_EQ(view.content()->spending.fraction, 1);
    EXPECT_EQ(*view.content(), *view.content());
}

TEST_F(BudgetScreen, AddsUpWhatIsShown) {
    const LocaleForTest locale("en_CA");
    plan(pay, "1000");
    enter(pay, day(2026, 3, 2), "900");
    plan(food, "300");
    enter(food, day(2026, 3, 2), "-100");
    enter(travel, day(2026, 3, 2), "-50");
    const auto shown = view.content();
    EXPECT_EQ(shown->income.actual.figure, "$900.00");
    EXPECT_EQ(shown->income.actual.tint, TextTone::positive);
    EXPECT_EQ(shown->income.budget.figure, "$1,000.00");
    EXPECT_EQ(shown->income.fraction, 0.9);
    EXPECT_EQ(shown->spending.actual.figure, "$150.00");
    EXPECT_EQ(shown->spending.actual.tint, TextTone::warning);
    EXPECT_EQ(shown->spending.budget.figure, "$300.00");
    EXPECT_EQ(shown->spending.fraction, 0.5);
}

TEST_F(BudgetScreen, LeavesTheBarOfATotalWithoutABudgetEmpty) {
    enter(food, day(2026, 3, 2), "-100");
    EXPECT_EQ(view.content()->spending.fraction, 0);
    EXPECT_TRUE(view.content()->spending.hasActual);
    EXPECT_FALSE(view.content()->income.hasActual);
}

TEST_F(BudgetScreen, TellsWhatIsLeftToBudgetWithoutRegardToWhatCameAndWent) {
    const LocaleForTest locale("en_CA");
    plan(pay, "1000");
    plan(food, "300");
    enter(pay, day(2026, 3, 2), "5");
    enter(food, day(2026, 3, 2), "-5000");
    EXPECT_EQ(view.content()->leftToBudget, (MoneyText{"$700.00", TextTone::positive}));
    plan(travel, "701");
    EXPECT_EQ(view.content()->leftToBudget, (MoneyText{"-$1.00", TextTone::negative}));
    plan(travel, "700");
    EXPECT_EQ(view.content()->leftToBudget, (MoneyText{"$0.00", TextTone::positive}));
}

TEST_F(BudgetScreen, KeepsATableThatAnEditDoesNotTouch) {
    plan(pay, "1000");
    plan(food, "300");
    const auto before = view.content();
    plan(food, "301");
    EXPECT_EQ(view.content()->incomeTable, before->incomeTable);
    EXPECT_NE(view.content()->spendingTable, before->spendingTable);
}

TEST_F(BudgetScreen, StoresABudgetInOneStep) {
    view.setBudget(food.id, amount("12.50"));
    EXPECT_EQ(planned(food), amount("12.50"));
    EXPECT_EQ(test.undoManager->undoActionName(), "Change Budget");
    undo();
    EXPECT_EQ(planned(food), std::nullopt);
}

TEST_F(BudgetScreen, TakesNoStepForTheSameAmount) {
    view.setBudget(food.id, Decimal());
    EXPECT_FALSE(test.undoManager->canUndo());
    plan(food, "10");
    test.undoManager->removeAllActions();
    view.setBudget(food.id, amount("10.00"));
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(BudgetScreen, TakesAwayABudgetOfNothingOrLess) {
    plan(food, "10");
    view.setBudget(food.id, amount("-50"));
    EXPECT_EQ(planned(food), std::nullopt);
    undo();
    EXPECT_EQ(planned(food), amount("10"));
    view.setBudget(food.id, Decimal());
    EXPECT_EQ(planned(food), std::nullopt);
}

TEST_F(BudgetScreen, StoresNothingForANegativeAmountWhereNoneWas) {
    view.setBudget(food.id, amount("-50"));
    EXPECT_TRUE(test.library().budget.empty());
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(BudgetScreen, StoresNoBudgetOfACategoryThatIsGone) {
    view.setBudget(UUID::random(), amount("50"));
    EXPECT_TRUE(test.library().budget.empty());
}

TEST_F(BudgetScreen, ReadsABudgetAsItIsTyped) {
    view.setBudgetText(food.id, "2*10");
    EXPECT_EQ(planned(food), amount("20"));
    view.setBudgetText(food.id, "twenty");
    EXPECT_EQ(planned(food), amount("20"));
}

TEST_F(BudgetScreen, RemindsOfWhatWasSpentBefore) {
    const LocaleForTest locale("en_CA");
    enter(food, day(2026, 3, 2), "-1000");
    enter(food, day(2026, 2, 2), "-100");
    enter(food, day(2025, 12, 1, 0), "-0.01");
    enter(food, day(2025, 11, 30), "-1000");
    const std::vector<BudgetHint> hints{{"Last month", "$100.00"}, {"3-month average", "$33.34"}};
    EXPECT_EQ(view.hints(food.id), hints);
    view.shift(-5);
    EXPECT_EQ(view.hints(food.id), hints);
}

class BudgetEntries : public BudgetScreen {
protected:
    FigureLines wanted;
    Subscription lines =
        test.appState->linesWanted.observe([this](const FigureLines& each) { wanted = each; });
};

TEST_F(BudgetEntries, ShowsWhatMakesUpALine) {
    const LocaleForTest locale("en_CA");
    enter(groceries, day(2026, 2, 2), "-40");
    enter(food, day(2026, 2, 2), "-2");
    view.shift(-1);
    view.showEntries(groceries.id);
    EXPECT_EQ(wanted.title, "Food: Groceries");
    EXPECT_EQ(wanted.detail, "Actual · February 2026");
    EXPECT_EQ(sumOf(wanted, test.index()), amount("40"));
    view.showEntries(food.id);
    EXPECT_EQ(sumOf(wanted, test.index()), amount("2"));
}

TEST_F(BudgetEntries, ShowsWhatMakesUpATotal) {
    const LocaleForTest locale("en_CA");
    enter(groceries, day(2026, 3, 2), "-40");
    enter(travel, day(2026, 3, 2), "15");
    enter(pay, day(2026, 3, 2), "900");
    view.showEntries(CategoryKind::expense);
    EXPECT_EQ(wanted.title, "Spending");
    EXPECT_EQ(wanted.detail, "Actual · March 2026");
    EXPECT_EQ(sumOf(wanted, test.index()), amount("25"));
    view.showEntries(CategoryKind::income);
    EXPECT_EQ(wanted.title, "Income");
    EXPECT_EQ(sumOf(wanted, test.index()), amount("900"));
}

TEST_F(BudgetEntries, OfATotalFollowAnEntryThatIsFiledUnderACategoryWithoutALine) {
    enter(food, day(2026, 3, 2), "-40");
    view.showEntries(CategoryKind::expense);
    Transaction entry = test.library().transactions.back();
    entry.categoryID = travel.id;
    test.store->mutate("Edit", [&](Library& library) { upsert(library, entry); });
    EXPECT_EQ(sumOf(wanted, test.index()), amount("40"));
    entry.categoryID = pay.id;
    test.store->mutate("Edit", [&](Library& library) { upsert(library, entry); });
    EXPECT_EQ(sumOf(wanted, test.index()), Decimal());
}

TEST_F(BudgetEntries, AreOfferedWhereThereAreAny) {
    enter(food, day(2026, 3, 2), "-40");
    int edits = 0;
    auto menu = view.contextMenu(food.id, [&] { ++edits; });
    ASSERT_EQ(menu.size(), 2U);
    EXPECT_EQ(menu[0].title, "Show Entries");
    EXPECT_TRUE(menu[0].canBeChosen());
    menu[0].perform();
    EXPECT_EQ(sumOf(wanted, test.index()), amount("40"));
    menu[1].perform();
    EXPECT_EQ(edits, 1);
    EXPECT_FALSE(view.contextMenu(travel.id, [] {})[0].canBeChosen());
    EXPECT_TRUE(view.contextMenu(UUID::random(), [] {}).empty());
}

TEST(BudgetProperties, FiguresAreThoseOfTheLedgerAndAddUp) {
    int withEntries = 0;
    for (std::uint64_t seed = 1; seed <= 8; ++seed) {
        RandomLibrary random(seed, RandomLibrary::Amounts::wholeCents);
        TestEnvironment test(random.make(1'000));
        BudgetView view(*test);
        FigureLines wanted;
        const Subscription lines =
            test.appState->linesWanted.observe([&](const FigureLines& each) { wanted = each; });
        for (const bool showsAll : {true, false}) {
            view.setShowsAllCategories(showsAll);
            view.showThisMonth();
            for (int month = 0; month < 6; ++month) {
                view.shift(-15);
                Decimal spent;
                for (const BudgetView::Line& line : view.budgetLines()) {
                    EXPECT_TRUE(showsAll || !line.budget.isZero() || !line.actual.isZero());
                    view.showEntries(line.id);
                    EXPECT_EQ(sumOf(wanted, test.index()), line.actual);
                    withEntries += line.actual.isZero() ? 0 : 1;
                    spent += line.kind == CategoryKind::expense ? line.actual : Decimal();
                }
                view.showEntries(CategoryKind::expense);
                EXPECT_EQ(sumOf(wanted, test.index()), spent);
            }
        }
    }
    EXPECT_GT(withEntries, 100);
}

} // namespace
} // namespace oakfen
