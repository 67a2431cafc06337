#include <cerrno>
#include <fcntl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Testing/InMemoryFileSystem.h"

namespace oakfen {
namespace {

using Call = InMemoryFileSystem::Call;
using testing::ElementsAre;

int openForWriting(InMemoryFileSystem& files, const std::string& path) {
    return static_cast<int>(files.open(path, O_WRONLY | O_CREAT, 0600).value);
}

TEST(InMemoryFileSystem, ReadsWhatWasWritten) {
    InMemoryFileSystem files;
    const int file = openForWriting(files, "/a");
    EXPECT_EQ(files.write(file, "hello", 5).value, 5);
    EXPECT_FALSE(files.close(file).failed());
    EXPECT_EQ(readFile(files, "/a"), "hello");
}

TEST(InMemoryFileSystem, TransfersNoMoreThanItsLimitAtATime) {
    InMemoryFileSystem files;
    files.addFile("/a", "hello");
    files.setLargestTransfer(2);
    const int file = static_cast<int>(files.open("/a", O_RDONLY, 0).value);
    char bytes[8];
    EXPECT_EQ(files.read(file, bytes, sizeof bytes).value, 2);
}

TEST(InMemoryFileSystem, FailsTheCallThatWasNamedAndNoOther) {
    InMemoryFileSystem files;
    files.addFile("/a", "hello");
    files.failCall(2, EIO);
    FileInformation information;
    EXPECT_FALSE(files.information("/a", information).failed());
    EXPECT_EQ(files.information("/a", information).error, EIO);
    EXPECT_FALSE(files.information("/a", information).failed());
    EXPECT_TRUE(files.hasFailed());
}

TEST(InMemoryFileSystem, FailsEveryCallFromTheOneThatWasNamedOn) {
    InMemoryFileSystem files;
    files.addFile("/a", "hello");
    files.failCall(1, ENOSPC, InMemoryFileSystem::Repeat::fromThenOn);
    FileInformation information;
    EXPECT_EQ(files.information("/a", information).error, ENOSPC);
    EXPECT_EQ(files.unlink("/a").error, ENOSPC);
    files.stopFailing();
    EXPECT_FALSE(files.unlink("/a").failed());
}

TEST(InMemoryFileSystem, FailsEveryOtherCallFromTheOneThatWasNamedOn) {
    InMemoryFileSystem files;
    files.addFile("/a", "hello");
    files.failCall(2, EINTR, InMemoryFileSystem::Repeat::everyOtherFromThenOn);
    FileInformation information;
    std::vector<bool> failures;
    for (int call = 0; call < 5; ++call) {
        failures.push_back(files.information("/a", information).failed());
    }
    EXPECT_EQ(failures, (std::vector<bool>{false, true, false, true, false}));
}

TEST(InMemoryFileSystem, RunsOutOfSpace) {
    InMemoryFileSystem files;
    files.setFreeSpace(3);
    const int file = openForWriting(files, "/a");
    EXPECT_EQ(files.write(file, "hello", 5).value, 3);
    EXPECT_EQ(files.write(file, "lo", 2).error, ENOSPC);
}

TEST(InMemoryFileSystem, RefusesWhatPermissionsForbid) {
    InMemoryFileSystem files;
    files.addFile("/secret", "x", 0000);
    files.addFile("/closed/a", "x");
    files.setPermissions("/closed", 0000);
    EXPECT_EQ(files.open("/secret", O_RDONLY, 0).error, EACCES);
    EXPECT_EQ(files.open("/closed/a", O_RDONLY, 0).error, EACCES);
}

TEST(InMemoryFileSystem, CreatesExclusivelyOnlyWhatIsNotThere) {
    InMemoryFileSystem files;
    files.addFile("/a", "x");
    files.addLink("/link", "/nowhere");
    EXPECT_EQ(files.open("/a", O_WRONLY | O_CREAT | O_EXCL, 0600).error, EEXIST);
    EXPECT_EQ(files.open("/link", O_WRONLY | O_CREAT | O_EXCL, 0600).error, EEXIST);
    EXPECT_EQ(files.open("/link", O_RDONLY | O_NOFOLLOW, 0).error, ELOOP);
}

TEST(InMemoryFileSystem, FollowsLinksOnTheWay) {
    InMemoryFileSystem files;
    files.addFile("/real/a", "x");
    files.addLink("/there/link", "../real");
    EXPECT_EQ(readFile(files, "/there/link/a"), "x");
    std::string target;
    EXPECT_FALSE(files.readLink("/there/link", target).failed());
    EXPECT_EQ(target, "../real");
    EXPECT_EQ(files.readLink("/real/a", target).error, EINVAL);
}

TEST(InMemoryFileSystem, ListsAFolderInOrder) {
    InMemoryFileSystem files;
    files.addFile("/f/b", "");
    files.addFile("/f/a", "");
    std::vector<std::string> names;
    EXPECT_FALSE(files.list("/f", names).failed());
    EXPECT_THAT(names, ElementsAre("a", "b"));
    EXPECT_EQ(files.list("/f/a", names).error, ENOTDIR);
}

TEST(InMemoryFileSystem, MovesOntoAFileOnlyWhereThatIsAsked) {
    InMemoryFileSystem files;
    files.addFile("/a", "a");
    files.addFile("/b", "b");
    EXPECT_EQ(files.renameWithoutReplacing("/a", "/b").error, EEXIST);
    EXPECT_EQ(files.contents("/b"), "b");
    EXPECT_FALSE(files.rename("/a", "/b").failed());
    EXPECT_EQ(files.contents("/b"), "a");
    EXPECT_FALSE(files.contents("/a").has_value());
}

TEST(InMemoryFileSystem, LosesInACrashWhatWasNotSynced) {
    InMemoryFileSystem files;
    files.addFile("/synced", "earlier");
    const int written = openForWriting(files, "/new");
    (void)files.write(written, "hello", 5);
    (void)files.rename("/synced", "/renamed");
    files.crash({});
    EXPECT_FALSE(files.contents("/new").has_value());
    EXPECT_FALSE(files.contents("/renamed").has_value());
    EXPECT_EQ(files.contents("/synced"), "earlier");
    EXPECT_EQ(files.openDescriptors(), 0U);
}

TEST(InMemoryFileSystem, TearsInACrashBytesThatWereNotSyncedUnderANameThatWas) {
    InMemoryFileSystem files;
    const int file = openForWriting(files, "/new");
    (void)files.write(file, "hello", 5);
    files.crash({.keepsNames = true, .keptBytes = 2});
    EXPECT_EQ(files.contents("/new"), "he");
}

TEST(InMemoryFileSystem, KeepsThroughACrashWhatWasSynced) {
    InMemoryFileSystem files;
    const int file = openForWriting(files, "/new");
    (void)files.write(file, "hello", 5);
    (void)files.sync(file);
    const int root = static_cast<int>(files.open("/", O_RDONLY | O_DIRECTORY, 0).value);
    (void)files.sync(root);
    files.crash({});
    EXPECT_EQ(files.contents("/new"), "hello");
}

TEST(InMemoryFileSystem, CountsCallsByKind) {
    InMemoryFileSystem files;
    files.addFile("/a", "x");
    (void)files.unlink("/a");
    (void)files.unlink("/a");
    EXPECT_EQ(files.count(Call::unlink), 2);
    EXPECT_EQ(files.count(Call::rename), 0);
}

} // namespace
} // namespace oakfen
