#include "Oakfen/Views/Editors/GoalEditor.h"

#include <gtest/gtest.h>

#include "Oakfen/Views/Components/Goals.h"
#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::TestEnvironment;

class GoalEditing : public ::testing::Test {
protected:
    GoalEditing() {
        test.store->mutate("Add", [this](Library& library) {
            upsert(library, goal);
            upsert(library, other);
        });
        test.undoManager->removeAllActions();
    }

    [[nodiscard]] const SavingsGoal& stored() const { return *goalOf(test.library(), goal.id); }

    LocaleForTest locale{"en_CA"};
    TestEnvironment test;
    SavingsGoal goal{.id = UUID::random(),
                     .name = "Trip",
                     .symbolName = "airplane",
                     .target = amount("3500"),
                     .saved = amount("1900"),
                     .targetDate = day(2026, 11, 20, 8)};
    SavingsGoal other{.id = UUID::random(), .name = "Car", .symbolName = "car"};
};

TEST_F(GoalEditing, ANewGoalStartsEmptyWithAStarAndNoDay) {
    const GoalEditor editor(*test, std::nullopt);
    EXPECT_TRUE(editor.isNew());
    EXPECT_EQ(editor.title(), "New Savings Goal");
    EXPECT_EQ(editor.primaryTitle(), "Save");
    EXPECT_NE(editor.draft.id, UUID{});
    EXPECT_EQ(editor.draft.name, "");
    EXPECT_EQ(editor.draft.symbolName, "star");
    EXPECT_EQ(editor.draft.target, Decimal());
    EXPECT_EQ(editor.draft.saved, Decimal());
    EXPECT_FALSE(editor.hasDate);
    EXPECT_EQ(editor.date, day(2027, 3, 15));
    EXPECT_FALSE(editor.deleteConfirmation());
}

TEST_F(GoalEditing, AGoalIsLoadedWithItsDay) {
    const GoalEditor editor(*test, goal.id);
    EXPECT_FALSE(editor.isNew());
    EXPECT_EQ(editor.title(), "Edit Goal");
    EXPECT_EQ(editor.draft, goal);
    EXPECT_TRUE(editor.hasDate);
    EXPECT_EQ(editor.date, day(2026, 11, 20, 8));
    EXPECT_FALSE(GoalEditor(*test, other.id).hasDate);
}

TEST_F(GoalEditing, NeedsANameAndATarget) {
    GoalEditor editor(*test, std::nullopt);
    editor.draft.name = " \t";
    editor.draft.target = amount("1");
    EXPECT_EQ(editor.obstacle(), "Enter a name.");
    editor.draft.name = "Trip";
    EXPECT_TRUE(editor.canSave());
    for (const char* target : {"0", "-1"}) {
        editor.draft.target = amount(target);
        EXPECT_EQ(editor.obstacle(), "Enter a target amount above zero.");
    }
    editor.draft.target = Decimal::nan();
    EXPECT_EQ(editor.obstacle(), "An amount is too large to keep.");
    editor.draft.target = amount("1");
    editor.draft.saved = Decimal::nan();
    EXPECT_EQ(editor.obstacle(), "An amount is too large to keep.");
}

TEST_F(GoalEditing, ANewGoalIsAppendedInOneStep) {
    GoalEditor editor(*test, std::nullopt);
    editor.draft.name = " Fund ";
    editor.draft.target = amount("20000");
    editor.draft.saved = amount("12400");
    editor.save();
    ASSERT_EQ(test.library().goals.size(), 3U);
    const SavingsGoal& added = test.library().goals.back();
    // As it was typed.
    EXPECT_EQ(added.name, " Fund ");
    EXPECT_EQ(added.target, amount("20000"));
    EXPECT_EQ(added.saved, amount("12400"));
    EXPECT_FALSE(added.targetDate);
    EXPECT_EQ(test.undoManager->undoActionName(), "New Goal");
    test.undoManager->undo();
    EXPECT_EQ(test.library().goals.size(), 2U);
}

TEST_F(GoalEditing, AnEditStaysInPlaceAndIsTakenBack) {
    GoalEditor editor(*test, goal.id);
    editor.draft.name = "Trip to Halifax";
    editor.hasDate = false;
    editor.save();
    EXPECT_EQ(test.library().goals[0].name, "Trip to Halifax");
    EXPECT_FALSE(stored().targetDate);
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Goal");
    test.undoManager->undo();
    EXPECT_EQ(stored(), goal);
}

TEST_F(GoalEditing, TheDayIsKeptWhileThereIsToBeOne) {
    GoalEditor editor(*test, other.id);
    editor.draft.target = amount("5");
    editor.date = day(2027, 1, 2);
    editor.save();
    EXPECT_FALSE(goalOf(test.library(), other.id)->targetDate);
    editor.hasDate = true;
    editor.save();
    EXPECT_EQ(goalOf(test.library(), other.id)->targetDate, day(2027, 1, 2));
}

TEST_F(GoalEditing, DeletesAfterAQuestionInOneStep) {
    GoalEditor editor(*test, goal.id);
    ASSERT_TRUE(editor.deleteConfirmation());
    EXPECT_EQ(editor.deleteConfirmation()->title, "Delete Goal?");
    EXPECT_EQ(editor.deleteConfirmation()->message, "You can undo this with Edit ▸ Undo.");
    editor.performDelete();
    ASSERT_EQ(test.library().goals.size(), 1U);
    EXPECT_EQ(test.library().goals[0], other);
    EXPECT_EQ(test.undoManager->undoActionName(), "Delete Goal");
    test.undoManager->undo();
    EXPECT_EQ(test.library().goals[0], goal);
}

TEST_F(GoalEditing, ChoosesAmongTheIcons) {
    GoalEditor editor(*test, goal.id);
    const std::vector<ChoiceRow> rows = editor.symbolRows();
    EXPECT_EQ(rows.size(), goalSymbols().size());
    EXPECT_EQ(rows[static_cast<std::size_t>(editor.symbol())].symbolName, "airplane");
    for (const ChoiceRow& row : rows) {
        EXPECT_FALSE(row.title.empty());
        editor.setSymbol(row.value);
        EXPECT_EQ(editor.draft.symbolName, row.symbolName);
        EXPECT_EQ(editor.symbol(), row.value);
    }
}

TEST_F(GoalEditing, AnIconThatNobodyKnowsIsKeptUntilAnotherIsChosen) {
    goal.symbolName = "moon.stars";
    test.store->mutate("Edit", [this](Library& library) { upsert(library, goal); });
    GoalEditor editor(*test, goal.id);
    const std::vector<ChoiceRow> rows = editor.symbolRows();
    ASSERT_EQ(rows.size(), goalSymbols().size() + 1);
    EXPECT_EQ(rows.back().title, "Other");
    EXPECT_EQ(rows.back().symbolName, "target");
    EXPECT_EQ(editor.symbol(), rows.back().value);
    editor.setSymbol(0);
    EXPECT_EQ(editor.draft.symbolName, "star");
    EXPECT_EQ(editor.symbolRows().size(), rows.size());
    editor.setSymbol(rows.back().value);
    editor.save();
    EXPECT_EQ(stored().symbolName, "moon.stars");
}

TEST_F(GoalEditing, TellsWhatTheDayAsksFor) {
    GoalEditor editor(*test, goal.id);
    EXPECT_EQ(editor.dateHint(), "Save $200.00 a month to stay on track.");
    editor.draft.saved = amount("3500");
    EXPECT_EQ(editor.dateHint(), "");
    editor.draft.saved = amount("1900");
    editor.hasDate = false;
    EXPECT_EQ(editor.dateHint(), "");
}

} // namespace
} // namespace oakfen
