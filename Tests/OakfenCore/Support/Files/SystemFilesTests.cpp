#include <cerrno>
#include <fstream>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "Tests/OakfenCore/Support/Files/FileSystemFilter.h"
#include "Tests/OakfenCore/Support/Files/TemporaryFolder.h"

namespace oakfen {
namespace {

namespace filesystem = std::filesystem;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const FileError& error) {
        return error.code();
    }
    return 0;
}

void make(const std::string& path, const std::string& contents) {
    std::ofstream(path, std::ios::binary) << contents;
}

TEST(SystemFiles, ReadBackWhatWasWritten) {
    const TemporaryFolder folder;
    std::string bytes(300'000, 'x');
    bytes[1] = '\0';
    writeOwnerOnly(systemFiles(), bytes, folder / "a");
    EXPECT_EQ(readFile(systemFiles(), folder / "a"), bytes);
}

TEST(SystemFiles, WriteForTheOwnerAloneIntoFoldersOfTheOwnerAlone) {
    const TemporaryFolder folder;
    writeOwnerOnly(systemFiles(), "x", folder / "one/two/a");
    EXPECT_EQ(fileInformation(systemFiles(), folder / "one/two/a")->permissions, 0600U);
    EXPECT_EQ(fileInformation(systemFiles(), folder / "one/two")->permissions, 0700U);
    EXPECT_EQ(fileInformation(systemFiles(), folder / "one")->permissions, 0700U);
}

TEST(SystemFiles, ReplaceAnEarlierFileAndLeaveNothingBesideIt) {
    const TemporaryFolder folder;
    make(folder / "a", "earlier");
    filesystem::permissions(folder / "a", filesystem::perms(0644));
    writeOwnerOnly(systemFiles(), "later", folder / "a");
    EXPECT_EQ(readFile(systemFiles(), folder / "a"), "later");
    EXPECT_EQ(fileInformation(systemFiles(), folder / "a")->permissions, 0600U);
    std::vector<std::string> names;
    EXPECT_FALSE(systemFiles().list(folder.path(), names).failed());
    EXPECT_THAT(names, UnorderedElementsAre("a"));
}

TEST(SystemFiles, WriteTheTargetOfARelativeLink) {
    const TemporaryFolder folder;
    filesystem::create_directory(folder / "inner");
    filesystem::create_symlink("../real", folder / "inner/link");
    writeOwnerOnly(systemFiles(), "x", folder / "inner/link");
    EXPECT_TRUE(filesystem::is_symlink(folder / "inner/link"));
    EXPECT_EQ(readFile(systemFiles(), folder / "real"), "x");
}

TEST(SystemFiles, RefuseToWriteThroughLinksInACircle) {
    const TemporaryFolder folder;
    filesystem::create_symlink("b", folder / "a");
    filesystem::create_symlink("a", folder / "b");
    EXPECT_EQ(errorOf([&] { writeOwnerOnly(systemFiles(), "x", folder / "a"); }), ELOOP);
}

TEST(SystemFiles, RefuseToWriteOverAFolder) {
    const TemporaryFolder folder;
    filesystem::create_directory(folder / "a");
    EXPECT_EQ(errorOf([&] { writeOwnerOnly(systemFiles(), "x", folder / "a"); }), EISDIR);
    EXPECT_EQ(std::distance(filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(SystemFiles, ReadAnEmptyFile) {
    const TemporaryFolder folder;
    make(folder / "a", "");
    EXPECT_EQ(readFile(systemFiles(), folder / "a"), "");
}

TEST(SystemFiles, RefuseToReadAFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { (void)readFile(systemFiles(), folder.path()); }), EISDIR);
}

TEST(SystemFiles, RefuseANamedPipeWithoutWaitingForIt) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { (void)readFile(systemFiles(), folder / "pipe"); }), EINVAL);
}

TEST(SystemFiles, ReadAFileThatClaimsToBeEmpty) {
    EXPECT_THAT(readFile(systemFiles(), "/proc/self/status"), HasSubstr("Pid:"));
}

TEST(SystemFiles, SayWhichFileIsMissing) {
    const TemporaryFolder folder;
    try {
        (void)readFile(systemFiles(), folder / "Library.tarnwick");
        FAIL() << "nothing was thrown";
    } catch (const FileError& error) {
        EXPECT_EQ(error.localizedDescription(),
                  "“Library.tarnwick” couldn’t be opened: it isn’t there");
        EXPECT_EQ(error.code(), ENOENT);
    }
}

std::string messageOnReading(const std::string& path) {
    try {
        (void)readFile(systemFiles(), path);
    } catch (const FileError& error) {
        return error.localizedDescription();
    }
    return "";
}

TEST(SystemFiles, NameAFileWithEscapesForWhatCannotBeSeen) {
    const TemporaryFolder folder;
    EXPECT_EQ(messageOnReading(folder / "a\nb\xFF\x1B[31m"),
              "“a\\nb\\xFF\\u001B[31m” couldn’t be opened: it isn’t there");
    EXPECT_THAT(messageOnReading(folder / std::string(250, 'n')),
                ::testing::StartsWith("“" + std::string(80, 'n') + "…” couldn’t"));
    ASSERT_EQ(::mkfifo((folder / "pipe\r").c_str(), 0600), 0);
    EXPECT_EQ(messageOnReading(folder / "pipe\r"),
              "“pipe\\r” couldn’t be read: it isn’t a regular file");
}

TEST(SystemFiles, KnowWhatIsThere) {
    const TemporaryFolder folder;
    make(folder / "a", "hello");
    EXPECT_TRUE(fileInformation(systemFiles(), folder.path())->isFolder);
    EXPECT_TRUE(fileInformation(systemFiles(), folder / "a")->isRegularFile);
    EXPECT_EQ(fileInformation(systemFiles(), folder / "a")->size, 5U);
    EXPECT_FALSE(fileInformation(systemFiles(), folder / "b").has_value());
    EXPECT_FALSE(fileInformation(systemFiles(), folder / "a/b").has_value());
}

TEST(SystemFiles, MoveAFileOnlyToANameThatIsFree) {
    const TemporaryFolder folder;
    make(folder / "a", "a");
    make(folder / "b", "b");
    EXPECT_EQ(errorOf([&] { moveFile(systemFiles(), folder / "a", folder / "b"); }), EEXIST);
    EXPECT_EQ(readFile(systemFiles(), folder / "b"), "b");
    moveFile(systemFiles(), folder / "a", folder / "c");
    EXPECT_EQ(readFile(systemFiles(), folder / "c"), "a");
    EXPECT_FALSE(fileExists(systemFiles(), folder / "a"));
}

TEST(SystemFiles, KnowThePathWithoutLinks) {
    const TemporaryFolder folder;
    const std::string real = filesystem::canonical(folder.path());
    filesystem::create_directory(folder / "inner");
    filesystem::create_symlink("inner", folder / "link");
    EXPECT_EQ(canonicalPath(systemFiles(), folder / "link/.//absent"), real + "/inner/absent");
    EXPECT_EQ(canonicalPath(systemFiles(), folder / "link/../x"), real + "/x");
}

TEST(ReadFile, SaysThatPermissionIsMissing) {
    InMemoryFileSystem files;
    files.addFile("/a", "x", 0000);
    try {
        (void)readFile(files, "/a");
        FAIL() << "nothing was thrown";
    } catch (const FileError& error) {
        EXPECT_EQ(error.localizedDescription(),
                  "“a” couldn’t be opened: you don’t have permission");
    }
}

TEST(ReadFile, GoesOnAfterShortReadsAndInterruptions) {
    InMemoryFileSystem files;
    files.addFile("/a", "hello");
    files.setLargestTransfer(2);
    for (int number = 1; number <= 6; ++number) {
        files.failCall(number, EINTR);
        EXPECT_EQ(readFile(files, "/a"), "hello");
    }
}

TEST(ReadFile, GivesTheWholeFileOrThrowsWhicheverCallFails) {
    for (int number = 1;; ++number) {
        InMemoryFileSystem files;
        files.addFile("/a", "hello");
        files.setLargestTransfer(2);
        files.failCall(number, EIO);
        const int error = errorOf([&] { EXPECT_EQ(readFile(files, "/a"), "hello"); });
        EXPECT_EQ(files.openDescriptors(), 0U);
        if (!files.hasFailed()) {
            EXPECT_EQ(error, 0);
            break;
        }
    }
}

TEST(ReadFile, RefusesAFileThatNoMemoryCouldHold) {
    class VastFiles final : public FileSystemFilter {
    public:
        using FileSystemFilter::FileSystemFilter;
        Result descriptorInformation(int descriptor, FileInformation& into) override {
            const Result known = FileSystemFilter::descriptorInformation(descriptor, into);
            into.size = size;
            return known;
        }
        std::uint64_t size = 0;
    };
    InMemoryFileSystem memory;
    memory.addFile("/a", "hello");
    VastFiles files(memory);
#ifndef __SANITIZE_ADDRESS__ // which ends the program at such a demand instead of refusing it
    files.size = std::uint64_t{1} << 60U;
    EXPECT_EQ(errorOf([&] { (void)readFile(files, "/a"); }), ENOMEM);
#endif
    files.size = std::numeric_limits<std::uint64_t>::max() - 1;
    EXPECT_EQ(errorOf([&] { (void)readFile(files, "/a"); }), EFBIG);
    EXPECT_EQ(memory.openDescriptors(), 0U);
}

TEST(FileExists, IsFalseWhenThatCannotBeTold) {
    InMemoryFileSystem files;
    files.addFile("/a", "x");
    EXPECT_TRUE(fileExists(files, "/a"));
    files.failAll(InMemoryFileSystem::Call::information, EIO);
    EXPECT_FALSE(fileExists(files, "/a"));
    EXPECT_EQ(errorOf([&] { (void)fileInformation(files, "/a"); }), EIO);
}

TEST(CanonicalPath, KeepsARelativePathRelative) {
    InMemoryFileSystem files;
    EXPECT_EQ(canonicalPath(files, "a/../../b"), "../b");
    EXPECT_EQ(canonicalPath(files, "a/.."), ".");
}

TEST(CanonicalPath, StaysBelowTheRoot) {
    InMemoryFileSystem files;
    EXPECT_EQ(canonicalPath(files, "/../../a/./b/"), "/a/b");
    EXPECT_EQ(canonicalPath(files, "/"), "/");
}

} // namespace
} // namespace oakfen
