#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryStore/StoreFixture.h"

namespace oakfen {
namespace {

class MutationTest : public StoreTest {};

TEST_F(MutationTest, ReplacesDocumentAndIndexBeforeItTells) {
    LibraryStore& store = openPlain();
    int notices = 0;
    const Subscription subscription = store.libraryChanged.observe([&] {
        ++notices;
        EXPECT_EQ(accountCount(store), 2U);
        EXPECT_EQ(store.index().library(), store.library());
        EXPECT_EQ(undo->undoActionName(), "Add Savings");
    });
    addAccount(store, "Savings");
    EXPECT_EQ(notices, 1);
}

TEST_F(MutationTest, BuildsTheIndexForThePresentMoment) {
    LibraryStore& store = openPlain();
    clock.advance(86'400);
    addAccount(store, "Savings");
    EXPECT_EQ(store.index().now(), clock.now());
}

TEST_F(MutationTest, RefreshesTheIndexAloneForAnotherMoment) {
    LibraryStore& store = openPlain();
    int notices = 0;
    const Subscription subscription = store.libraryChanged.observe([&] {
        ++notices;
        EXPECT_EQ(store.index().now(), clock.now());
    });
    clock.advance(86'400);
    store.refreshIndex();
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(store.index().library(), store.library());
    EXPECT_FALSE(undo->canUndo());
    EXPECT_FALSE(store.hasUnsavedChanges());
}

TEST_F(MutationTest, LeavesAnEarlierIndexToWhoeverHoldsIt) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    const std::shared_ptr<const LibraryIndex> before = store.sharedIndex();
    addAccount(store, "Savings");
    EXPECT_EQ(before->library(), withAccount("Chequing"));
    EXPECT_NE(before.get(), &store.index());
}

TEST_F(MutationTest, LeavesNoTraceOfAnEditThatIsReverted) {
    LibraryStore& store = openPlain();
    const LibraryIndex* const index = &store.index();
    int notices = 0;
    const Subscription subscription = store.libraryChanged.observe([&] { ++notices; });
    store.mutate("Nothing", [](Library& library) {
        library.accounts.push_back(account("Savings"));
        library = withAccount("Chequing");
    });
    EXPECT_EQ(&store.index(), index);
    EXPECT_EQ(notices, 0);
    EXPECT_FALSE(undo->canUndo());
    EXPECT_FALSE(store.hasUnsavedChanges());
    scheduler.advance(1);
    EXPECT_EQ(writeCount(), 0);
}

TEST_F(MutationTest, LeavesTheDocumentAsItWasWhenTheEditThrows) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    EXPECT_THROW(store.mutate("Fail",
                              [](Library& library) {
                                  library.accounts.push_back(account("Savings"));
                                  throw std::runtime_error("no");
                              }),
                 std::runtime_error);
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    EXPECT_FALSE(undo->canUndo());
}

TEST_F(MutationTest, RefusesAnAmountThatIsNotANumberAndLeavesEverythingAsItWas) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    addAccount(store, "Savings");
    undo->undo();
    scheduler.advance(1);
    const int writes = writeCount();
    const LibraryIndex* const index = &store.index();
    int notices = 0;
    const Subscription subscription = store.libraryChanged.observe([&] { ++notices; });
    store.mutate("Edit Account", [](Library& library) {
        library.accounts.edit(0).name = "Renamed";
        library.accounts.edit(0).openingBalance = Decimal::nan();
    });
    EXPECT_EQ(store.lastError(),
              "“Edit Account” couldn’t be done: an amount in it is too large to keep.");
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    EXPECT_EQ(&store.index(), index);
    EXPECT_EQ(notices, 0);
    EXPECT_FALSE(undo->canUndo());
    EXPECT_EQ(undo->redoActionName(), "Add Savings");
    EXPECT_FALSE(store.hasUnsavedChanges());
    scheduler.advance(1);
    EXPECT_EQ(writeCount(), writes);
}

TEST_F(MutationTest, SavesTheNextEditAfterOneThatWasRefused) {
    LibraryStore& store = openPlain();
    store.mutate("Edit Account", [](Library& library) {
        library.accounts.edit(0).openingBalance = Decimal::nan();
    });
    store.clearError();
    addAccount(store, "Savings");
    scheduler.advance(1);
    EXPECT_FALSE(store.lastError());
    EXPECT_EQ(onDisk(), store.library());
}

TEST_F(MutationTest, TellsOfARefusedEditOnce) {
    LibraryStore& store = openPlain();
    int notices = 0;
    const Subscription subscription = store.statusChanged.observe([&] { ++notices; });
    store.mutate("Edit Account", [](Library& library) {
        library.accounts.edit(0).openingBalance = Decimal::nan();
    });
    EXPECT_EQ(notices, 1);
}

TEST_F(MutationTest, RefusesADocumentWithAnAmountThatIsNotANumber) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    Library spoilt = withAccount("Restored");
    spoilt.budget[UUID::random()] = Decimal::nan();
    store.replaceLibrary(spoilt, "Restore Backup");
    EXPECT_EQ(store.lastError(),
              "“Restore Backup” couldn’t be done: an amount in it is too large to keep.");
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    store.replaceLibrary(spoilt, std::nullopt);
    EXPECT_EQ(store.lastError(),
              "The change couldn’t be done: an amount in it is too large to keep.");
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    EXPECT_FALSE(undo->canUndo());
}

TEST_F(MutationTest, UndoesAndRedoesUnderTheNameOfTheAction) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    addAccount(store, "Savings");
    const Library after = store.library();
    EXPECT_EQ(undo->undoActionName(), "Add Savings");
    undo->undo();
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    EXPECT_EQ(store.index().library(), withAccount("Chequing"));
    EXPECT_EQ(undo->redoActionName(), "Add Savings");
    undo->redo();
    EXPECT_EQ(store.library(), after);
    EXPECT_EQ(undo->undoActionName(), "Add Savings");
    undo->undo();
    EXPECT_EQ(store.library(), withAccount("Chequing"));
}

TEST_F(MutationTest, TakesTenEditsBackOneByOne) {
    LibraryStore& store = openPlain();
    std::vector<Library> states;
    for (int number = 0; number < 10; ++number) {
        states.push_back(store.library());
        addAccount(store, std::string(static_cast<std::size_t>(number) + 1, 'x'));
    }
    for (; !states.empty(); states.pop_back()) {
        ASSERT_TRUE(undo->canUndo());
        undo->undo();
        EXPECT_EQ(store.library(), states.back());
    }
    EXPECT_FALSE(undo->canUndo());
}

TEST_F(MutationTest, ForgetsRedoWithAFurtherEdit) {
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    undo->undo();
    addAccount(store, "Cash");
    EXPECT_FALSE(undo->canRedo());
}

TEST_F(MutationTest, FilesTheEditOfAnObserverAfterTheOneThatItFollows) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    bool hasFollowed = false;
    const Subscription subscription = store.libraryChanged.observe([&] {
        if (!hasFollowed) {
            hasFollowed = true;
            addAccount(store, "Follower");
        }
    });
    addAccount(store, "Savings");
    EXPECT_EQ(undo->undoActionName(), "Add Follower");
    undo->undo();
    EXPECT_EQ(accountCount(store), 2U);
    undo->undo();
    EXPECT_EQ(store.library(), withAccount("Chequing"));
}

TEST_F(MutationTest, CanTakeBackARestoredDocumentHoweverMuchIsEditedAfterwards) {
    undo = std::make_shared<History>(1);
    LibraryStore& store = openPlain(withAccount("Chequing"));
    store.replaceLibrary(withAccount("Restored"), "Restore Backup");
    for (const char* name : {"A", "BB", "CCC", "DDDD"}) {
        addAccount(store, name);
    }
    undo->undo();
    EXPECT_EQ(undo->undoActionName(), "Earlier Changes");
    undo->undo();
    EXPECT_EQ(store.library(), withAccount("Restored"));
    EXPECT_EQ(undo->undoActionName(), "Restore Backup");
    undo->undo();
    EXPECT_EQ(store.library(), withAccount("Chequing"));
}

TEST_F(MutationTest, StandsWithoutAnUndoManager) {
    LibraryStore& store = openPlain();
    undo.reset();
    addAccount(store, "Savings");
    EXPECT_EQ(accountCount(store), 2U);
    EXPECT_TRUE(store.hasUnsavedChanges());
}

TEST_F(MutationTest, UndoesNothingOnceTheStoreHasGone) {
    addAccount(openPlain(), "Savings");
    close();
    undo->undo();
    EXPECT_FALSE(undo->canRedo());
}

TEST_F(MutationTest, ReplacesTheWholeDocumentWithAnUndoStepThatHasAName) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    store.replaceLibrary(withAccount("Restored"), "Restore Backup");
    EXPECT_EQ(store.library(), withAccount("Restored"));
    EXPECT_EQ(store.index().library(), withAccount("Restored"));
    EXPECT_EQ(undo->undoActionName(), "Restore Backup");
    undo->undo();
    EXPECT_EQ(store.library(), withAccount("Chequing"));
}

TEST_F(MutationTest, ReplacesTheWholeDocumentForGoodWithoutAName) {
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    store.replaceLibrary(withAccount("Restored"), std::nullopt);
    EXPECT_EQ(undo->undoActionName(), "Add Savings");
    EXPECT_TRUE(store.hasUnsavedChanges());
}

TEST_F(MutationTest, SavesAReplacementThatIsEqualToo) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    int notices = 0;
    const Subscription subscription = store.libraryChanged.observe([&] { ++notices; });
    store.replaceLibrary(withAccount("Chequing"), std::nullopt);
    EXPECT_EQ(notices, 1);
    scheduler.advance(1);
    EXPECT_EQ(writeCount(), 1);
}

} // namespace
} // namespace oakfen
