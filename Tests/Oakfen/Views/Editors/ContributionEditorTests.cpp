#include "Oakfen/Views/Editors/ContributionEditor.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::LocaleForTest;
using testing::TestEnvironment;

class Contributing : public ::testing::Test {
protected:
    Contributing() {
        test.store->mutate("Add", [this](Library& library) {
            upsert(library, {.id = UUID::random(), .name = "First", .target = Decimal(1)});
            upsert(library, goal);
        });
        test.undoManager->removeAllActions();
    }

    [[nodiscard]] Decimal saved() const { return goalOf(test.library(), goal.id)->saved; }
    [[nodiscard]] std::string undoName() const { return test.undoManager->undoActionName(); }

    LocaleForTest locale{"en_CA"};
    TestEnvironment test;
    SavingsGoal goal{.id = UUID::random(),
                     .name = "Trip to Halifax",
                     .symbolName = "airplane",
                     .target = amount("3500"),
                     .saved = amount("1900")};
};

TEST_F(Contributing, SaysWhichGoalAndHowFarItIs) {
    const ContributionEditor editor(*test, goal.id);
    EXPECT_EQ(editor.title(), "Contribute to Trip to Halifax");
    EXPECT_EQ(editor.subtitle(), "$1,900.00 of $3,500.00");
    EXPECT_EQ(editor.primaryTitle(), "Add");
    ASSERT_TRUE(editor.secondAction());
    EXPECT_EQ(editor.secondAction()->title, "Withdraw");
    EXPECT_FALSE(editor.deleteConfirmation());
    EXPECT_EQ(editor.contribution, Decimal());
}

TEST_F(Contributing, AddsTheAmountInOneStep) {
    ContributionEditor editor(*test, goal.id);
    editor.contribution = amount("250.50");
    EXPECT_TRUE(editor.canSave());
    editor.save();
    EXPECT_EQ(saved(), amount("2150.50"));
    EXPECT_EQ(undoName(), "Contribute to Goal");
    EXPECT_EQ(test.library().goals[1].name, "Trip to Halifax");
    test.undoManager->undo();
    EXPECT_EQ(saved(), amount("1900"));
}

TEST_F(Contributing, WithdrawsTheAmountInOneStep) {
    ContributionEditor editor(*test, goal.id);
    editor.contribution = amount("900");
    editor.performSecondAction();
    EXPECT_EQ(saved(), amount("1000"));
    EXPECT_EQ(undoName(), "Withdraw from Goal");
    test.undoManager->undo();
    EXPECT_EQ(saved(), amount("1900"));
}

TEST_F(Contributing, NeverTakesMoreThanIsSaved) {
    ContributionEditor editor(*test, goal.id);
    editor.contribution = amount("1900.01");
    editor.performSecondAction();
    EXPECT_EQ(saved(), Decimal());
    EXPECT_EQ(undoName(), "Withdraw from Goal");
    test.undoManager->undo();
    EXPECT_EQ(saved(), amount("1900"));
}

TEST_F(Contributing, NothingAddedLeavesNoStep) {
    ContributionEditor editor(*test, goal.id);
    EXPECT_TRUE(editor.canSave());
    editor.save();
    EXPECT_EQ(saved(), amount("1900"));
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Contributing, AnAmountWithAMinusGoesTheOtherWay) {
    ContributionEditor editor(*test, goal.id);
    editor.contribution = amount("-100");
    editor.save();
    EXPECT_EQ(saved(), amount("1800"));
    EXPECT_EQ(undoName(), "Withdraw from Goal");
    editor.performSecondAction();
    EXPECT_EQ(saved(), amount("1900"));
    EXPECT_EQ(undoName(), "Contribute to Goal");
}

TEST_F(Contributing, AddsToWhatIsSavedByThen) {
    ContributionEditor editor(*test, goal.id);
    editor.contribution = amount("10");
    goal.saved = amount("50");
    test.store->mutate("Edit Goal", [this](Library& library) { upsert(library, goal); });
    editor.save();
    EXPECT_EQ(saved(), amount("60"));
}

TEST_F(Contributing, AnAmountThatCantBeKeptStandsInTheWayOfBothActions) {
    ContributionEditor editor(*test, goal.id);
    editor.contribution = Decimal::nan();
    EXPECT_EQ(editor.obstacle(), "The amount is too large to keep.");
    EXPECT_EQ(editor.secondAction()->obstacle, editor.obstacle());
}

TEST_F(Contributing, AGoalThatIsGoneStaysGone) {
    ContributionEditor editor(*test, UUID::random());
    editor.contribution = amount("10");
    editor.save();
    EXPECT_EQ(test.library().goals.size(), 2U);
    EXPECT_FALSE(test.undoManager->canUndo());
}

} // namespace
} // namespace oakfen
