#include "OakfenCore/LibraryStore/History.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace oakfen {
namespace {

/// A document of many entries whose every change is recorded.
class HistoryTest : public testing::Test {
protected:
    static constexpr std::size_t chunk = SharedArray<Transaction>::chunkCapacity;
    static constexpr std::size_t entries = 8 * chunk;
    static constexpr std::size_t chunkSize = chunk * sizeof(Transaction);

    HistoryTest() {
        for (std::size_t number = 0; number < entries; ++number) {
            present.transactions.push_back({.payee = "Payee"});
        }
        makeHistory(History::defaultCapacity);
    }

    void makeHistory(std::size_t capacity) {
        history = std::make_unique<History>(capacity);
        history->setSwap([this](Library& document) {
            if (!hasDocument) {
                return false;
            }
            std::swap(document, present);
            if (whenSwapped) {
                whenSwapped();
            }
            return true;
        });
    }

    void edit(const std::function<void(Library&)>& change, const std::string& name = "Edit",
              History::Kind kind = History::Kind::edit) {
        const Library before = present;
        change(present);
        history->record(name, before, present, kind);
    }
    void tick(std::size_t entry, const std::string& name = "Tick") {
        edit(
            [entry](Library& library) {
                library.transactions.edit(entry).amount += Decimal::cents(1);
            },
            name);
    }
    void replace() {
        edit([](Library& library) { library.currencyCode += "x"; }, "Replace",
             History::Kind::replacement);
    }

    /// What undoing everything comes past, with the names of the steps.
    std::vector<std::string> undoAll() {
        std::vector<std::string> names;
        while (history->canUndo()) {
            names.push_back(history->undoActionName());
            history->undo();
        }
        return names;
    }

    Library present{.currencyCode = "CAD"};
    bool hasDocument = true;
    std::function<void()> whenSwapped;
    std::unique_ptr<History> history;
};

TEST_F(HistoryTest, GoesBackAndForthUnderTheNamesOfItsSteps) {
    const Library first = present;
    tick(0, "One");
    const Library second = present;
    tick(0, "Two");
    const Library third = present;
    EXPECT_EQ(history->undoActionName(), "Two");
    history->undo();
    EXPECT_EQ(present, second);
    EXPECT_EQ(history->undoActionName(), "One");
    EXPECT_EQ(history->redoActionName(), "Two");
    history->undo();
    EXPECT_EQ(present, first);
    EXPECT_FALSE(history->canUndo());
    history->redo();
    history->redo();
    EXPECT_EQ(present, third);
    EXPECT_FALSE(history->canRedo());
}

TEST_F(HistoryTest, DoesNothingWithNothingToDo) {
    history->undo();
    history->redo();
    EXPECT_EQ(history->undoActionName(), "");
    EXPECT_EQ(history->redoActionName(), "");
    EXPECT_EQ(history->size(), 0U);
}

TEST_F(HistoryTest, ForgetsRedoWithANewStep) {
    tick(0);
    history->undo();
    tick(1);
    EXPECT_FALSE(history->canRedo());
}

TEST_F(HistoryTest, MakesOneStepOfOneEventUnderItsLastName) {
    const Library first = present;
    {
        const UserEvent outer(*history);
        tick(0, "One");
        {
            const UserEvent inner(*history);
            tick(1, "Two");
        }
        tick(2, "Three");
    }
    const Library last = present;
    tick(3, "Four");
    EXPECT_EQ(undoAll(), (std::vector<std::string>{"Four", "Three"}));
    EXPECT_EQ(present, first);
    history->redo();
    EXPECT_EQ(present, last);
}

TEST_F(HistoryTest, MakesNoStepOfAnEmptyEvent) {
    { const UserEvent event(*history); }
    EXPECT_FALSE(history->canUndo());
}

TEST_F(HistoryTest, BeginsANewStepAfterUndoingWithinAnEvent) {
    const UserEvent event(*history);
    tick(0, "One");
    history->undo();
    tick(1, "Two");
    tick(2, "Three");
    EXPECT_EQ(undoAll(), (std::vector<std::string>{"Three"}));
}

TEST_F(HistoryTest, CountsWhatFollowsOnAStepToThatStep) {
    const Library first = present;
    tick(0, "One");
    const Library second = present;
    whenSwapped = [this] { tick(1, "Follower"); };
    history->undo();
    EXPECT_NE(present, first);
    whenSwapped = nullptr;
    EXPECT_FALSE(history->canUndo());
    history->redo();
    EXPECT_EQ(present, second);
}

TEST_F(HistoryTest, IgnoresUndoAskedForWhileAStepIsTaken) {
    tick(0);
    tick(1);
    whenSwapped = [this] { history->undo(); };
    history->undo();
    EXPECT_TRUE(history->canUndo());
}

TEST_F(HistoryTest, KeepsAStepThatCouldNotBeTaken) {
    tick(0, "One");
    const Library edited = present;
    history->setSwap([](Library&) -> bool { throw std::runtime_error("no memory"); });
    EXPECT_THROW(history->undo(), std::runtime_error);
    EXPECT_EQ(history->undoActionName(), "One");
    EXPECT_FALSE(history->canRedo());
    EXPECT_EQ(present, edited);
}

TEST_F(HistoryTest, ForgetsAStepWhoseDocumentHasGone) {
    tick(0);
    hasDocument = false;
    history->undo();
    EXPECT_FALSE(history->canUndo());
    EXPECT_FALSE(history->canRedo());
}

TEST_F(HistoryTest, ForgetsEverything) {
    tick(0);
    tick(1);
    history->undo();
    history->removeAllActions();
    EXPECT_FALSE(history->canUndo());
    EXPECT_FALSE(history->canRedo());
    EXPECT_EQ(history->size(), 0U);
}

TEST_F(HistoryTest, ForgetsEverythingWhileAStepIsTaken) {
    tick(0);
    tick(1);
    whenSwapped = [this] { history->removeAllActions(); };
    history->undo();
    EXPECT_FALSE(history->canUndo());
    EXPECT_FALSE(history->canRedo());
}

TEST_F(HistoryTest, TellsOfEveryChange) {
    int notices = 0;
    const Subscription subscription = history->changes.observe([&] { ++notices; });
    tick(0);
    EXPECT_EQ(notices, 1);
    history->undo();
    EXPECT_EQ(notices, 2);
    history->redo();
    EXPECT_EQ(notices, 3);
    history->removeAllActions();
    EXPECT_EQ(notices, 4);
}

TEST_F(HistoryTest, CountsOnlyWhatAStepDoesNotShareWithTheNext) {
    tick(0);
    const std::size_t one = history->size();
    EXPECT_GE(one, chunkSize);
    EXPECT_LT(one, 2 * chunkSize);
    tick(entries - 1);
    EXPECT_EQ(history->size(), 2 * one);
    history->undo();
    EXPECT_EQ(history->size(), 2 * one);
}

TEST_F(HistoryTest, MergesTheOldestEditsBeyondItsCapacity) {
    makeHistory(5 * chunkSize);
    const Library first = present;
    for (int round = 0; round < 20; ++round) {
        tick(0, round < 19 ? "Tick" : "Last");
    }
    EXPECT_LE(history->size(), 5 * chunkSize);
    const std::vector<std::string> names = undoAll();
    EXPECT_EQ(names.size(), 4U);
    EXPECT_EQ(names.front(), "Last");
    EXPECT_EQ(names.back(), "Tick");
    EXPECT_EQ(present, first);
}

TEST_F(HistoryTest, SaysOfMergedEditsOfDifferentNamesThatTheyAreSeveral) {
    makeHistory(1);
    tick(0, "Mark Cleared");
    tick(0, "Set Category");
    tick(0, "Mark Cleared");
    EXPECT_EQ(undoAll(), (std::vector<std::string>{"Mark Cleared", "Earlier Changes"}));
}

TEST_F(HistoryTest, NeverMergesNorDropsAReplacedDocument) {
    makeHistory(1);
    tick(0, "Before");
    const Library replaced = present;
    replace();
    replace();
    tick(0, "After");
    tick(1, "After");
    tick(2, "Last");
    EXPECT_EQ(undoAll(),
              (std::vector<std::string>{"Last", "After", "Replace", "Replace", "Before"}));
    history->redo();
    EXPECT_EQ(present, replaced);
}

TEST_F(HistoryTest, KeepsAnEventThatReplacedTheDocumentAStepOfItsOwn) {
    makeHistory(1);
    tick(0, "Before");
    {
        const UserEvent event(*history);
        tick(0);
        replace();
        tick(1, "Restore");
    }
    tick(0, "After");
    EXPECT_EQ(undoAll(), (std::vector<std::string>{"After", "Restore", "Before"}));
}

/// Whatever is edited, undone and redone: a small history comes past earlier documents only, in
/// their order and to the first, and holds no more than it may unless it can't be smaller.
TEST_F(HistoryTest, LosesNoDocumentThatItMustKeepOverRandomEdits) {
    std::mt19937 random(20260315);
    const auto below = [&](std::size_t bound) { return random() % bound; };
    for (int round = 0; round < 20; ++round) {
        const std::size_t capacity = (1 + below(12)) * chunkSize;
        makeHistory(capacity);
        std::vector<Library> earlier{present};
        std::size_t replacements = 0;
        for (int step = 0; step < 60; ++step) {
            if (below(12) == 0) {
                replace();
                ++replacements;
            } else {
                tick(below(entries), "Tick " + std::to_string(below(3)));
            }
            earlier.push_back(present);
        }
        const std::size_t size = history->size();
        std::size_t position = earlier.size() - 1;
        std::size_t steps = 0;
        std::size_t replaced = 0;
        while (history->canUndo()) {
            replaced += history->undoActionName() == "Replace" ? 1U : 0U;
            history->undo();
            ++steps;
            do {
                ASSERT_GT(position, 0U) << "no such document was there before";
                --position;
            } while (earlier[position] != present);
        }
        EXPECT_EQ(position, 0U);
        EXPECT_EQ(replaced, replacements);
        EXPECT_TRUE(size <= capacity || steps <= 2 * replacements + 2);
        while (history->canRedo()) {
            history->redo();
        }
        EXPECT_EQ(present, earlier.back());
    }
}

} // namespace
} // namespace oakfen
