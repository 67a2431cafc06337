#include "Oakfen/Views/Goals/GoalsView.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::TestEnvironment;

SavingsGoal makeGoal(std::string name, std::string_view target, std::string_view saved) {
    return {.id = UUID::random(),
            .name = std::move(name),
            .symbolName = "star",
            .target = amount(target),
            .saved = amount(saved)};
}

class GoalsViewTest : public ::testing::Test {
protected:
    void add(const SavingsGoal& goal) {
        test.store->mutate("New Goal", [&](Library& library) { upsert(library, goal); });
    }
    GoalCard cardOf(const SavingsGoal& goal) {
        add(goal);
        return view.content()->cards.back();
    }

    LocaleForTest locale{"en_CA"};
    TestEnvironment test;
    GoalsView view{*test};
};

TEST_F(GoalsViewTest, SaysWhatToDoWhileThereAreNoGoals) {
    EXPECT_EQ(view.content()->emptyState(),
              (EmptyState{"No Savings Goals", "target",
                          "Set a target for an emergency fund, a trip or a down payment and track "
                          "your progress."}));
    add(makeGoal("Trip", "100", "0"));
    EXPECT_FALSE(view.content()->emptyState());
}

TEST_F(GoalsViewTest, ShowsTheGoalsInTheOrderOfTheDocument) {
    SavingsGoal trip = makeGoal("Trip", "3500", "1900");
    add(trip);
    add(makeGoal("Car", "15000", "4200"));
    trip.name = "Zoo";
    add(trip);
    ASSERT_EQ(view.content()->cards.size(), 2U);
    EXPECT_EQ(view.content()->cards[0].name, "Zoo");
    EXPECT_EQ(view.content()->cards[1].name, "Car");
}

TEST_F(GoalsViewTest, TellsHowFarAGoalIs) {
    SavingsGoal goal = makeGoal("Trip", "3500", "1900");
    goal.targetDate = day(2026, 11, 20);
    const GoalCard card = cardOf(goal);
    EXPECT_EQ(card.id, goal.id);
    EXPECT_EQ(card.symbolName, "star");
    EXPECT_EQ(card.saved, (MoneyText{"$1,900.00"}));
    EXPECT_EQ(card.target, "of $3,500.00");
    EXPECT_EQ(card.percent, "54%");
    EXPECT_DOUBLE_EQ(card.progress, 1900.0 / 3500);
    EXPECT_EQ(card.targetDate, "Target Nov 2026");
    EXPECT_EQ(card.note, "Save $200.00 a month to stay on track.");
    EXPECT_FALSE(card.isReached);
}

TEST_F(GoalsViewTest, SaysNothingOfAPaceWithoutADay) {
    const GoalCard card = cardOf(makeGoal("Fund", "20000", "12400"));
    EXPECT_EQ(card.targetDate, "");
    EXPECT_EQ(card.note, "");
}

TEST_F(GoalsViewTest, AReachedGoalSaysSoAndAsksForNothing) {
    for (const char* saved : {"1400", "1450"}) {
        SavingsGoal goal = makeGoal("Bicycle", "1400", saved);
        goal.targetDate = day(2026, 9, 1);
        const GoalCard card = cardOf(goal);
        EXPECT_TRUE(card.isReached);
        EXPECT_EQ(card.note, "Goal reached!");
        EXPECT_EQ(card.percent, "100%");
        EXPECT_EQ(card.progress, 1);
        EXPECT_EQ(card.targetDate, "Target Sep 2026");
    }
}

TEST_F(GoalsViewTest, ADayThatHasPassedAsksForAllThatIsMissing) {
    SavingsGoal goal = makeGoal("Trip", "100", "40");
    goal.targetDate = day(2026, 1, 5);
    EXPECT_EQ(cardOf(goal).note, "Save $60.00 a month to stay on track.");
}

TEST_F(GoalsViewTest, APaceOfNothingIsNotMentioned) {
    SavingsGoal goal = makeGoal("Trip", "100", "99.999");
    goal.targetDate = day(2026, 12, 5);
    const GoalCard card = cardOf(goal);
    EXPECT_EQ(card.note, "");
    EXPECT_FALSE(card.isReached);
}

TEST_F(GoalsViewTest, TheShareIsCutToWholePercent) {
    EXPECT_EQ(cardOf(makeGoal("A", "1000", "999.99")).percent, "99%");
    EXPECT_EQ(cardOf(makeGoal("B", "100", "29")).percent, "29%");
    EXPECT_EQ(cardOf(makeGoal("C", "100", "-5")).percent, "0%");
    EXPECT_EQ(cardOf(makeGoal("D", "0", "50")).percent, "0%");
}

TEST_F(GoalsViewTest, MuchMoreThanATinyTargetReachesIt) {
    SavingsGoal goal = makeGoal("A", "0", "0");
    goal.target = Decimal::make(1, -100);
    goal.saved = Decimal::make(1, 100);
    const GoalCard card = cardOf(goal);
    EXPECT_TRUE(card.isReached);
    EXPECT_EQ(card.note, "Goal reached!");
    EXPECT_EQ(card.percent, "100%");
    EXPECT_EQ(card, card);
    goal.saved = -goal.saved;
    EXPECT_EQ(cardOf(goal).progress, 0);
    EXPECT_EQ(cardOf(goal).percent, "0%");
}

TEST_F(GoalsViewTest, ANameOfSeveralLinesStandsOnOne) {
    EXPECT_EQ(cardOf(makeGoal("Trip\nto\r\nHalifax", "100", "0")).name, "Trip to Halifax");
}

TEST_F(GoalsViewTest, AnIconThatNobodyKnowsIsShownAsAnother) {
    SavingsGoal goal = makeGoal("Moon", "100", "0");
    goal.symbolName = "moon.stars";
    EXPECT_EQ(cardOf(goal).symbolName, "target");
}

TEST_F(GoalsViewTest, AsksForMoreAsTheDayDrawsNear) {
    SavingsGoal goal = makeGoal("Trip", "300", "0");
    goal.targetDate = day(2026, 6, 20);
    EXPECT_EQ(cardOf(goal).note, "Save $100.00 a month to stay on track.");
    int notices = 0;
    const Subscription told = view.changed.observe([&] { ++notices; });
    test.clock.set(day(2026, 4, 21));
    test->dayChange.check();
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(view.content()->cards.back().note, "Save $300.00 a month to stay on track.");
}

TEST_F(GoalsViewTest, OpensTheSheets) {
    const UUID id = UUID::random();
    view.newGoal();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Goal{}});
    view.edit(id);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Goal{id}});
    view.contribute(id);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Contribute{id}});
}

TEST_F(GoalsViewTest, TellsNobodyOfAnEditThatChangesNoCard) {
    add(makeGoal("Trip", "300", "0"));
    EXPECT_EQ(view.content()->cards.size(), 1U);
    int notices = 0;
    const Subscription told = view.changed.observe([&] { ++notices; });
    test.store->mutate("New Account", [](Library& library) {
        library.accounts.push_back(testing::makeAccount("Everyday"));
    });
    EXPECT_EQ(notices, 0);
}

} // namespace
} // namespace oakfen
