#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sys/resource.h>
#include <sys/wait.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "Tests/OakfenCore/LibraryStore/SaveOracle.h"
#include "Tests/OakfenCore/LibraryStore/StoreBench.h"
#include "Tests/OakfenCore/Support/Files/Mounts.h"
#include "Tests/OakfenCore/Support/Files/TemporaryFolder.h"

namespace oakfen {
namespace {

namespace filesystem = std::filesystem;
using testing::EndsWith;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Kind = AccessState::Kind;

/// A store on the real disk, in folders of every kind.
class OddFoldersTest : public testing::Test {
protected:
    static inline const std::string earlier = encodeLibrary(documentWithAccounts(2));

    LibraryStore& open(const std::string& path) {
        store_ = std::make_unique<LibraryStore>(path, bench.services());
        return *store_;
    }

    /// A store that is open on a plain file with the earlier document.
    LibraryStore& openEarlier(const std::string& path) {
        writeOwnerOnly(systemFiles(), earlier, path);
        bench.choosePlain();
        return open(path);
    }

    static void edit(LibraryStore& store, int accounts = 3) {
        store.mutate("Edit",
                     [accounts](Library& library) { library = documentWithAccounts(accounts); });
    }

    /// Saves an edit that can't be saved, and checks that the earlier file is whole.
    void expectFailedSave(const std::string& path, const std::string& reason) {
        edit(*store_);
        store_->saveNow();
        ASSERT_TRUE(store_->lastError().has_value());
        EXPECT_EQ(*store_->lastError(),
                  "Couldn’t save: “Library.tarnwick” couldn’t be saved: " + reason);
        EXPECT_TRUE(store_->hasUnsavedChanges());
        EXPECT_EQ(readFile(systemFiles(), path), earlier);
    }

    /// Saves, now that it can be done.
    void expectGoodSave(const std::string& path) {
        store_->clearError();
        store_->saveNow();
        EXPECT_FALSE(store_->lastError().has_value());
        EXPECT_THAT(complaints(systemFiles(), path, {.later = encodeLibrary(store_->library())}),
                    IsEmpty());
    }

    static int errorOfChoice(LibraryStore& store) {
        try {
            store.useNoPassword();
        } catch (const FileError& error) {
            return error.code();
        }
        return 0;
    }

    static std::vector<std::string> names(const std::string& folder) {
        std::vector<std::string> result;
        (void)systemFiles().list(folder, result);
        return result;
    }

    StoreBench bench{systemFiles()};

private:
    std::unique_ptr<LibraryStore> store_;
};

TEST_F(OddFoldersTest, MakesAMissingFolder) {
    const TemporaryFolder folder;
    const std::string path = folder / "one/two/Library.tarnwick";
    LibraryStore& store = open(path);
    EXPECT_TRUE(store.isNewLibrary());
    EXPECT_THAT(names(folder.path()), IsEmpty());
    store.useNoPassword();
    EXPECT_THAT(complaints(systemFiles(), path, {.later = encodeLibrary(store.library())}),
                IsEmpty());
    EXPECT_EQ(fileInformation(systemFiles(), folder / "one/two")->permissions, 0700U);
}

TEST_F(OddFoldersTest, SavesWhereTheFolderWasRemovedMeanwhile) {
    const TemporaryFolder folder;
    const std::string path = folder / "one/Library.tarnwick";
    LibraryStore& store = openEarlier(path);
    filesystem::remove_all(folder / "one");
    edit(store);
    expectGoodSave(path);
}

TEST_F(OddFoldersTest, KeepsTheEarlierFileOnAFullDisk) {
    if (!Mount::isPossible()) {
        GTEST_SKIP() << "only the superuser may mount a small disk";
    }
    constexpr std::size_t diskSize = 256 * 1024;
    const TemporaryFolder folder;
    const Mount mount = Mount::ofSize(folder.path(), diskSize);
    ASSERT_TRUE(mount.isMounted());
    const std::string path = folder / "Library.tarnwick";
    openEarlier(path);
    std::ofstream(folder / "filler") << std::string(diskSize, 'x') << std::flush;
    ASSERT_EQ(filesystem::space(folder.path()).available, 0U);
    expectFailedSave(path, "the disk is full");
    EXPECT_THAT(names(folder.path()), UnorderedElementsAre("Library.tarnwick", "filler"));
    filesystem::remove(folder / "filler");
    expectGoodSave(path);
}

TEST_F(OddFoldersTest, KeepsTheEarlierFileOnADiskThatFillsUpHalfwayThrough) {
    if (!Mount::isPossible()) {
        GTEST_SKIP() << "only the superuser may mount a small disk";
    }
    constexpr std::size_t diskSize = 256 * 1024;
    constexpr int tooManyAccounts = 2000;
    const TemporaryFolder folder;
    const Mount mount = Mount::ofSize(folder.path(), diskSize);
    ASSERT_TRUE(mount.isMounted());
    const std::string path = folder / "Library.tarnwick";
    LibraryStore& store = openEarlier(path);
    edit(store, tooManyAccounts);
    store.saveNow();
    EXPECT_THAT(store.lastError().value_or(""), EndsWith("the disk is full"));
    EXPECT_EQ(readFile(systemFiles(), path), earlier);
    EXPECT_THAT(names(folder.path()), UnorderedElementsAre("Library.tarnwick"));
}

TEST_F(OddFoldersTest, KeepsTheEarlierFileOnAReadOnlyDisk) {
    if (!Mount::isPossible()) {
        GTEST_SKIP() << "only the superuser may mount a folder read-only";
    }
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    openEarlier(path);
    {
        const Mount mount = Mount::readOnly(folder.path());
        ASSERT_TRUE(mount.isMounted());
        expectFailedSave(path, "it is on a disk that can only be read");
    }
    expectGoodSave(path);
}

TEST_F(OddFoldersTest, OpensAFileOnAReadOnlyDisk) {
    if (!Mount::isPossible()) {
        GTEST_SKIP() << "only the superuser may mount a folder read-only";
    }
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    writeOwnerOnly(systemFiles(), earlier, path);
    const Mount mount = Mount::readOnly(folder.path());
    ASSERT_TRUE(mount.isMounted());
    bench.choosePlain();
    const LibraryStore& store = open(path);
    EXPECT_TRUE(store.accessState().isOpen());
    EXPECT_EQ(store.library(), documentWithAccounts(2));
}

TEST_F(OddFoldersTest, LeavesADamagedFileOnAReadOnlyDiskAlone) {
    if (!Mount::isPossible()) {
        GTEST_SKIP() << "only the superuser may mount a folder read-only";
    }
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    writeOwnerOnly(systemFiles(), "damaged", path);
    {
        const Mount mount = Mount::readOnly(folder.path());
        ASSERT_TRUE(mount.isMounted());
        LibraryStore& store = open(path);
        EXPECT_TRUE(store.lastError().has_value());
        EXPECT_EQ(errorOfChoice(store), EROFS);
    }
    EXPECT_EQ(readFile(systemFiles(), path), "damaged");
    EXPECT_THAT(names(folder.path()), UnorderedElementsAre("Library.tarnwick"));
}

TEST_F(OddFoldersTest, KeepsTheEarlierFileInAFolderThatMayNotBeWritten) {
    const OrdinaryUser user;
    if (!user.isOrdinary()) {
        GTEST_SKIP() << "permissions do not bind this user";
    }
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    openEarlier(path);
    filesystem::permissions(folder.path(), filesystem::perms(0500));
    expectFailedSave(path, "you don’t have permission");
    filesystem::permissions(folder.path(), filesystem::perms(0700));
    expectGoodSave(path);
}

TEST_F(OddFoldersTest, DoesNotTakeAFileForMissingInAFolderThatMayNotBeEntered) {
    const OrdinaryUser user;
    if (!user.isOrdinary()) {
        GTEST_SKIP() << "permissions do not bind this user";
    }
    const TemporaryFolder folder;
    const std::string path = folder / "inner/Library.tarnwick";
    writeOwnerOnly(systemFiles(), earlier, path);
    filesystem::permissions(folder / "inner", filesystem::perms(0000));
    LibraryStore& store = open(path);
    EXPECT_EQ(store.accessState().kind, Kind::legacyUnavailable);
    EXPECT_FALSE(store.isNewLibrary());
    filesystem::permissions(folder / "inner", filesystem::perms(0700));
    bench.choosePlain();
    store.retryLoading();
    EXPECT_EQ(store.library(), documentWithAccounts(2));
}

TEST_F(OddFoldersTest, LeavesAFileAloneThatMayNotBeRead) {
    const OrdinaryUser user;
    if (!user.isOrdinary()) {
        GTEST_SKIP() << "permissions do not bind this user";
    }
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    writeOwnerOnly(systemFiles(), earlier, path);
    filesystem::permissions(path, filesystem::perms(0000));
    bench.choosePlain();
    LibraryStore& store = open(path);
    EXPECT_EQ(store.accessState().kind, Kind::legacyUnavailable);
    edit(store);
    store.saveNow();
    filesystem::permissions(path, filesystem::perms(0600));
    EXPECT_EQ(readFile(systemFiles(), path), earlier);
}

TEST_F(OddFoldersTest, SetsAFileAsideThatMayNotBeRead) {
    const OrdinaryUser user;
    if (!user.isOrdinary()) {
        GTEST_SKIP() << "permissions do not bind this user";
    }
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    const std::string pathAside = folder / "Library.damaged-1700000000.tarnwick";
    writeOwnerOnly(systemFiles(), earlier, path);
    filesystem::permissions(path, filesystem::perms(0000));
    LibraryStore& store = open(path);
    store.startOver();
    store.useNoPassword();
    filesystem::permissions(pathAside, filesystem::perms(0600));
    EXPECT_THAT(complaints(systemFiles(), path,
                           {.later = encodeLibrary(store.library()), .kept = {{earlier}}}),
                IsEmpty());
}

TEST_F(OddFoldersTest, SavesTheTargetOfALink) {
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    const std::string target = folder / "elsewhere/real.tarnwick";
    writeOwnerOnly(systemFiles(), earlier, target);
    filesystem::create_symlink("elsewhere/real.tarnwick", path);
    bench.choosePlain();
    LibraryStore& store = open(path);
    ASSERT_EQ(store.library(), documentWithAccounts(2));
    edit(store);
    store.saveNow();
    EXPECT_TRUE(filesystem::is_symlink(path));
    EXPECT_THAT(complaints(systemFiles(), target, {.later = encodeLibrary(store.library())}),
                IsEmpty());
    EXPECT_THAT(names(folder.path()), UnorderedElementsAre("Library.tarnwick", "elsewhere"));
}

TEST_F(OddFoldersTest, KeepsTheTargetOfALinkThatIsSetAside) {
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    writeOwnerOnly(systemFiles(), earlier, folder / "elsewhere/real.tarnwick");
    filesystem::create_symlink("elsewhere/real.tarnwick", path);
    bench.choosePlain();
    LibraryStore& store = open(path);
    store.startOver();
    store.useNoPassword();
    EXPECT_EQ(readFile(systemFiles(), folder / "elsewhere/real.tarnwick"), earlier);
    EXPECT_EQ(readFile(systemFiles(), path), encodeLibrary(store.library()));
}

TEST_F(OddFoldersTest, LeavesTheOtherNameOfAFileWithTwoAlone) {
    const TemporaryFolder folder;
    const std::string path = folder / "data/Library.tarnwick";
    LibraryStore& store = openEarlier(path);
    filesystem::create_hard_link(path, folder / "copy");
    edit(store);
    expectGoodSave(path);
    EXPECT_EQ(readFile(systemFiles(), folder / "copy"), earlier);
}

TEST_F(OddFoldersTest, LeavesLinksAloneThatGoRoundInACircle) {
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    filesystem::create_symlink("other", path);
    filesystem::create_symlink("Library.tarnwick", folder / "other");
    const LibraryStore& store = open(path);
    EXPECT_EQ(store.accessState(),
              (AccessState{.kind = Kind::legacyUnavailable,
                           .reason = "Your data file couldn’t be read: “Library.tarnwick” couldn’t "
                                     "be opened: its links lead round in a circle"}));
    EXPECT_TRUE(filesystem::is_symlink(path));
    EXPECT_THAT(names(folder.path()), UnorderedElementsAre("Library.tarnwick", "other"));
}

TEST_F(OddFoldersTest, LeavesAFileAloneThatStandsInPlaceOfTheFolder) {
    const TemporaryFolder folder;
    writeOwnerOnly(systemFiles(), "precious", folder / "Tarnwick");
    LibraryStore& store = open(folder / "Tarnwick/Library.tarnwick");
    EXPECT_EQ(errorOfChoice(store), ENOTDIR);
    EXPECT_FALSE(store.accessState().isOpen());
    store.startOver();
    EXPECT_EQ(errorOfChoice(store), ENOTDIR);
    EXPECT_EQ(readFile(systemFiles(), folder / "Tarnwick"), "precious");
}

TEST_F(OddFoldersTest, MovesAFolderAsideThatStandsInPlaceOfTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    writeOwnerOnly(systemFiles(), "precious", path + "/inner");
    LibraryStore& store = open(path);
    EXPECT_EQ(store.accessState().kind, Kind::legacyUnavailable);
    store.startOver();
    store.useNoPassword();
    EXPECT_EQ(readFile(systemFiles(), path), encodeLibrary(store.library()));
    EXPECT_EQ(readFile(systemFiles(), folder / "Library.damaged-1700000000.tarnwick/inner"),
              "precious");
}

TEST_F(OddFoldersTest, KeepsTheEarlierFileWhereFilesMayNotGrowThatLong) {
    constexpr rlim_t longestFile = 1000;
    constexpr int manyAccounts = 200;
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    LibraryStore& store = openEarlier(path);
    edit(store, manyAccounts);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const struct rlimit limit = {longestFile, longestFile};
        const bool isLimited =
            ::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
        store.saveNow();
        const bool isTold = store.lastError() == "Couldn’t save: “Library.tarnwick” couldn’t be "
                                                 "saved: it is too large";
        ::_exit(isLimited && isTold ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_THAT(complaints(systemFiles(), path, {.later = earlier}), IsEmpty());
    EXPECT_THAT(names(folder.path()), UnorderedElementsAre("Library.tarnwick"));
}

} // namespace
} // namespace oakfen
