#include <memory>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Support/UndoManager.h"

namespace oakfen {
namespace {

using testing::ElementsAre;

/// A number whose every change can be undone.
class UndoManagerTest : public testing::Test {
protected:
    void set(int newValue) {
        manager.registerUndo([this, before = value] { set(before); });
        value = newValue;
    }

    void set(int newValue, const std::string& name) {
        set(newValue);
        manager.setActionName(name);
    }

    UndoManager manager;
    int value = 0;
};

TEST_F(UndoManagerTest, UndoesAndRedoes) {
    set(1);
    set(2);
    manager.undo();
    EXPECT_EQ(value, 1);
    manager.undo();
    EXPECT_EQ(value, 0);
    manager.redo();
    manager.redo();
    EXPECT_EQ(value, 2);
    EXPECT_FALSE(manager.canRedo());
}

TEST_F(UndoManagerTest, DoesNothingWithNothingToDo) {
    manager.undo();
    manager.redo();
    EXPECT_EQ(value, 0);
    EXPECT_FALSE(manager.canUndo());
    EXPECT_EQ(manager.undoActionName(), "");
    EXPECT_EQ(manager.redoActionName(), "");
}

TEST_F(UndoManagerTest, KeepsTheNameThroughUndoAndRedo) {
    set(1, "Count");
    EXPECT_EQ(manager.undoActionName(), "Count");
    manager.undo();
    EXPECT_EQ(manager.undoActionName(), "");
    EXPECT_EQ(manager.redoActionName(), "Count");
    manager.redo();
    EXPECT_EQ(manager.undoActionName(), "Count");
}

TEST_F(UndoManagerTest, TakesTheNameThatAnActionGivesWhileItRuns) {
    manager.registerUndo([this] { set(5, "Return"); });
    manager.setActionName("Leave");
    manager.undo();
    EXPECT_EQ(manager.redoActionName(), "Return");
}

TEST_F(UndoManagerTest, ForgetsRedoWithANewAction) {
    set(1);
    manager.undo();
    ASSERT_TRUE(manager.canRedo());
    set(2);
    EXPECT_FALSE(manager.canRedo());
    manager.undo();
    EXPECT_EQ(value, 0);
}

TEST_F(UndoManagerTest, GroupsWhatOneEventRegisters) {
    manager.beginEvent();
    set(1);
    set(2, "Both");
    manager.endEvent();
    EXPECT_EQ(manager.undoActionName(), "Both");
    manager.undo();
    EXPECT_EQ(value, 0);
    EXPECT_FALSE(manager.canUndo());
    manager.redo();
    EXPECT_EQ(value, 2);
}

TEST_F(UndoManagerTest, GroupsNestedEventsIntoTheOutermost) {
    manager.beginEvent();
    set(1);
    manager.beginEvent();
    set(2);
    manager.endEvent();
    set(3);
    manager.endEvent();
    manager.undo();
    EXPECT_EQ(value, 0);
    EXPECT_FALSE(manager.canUndo());
}

TEST_F(UndoManagerTest, KeepsEventsApart) {
    for (const int next : {1, 2}) {
        manager.beginEvent();
        set(next);
        manager.endEvent();
    }
    manager.undo();
    EXPECT_EQ(value, 1);
}

TEST_F(UndoManagerTest, MakesNoStepOfAnEmptyEvent) {
    manager.beginEvent();
    manager.endEvent();
    EXPECT_FALSE(manager.canUndo());
}

TEST_F(UndoManagerTest, IgnoresAnEndWithoutABeginning) {
    manager.endEvent();
    set(1);
    set(2);
    manager.undo();
    EXPECT_EQ(value, 1);
}

TEST_F(UndoManagerTest, BeginsANewStepAfterUndoingWithinAnEvent) {
    set(1);
    manager.beginEvent();
    set(2);
    manager.undo();
    set(3);
    manager.endEvent();
    manager.undo();
    EXPECT_EQ(value, 1);
    manager.undo();
    EXPECT_EQ(value, 0);
}

TEST_F(UndoManagerTest, RunsTheActionsOfAStepLatestFirst) {
    std::vector<int> order;
    manager.beginEvent();
    for (const int number : {1, 2, 3}) {
        manager.registerUndo([&order, number] { order.push_back(number); });
    }
    manager.endEvent();
    manager.undo();
    EXPECT_THAT(order, ElementsAre(3, 2, 1));
}

TEST_F(UndoManagerTest, TellsWhetherItIsUndoingOrRedoing) {
    std::vector<bool> seen;
    std::function<void()> action = [&] {
        seen.push_back(manager.isUndoing());
        seen.push_back(manager.isRedoing());
        manager.registerUndo(action);
    };
    manager.registerUndo(action);
    manager.undo();
    manager.redo();
    EXPECT_THAT(seen, ElementsAre(true, false, false, true));
    EXPECT_FALSE(manager.isUndoing());
    EXPECT_FALSE(manager.isRedoing());
}

TEST_F(UndoManagerTest, KeepsAStepWhoseActionThrew) {
    bool fails = true;
    manager.registerUndo([&] {
        if (fails) {
            throw std::runtime_error("not now");
        }
        value = 7;
    });
    manager.setActionName("Try");
    EXPECT_THROW(manager.undo(), std::runtime_error);
    EXPECT_FALSE(manager.isUndoing());
    EXPECT_EQ(manager.undoActionName(), "Try");
    fails = false;
    manager.undo();
    EXPECT_EQ(value, 7);
}

TEST_F(UndoManagerTest, RunsNoActionTwiceAfterAnotherThrew) {
    bool fails = true;
    manager.beginEvent();
    manager.registerUndo([&] {
        if (fails) {
            throw std::runtime_error("not now");
        }
    });
    set(1);
    manager.endEvent();
    EXPECT_THROW(manager.undo(), std::runtime_error);
    EXPECT_EQ(value, 0);
    value = 10;
    fails = false;
    manager.undo();
    EXPECT_EQ(value, 10);
}

TEST_F(UndoManagerTest, IgnoresUndoAskedForByAnAction) {
    set(1);
    manager.registerUndo([this] { manager.undo(); });
    manager.undo();
    EXPECT_EQ(value, 1);
    EXPECT_TRUE(manager.canUndo());
}

TEST_F(UndoManagerTest, ForgetsEverything) {
    set(1);
    set(2);
    manager.undo();
    manager.removeAllActions();
    EXPECT_FALSE(manager.canUndo());
    EXPECT_FALSE(manager.canRedo());
}

TEST_F(UndoManagerTest, ForgetsEverythingWhileUndoing) {
    manager.beginEvent();
    set(1);
    manager.registerUndo([this] {
        set(9);
        manager.removeAllActions();
    });
    manager.endEvent();
    manager.undo();
    EXPECT_EQ(value, 9);
    EXPECT_FALSE(manager.canUndo());
    EXPECT_FALSE(manager.canRedo());
}

TEST_F(UndoManagerTest, ReleasesWhatAForgottenActionHeld) {
    auto held = std::make_shared<int>(1);
    manager.registerUndo([held] {});
    manager.undo();
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(UndoManagerTest, TellsOfEveryChange) {
    int notices = 0;
    const Subscription subscription = manager.changes.observe([&] { ++notices; });
    set(1);
    EXPECT_EQ(notices, 1);
    manager.setActionName("Count");
    EXPECT_EQ(notices, 2);
    manager.undo();
    EXPECT_EQ(notices, 3);
    manager.redo();
    EXPECT_EQ(notices, 4);
    manager.removeAllActions();
    EXPECT_EQ(notices, 5);
}

} // namespace
} // namespace oakfen
