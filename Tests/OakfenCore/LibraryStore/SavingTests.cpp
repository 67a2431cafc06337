#include <cerrno>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryStore/StoreFixture.h"

namespace oakfen {
namespace {

using testing::StartsWith;

class SavingTest : public StoreTest {};

TEST_F(SavingTest, WritesOnceForTenQuickEdits) {
    LibraryStore& store = openPlain();
    for (int number = 0; number < 10; ++number) {
        addAccount(store, std::string(static_cast<std::size_t>(number) + 1, 'x'));
        scheduler.advance(0.39);
    }
    EXPECT_EQ(writeCount(), 0);
    scheduler.advance(0.01);
    EXPECT_EQ(writeCount(), 1);
    EXPECT_EQ(onDisk(), store.library());
    scheduler.advance(10);
    EXPECT_EQ(writeCount(), 1);
}

TEST_F(SavingTest, WritesForTheOwnerAlone) {
    LibraryStore& store = open();
    store.useNoPassword();
    EXPECT_EQ(files.permissions(path), 0600U);
    EXPECT_EQ(files.permissions(folder), 0700U);
}

TEST_F(SavingTest, KnowsWhetherAnEditHasReachedTheDisk) {
    LibraryStore& store = openPlain();
    EXPECT_FALSE(store.hasUnsavedChanges());
    addAccount(store, "Savings");
    EXPECT_TRUE(store.hasUnsavedChanges());
    scheduler.advance(0.4);
    EXPECT_FALSE(store.hasUnsavedChanges());
}

TEST_F(SavingTest, LosesNothingWhenQuittingRightAfterAnEdit) {
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    store.saveNow();
    EXPECT_EQ(onDisk(), store.library());
    scheduler.advance(1);
    EXPECT_EQ(writeCount(), 1);
}

TEST_F(SavingTest, FollowsAnUndo) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    addAccount(store, "Savings");
    scheduler.advance(1);
    ASSERT_EQ(onDisk(), store.library());
    undo->undo();
    EXPECT_TRUE(store.hasUnsavedChanges());
    scheduler.advance(1);
    EXPECT_EQ(onDisk(), withAccount("Chequing"));
}

TEST_F(SavingTest, WritesNothingWithoutAPath) {
    LibraryStore& store = open(std::nullopt);
    store.useNoPassword();
    addAccount(store, "Savings");
    EXPECT_FALSE(store.hasUnsavedChanges());
    EXPECT_EQ(scheduler.waitingTimers(), 0U);
    store.saveNow();
    EXPECT_EQ(writeCount(), 0);
}

TEST_F(SavingTest, WritesNothingInAnOpenDocumentWithoutAChoice) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    defaults.remove(LibraryStore::unencryptedKey);
    addAccount(store, "Savings");
    scheduler.advance(1);
    store.saveNow();
    EXPECT_EQ(onDisk(), withAccount("Chequing"));
    EXPECT_FALSE(store.lastError().has_value());
}

TEST_F(SavingTest, WritesNothingOnceTheStoreHasGone) {
    addAccount(openPlain(withAccount("Chequing")), "Savings");
    close();
    scheduler.advance(1);
    EXPECT_EQ(onDisk(), withAccount("Chequing"));
}

TEST_F(SavingTest, TellsOfAFailureAndKeepsTheEdit) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    int notices = 0;
    const Subscription subscription = store.statusChanged.observe([&] { ++notices; });
    files.failAll(Call::write, ENOSPC);
    addAccount(store, "Savings");
    scheduler.advance(1);
    EXPECT_EQ(store.lastError(),
              "Couldn’t save: “Library.tarnwick” couldn’t be saved: the disk is full");
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(onDisk(), withAccount("Chequing"));
    EXPECT_EQ(accountCount(store), 2U);
    EXPECT_TRUE(store.hasUnsavedChanges());
}

TEST_F(SavingTest, DoesNotTryAgainUntilTheNextEdit) {
    LibraryStore& store = openPlain();
    files.failAll(Call::write, ENOSPC);
    addAccount(store, "Savings");
    scheduler.advance(1);
    files.stopFailing();
    scheduler.advance(100);
    EXPECT_EQ(writeCount(), 0);
    addAccount(store, "Cash");
    scheduler.advance(1);
    EXPECT_EQ(onDisk(), store.library());
    EXPECT_FALSE(store.hasUnsavedChanges());
}

TEST_F(SavingTest, KeepsTheMessageAfterALaterSuccessUntilItIsCleared) {
    LibraryStore& store = openPlain();
    files.failAll(Call::write, ENOSPC);
    store.saveNow();
    files.stopFailing();
    store.saveNow();
    EXPECT_TRUE(store.lastError().has_value());
    int notices = 0;
    const Subscription subscription = store.statusChanged.observe([&] { ++notices; });
    store.clearError();
    EXPECT_FALSE(store.lastError().has_value());
    store.clearError();
    EXPECT_EQ(notices, 1);
}

TEST_F(SavingTest, TellsThatPermissionsCouldNotBeSetThoughTheBytesAreInPlace) {
    LibraryStore& store = openPlain();
    files.failAll(Call::setPermissions, EPERM);
    addAccount(store, "Savings");
    store.saveNow();
    EXPECT_EQ(onDisk(), store.library());
    EXPECT_TRUE(store.lastError().has_value());
}

TEST_F(SavingTest, TellsOfADateThatCannotBeWritten) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    store.mutate("Never", [](Library& library) {
        Account spoilt = account("Chequing");
        spoilt.openingDate = Date{std::numeric_limits<double>::infinity()};
        library.accounts = {spoilt};
    });
    scheduler.advance(1);
    ASSERT_TRUE(store.lastError().has_value());
    EXPECT_THAT(*store.lastError(), StartsWith("Couldn’t save: "));
    EXPECT_EQ(onDisk(), withAccount("Chequing"));
    EXPECT_TRUE(store.hasUnsavedChanges());
}

TEST_F(SavingTest, HoldsTheEarlierOrTheLaterDocumentWhicheverCallFails) {
    for (const bool crashes : {false, true}) {
        for (int number = 1;; ++number) {
            LibraryStore& store = openPlain(withAccount("Chequing"));
            addAccount(store, "Savings");
            files.failCall(number, EIO, InMemoryFileSystem::Repeat::fromThenOn);
            store.saveNow();
            const bool failed = files.hasFailed();
            EXPECT_EQ(store.lastError().has_value(), failed);
            if (crashes) {
                files.crash({});
            }
            const std::optional<Library> stored = onDisk();
            EXPECT_TRUE(stored == withAccount("Chequing") || stored == store.library());
            if (!store.lastError()) {
                EXPECT_EQ(stored, store.library());
            }
            files.stopFailing();
            if (!failed) {
                break;
            }
        }
    }
}

TEST_F(SavingTest, LosesNoDamagedFileWhicheverCallFails) {
    for (int number = 1;; ++number) {
        files.remove(pathAside);
        files.addFile(path, "damaged");
        LibraryStore& store = open();
        files.failCall(number, EIO, InMemoryFileSystem::Repeat::fromThenOn);
        try {
            store.useNoPassword();
        } catch (const FileError&) {
            EXPECT_FALSE(store.accessState().isOpen());
        }
        EXPECT_EQ(files.contents(pathAside), "damaged");
        const bool failed = files.hasFailed();
        files.stopFailing();
        files.remove(path);
        if (!failed) {
            break;
        }
    }
}

} // namespace
} // namespace oakfen
