// Saving on a worker: no order of saving, waiting, editing and giving up the file may lose what was
// entered or bring back what was given up.
#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "OakfenCore/LibraryStore/LibraryStore.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "Tests/OakfenCore/LibraryStore/StoreBench.h"
#include "Tests/OakfenCore/Platform/SteppedScheduler.h"
#include "Tests/OakfenCore/Support/Files/FileSystemFilter.h"

namespace oakfen {
namespace {

class BackgroundSaving : public testing::Test {
protected:
    static constexpr const char* path = "/home/ann/Tarnwick/Library.tarnwick";

    BackgroundSaving() {
        files.addFile(path, encodeLibrary(documentWithAccounts(1)));
        bench.choosePlain();
        open();
    }

    void open() {
        store = std::make_unique<LibraryStore>(
            path, LibraryStoreServices{files, scheduler, bench.clock, bench.defaults,
                                       bench.passwords, bench.legacyKeys});
    }

    void edit(int accounts) {
        store->mutate("Edit", [&](Library& library) { library = documentWithAccounts(accounts); });
    }

    [[nodiscard]] int accountsOnDisk() const {
        return static_cast<int>(decodeLibrary(files.contents(path).value()).accounts.size());
    }

    InMemoryFileSystem files;
    StoreBench bench{files};
    SteppedScheduler scheduler;
    std::unique_ptr<LibraryStore> store;
};

TEST_F(BackgroundSaving, IsUnsavedUntilTheWorkerIsDoneAndTold) {
    edit(2);
    scheduler.fireTimer();
    EXPECT_EQ(accountsOnDisk(), 1);
    scheduler.runWorks();
    EXPECT_EQ(accountsOnDisk(), 2);
    EXPECT_TRUE(store->hasUnsavedChanges());
    scheduler.tellMainThread();
    EXPECT_FALSE(store->hasUnsavedChanges());
}

TEST_F(BackgroundSaving, WritesAgainWhatWasEditedMeanwhile) {
    edit(2);
    scheduler.fireTimer();
    edit(3);
    scheduler.fireTimer();
    EXPECT_EQ(scheduler.works.size(), 1U) << "one write at a time";
    scheduler.runWorks();
    scheduler.tellMainThread();
    EXPECT_TRUE(store->hasUnsavedChanges());
    scheduler.runWorks();
    scheduler.tellMainThread();
    EXPECT_EQ(accountsOnDisk(), 3);
    EXPECT_FALSE(store->hasUnsavedChanges());
}

TEST_F(BackgroundSaving, NeverLetsAnOlderWriteFollowANewerOne) {
    edit(2);
    scheduler.fireTimer();
    edit(3);
    store->saveNow();
    EXPECT_EQ(accountsOnDisk(), 3);
    scheduler.runWorks();
    scheduler.tellMainThread();
    EXPECT_EQ(accountsOnDisk(), 3);
    EXPECT_FALSE(store->hasUnsavedChanges());
}

TEST_F(BackgroundSaving, TellsAFailureAndStaysUnsaved) {
    files.failAll(InMemoryFileSystem::Call::write, ENOSPC);
    edit(2);
    scheduler.fireTimer();
    scheduler.runWorks();
    scheduler.tellMainThread();
    EXPECT_TRUE(store->lastError().value_or("").starts_with("Couldn’t save: "));
    EXPECT_TRUE(store->hasUnsavedChanges());
    EXPECT_EQ(accountsOnDisk(), 1);
    files.stopFailing();
    store->saveNow();
    EXPECT_EQ(accountsOnDisk(), 2);
}

TEST_F(BackgroundSaving, DoesNotBringAFileBackThatWasGivenUp) {
    edit(2);
    scheduler.fireTimer();
    store->startOver();
    scheduler.runWorks();
    scheduler.tellMainThread();
    EXPECT_FALSE(files.contents(path)) << "the file was set aside and no new one chosen";
    EXPECT_EQ(files.names("/home/ann/Tarnwick").size(), 1U);
}

TEST_F(BackgroundSaving, DoesNotOverwriteAFileThatIsLoadedAgain) {
    edit(2);
    scheduler.fireTimer();
    files.addFile(path, encodeLibrary(documentWithAccounts(7)));
    store->retryLoading();
    scheduler.runWorks();
    scheduler.tellMainThread();
    EXPECT_EQ(accountsOnDisk(), 7);
    EXPECT_EQ(store->library().accounts.size(), 7U);
}

TEST_F(BackgroundSaving, EndsWithTheStore) {
    edit(2);
    scheduler.fireTimer();
    store.reset();
    scheduler.runWorks();
    scheduler.tellMainThread();
    EXPECT_EQ(accountsOnDisk(), 1);
}

/// Files whose writing waits until the test lets it go on.
class GatedFiles final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;

    Result write(int descriptor, const char* from, std::size_t count) override {
        std::unique_lock lock(mutex_);
        hasArrived_ = true;
        changed_.notify_all();
        changed_.wait(lock, [this] { return isOpen_; });
        return FileSystemFilter::write(descriptor, from, count);
    }

    void waitForAWrite() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return hasArrived_; });
    }
    void letWritesThrough() {
        const std::scoped_lock lock(mutex_);
        isOpen_ = true;
        changed_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool hasArrived_ = false;
    bool isOpen_ = false;
};

TEST_F(BackgroundSaving, WaitsForAWriteUnderWayBeforeSavingAtOnce) {
    GatedFiles gated(files);
    LibraryStore slow(path, LibraryStoreServices{gated, scheduler, bench.clock, bench.defaults,
                                                 bench.passwords, bench.legacyKeys});
    slow.mutate("Edit", [](Library& library) { library = documentWithAccounts(2); });
    scheduler.fireTimer();
    std::thread worker([this] { scheduler.runWorks(); });
    gated.waitForAWrite();
    slow.mutate("Edit", [](Library& library) { library = documentWithAccounts(3); });
    std::thread helper([&] { gated.letWritesThrough(); });
    slow.saveNow();
    worker.join();
    helper.join();
    EXPECT_EQ(accountsOnDisk(), 3);
    EXPECT_FALSE(slow.hasUnsavedChanges());
    EXPECT_FALSE(slow.lastError());
    scheduler.tellMainThread();
    EXPECT_FALSE(slow.hasUnsavedChanges());
}

} // namespace
} // namespace oakfen
