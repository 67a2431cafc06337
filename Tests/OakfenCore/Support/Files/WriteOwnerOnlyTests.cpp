#include <cerrno>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"

namespace oakfen {
namespace {

using Call = InMemoryFileSystem::Call;
using Repeat = InMemoryFileSystem::Repeat;

const std::string folder = "/home/user/data/Tarnwick";
const std::string path = folder + "/Library.tarnwick";
const std::string temporaryPath = folder + "/.Library.tarnwick.saving";
const std::string earlier = "the earlier content";
const std::string later = "a later content that is a good deal longer";

/// A home with an earlier file in it.
InMemoryFileSystem filesWithEarlier() {
    InMemoryFileSystem files;
    files.addFile(path, earlier, 0644);
    return files;
}

bool writes(InMemoryFileSystem& files, const std::string& bytes) {
    try {
        writeOwnerOnly(files, bytes, path);
        return true;
    } catch (const FileError&) {
        return false;
    }
}

/// Runs `check` for each number of a failing call, until none fails any more.
void sweep(int error, Repeat repeat, bool startsEmpty,
           const std::function<void(InMemoryFileSystem&, bool succeeded)>& check) {
    for (int number = 1;; ++number) {
        InMemoryFileSystem files;
        files.addFolder("/home/user");
        if (!startsEmpty) {
            files.addFile(path, earlier);
        }
        files.setLargestTransfer(16);
        files.failCall(number, error, repeat);
        const bool succeeded = writes(files, later);
        SCOPED_TRACE("call " + std::to_string(number));
        check(files, succeeded);
        if (!files.hasFailed()) {
            EXPECT_TRUE(succeeded);
            ASSERT_GT(number, 10);
            return;
        }
    }
}

TEST(WriteOwnerOnly, WritesANewFileForTheOwnerAlone) {
    InMemoryFileSystem files;
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.contents(path), later);
    EXPECT_EQ(files.permissions(path), 0600U);
}

TEST(WriteOwnerOnly, MakesMissingFoldersForTheOwnerAlone) {
    InMemoryFileSystem files;
    files.addFolder("/home/user", 0755);
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.permissions(folder), 0700U);
    EXPECT_EQ(files.permissions("/home/user/data"), 0700U);
}

TEST(WriteOwnerOnly, LeavesThePermissionsOfAnExistingFolder) {
    InMemoryFileSystem files;
    files.addFolder(folder, 0750);
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.permissions(folder), 0750U);
}

TEST(WriteOwnerOnly, TakesAFileThatOthersCouldReadAway) {
    InMemoryFileSystem files = filesWithEarlier();
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.contents(path), later);
    EXPECT_EQ(files.permissions(path), 0600U);
}

TEST(WriteOwnerOnly, ReplacesAFileThatMayNotBeWritten) {
    InMemoryFileSystem files;
    files.addFile(path, earlier, 0400);
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.contents(path), later);
    EXPECT_EQ(files.permissions(path), 0600U);
}

TEST(WriteOwnerOnly, WritesNothingAtAll) {
    InMemoryFileSystem files = filesWithEarlier();
    writeOwnerOnly(files, "", path);
    EXPECT_EQ(files.contents(path), "");
}

TEST(WriteOwnerOnly, GoesOnAfterShortWrites) {
    InMemoryFileSystem files = filesWithEarlier();
    files.setLargestTransfer(1);
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.contents(path), later);
    EXPECT_EQ(files.count(Call::write), static_cast<int>(later.size()));
}

TEST(WriteOwnerOnly, LeavesNothingBesideTheFile) {
    InMemoryFileSystem files = filesWithEarlier();
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.names(folder), std::vector<std::string>{"Library.tarnwick"});
    EXPECT_EQ(files.openDescriptors(), 0U);
}

TEST(WriteOwnerOnly, RemovesWhatAKilledSaveLeft) {
    InMemoryFileSystem files = filesWithEarlier();
    files.addFile(temporaryPath, "half of a l");
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.names(folder), std::vector<std::string>{"Library.tarnwick"});
    EXPECT_EQ(files.contents(path), later);
}

TEST(WriteOwnerOnly, WritesThroughNoLinkInPlaceOfItsTemporaryFile) {
    InMemoryFileSystem files = filesWithEarlier();
    files.addFile("/home/user/precious", "precious");
    files.addLink(temporaryPath, "/home/user/precious");
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.contents("/home/user/precious"), "precious");
    EXPECT_EQ(files.contents(path), later);
}

TEST(WriteOwnerOnly, WritesTheTargetOfALink) {
    InMemoryFileSystem files;
    files.addFile("/elsewhere/real.tarnwick", earlier);
    files.addLink(path, "/elsewhere/real.tarnwick");
    writeOwnerOnly(files, later, path);
    EXPECT_TRUE(files.isLink(path));
    EXPECT_FALSE(files.isLink("/elsewhere/real.tarnwick"));
    EXPECT_EQ(files.contents("/elsewhere/real.tarnwick"), later);
    EXPECT_EQ(files.names("/elsewhere"), std::vector<std::string>{"real.tarnwick"});
}

TEST(WriteOwnerOnly, FollowsARelativeLinkFromItsOwnFolder) {
    InMemoryFileSystem files;
    files.addFile("/home/user/real.tarnwick", earlier);
    files.addLink(path, "../../real.tarnwick");
    writeOwnerOnly(files, later, path);
    EXPECT_TRUE(files.isLink(path));
    EXPECT_EQ(files.contents("/home/user/real.tarnwick"), later);
}

TEST(WriteOwnerOnly, FollowsALinkToALinkedFolder) {
    InMemoryFileSystem files;
    files.addFolder("/disk/money");
    files.addLink("/home/user/vault", "/disk/money");
    files.addLink(path, "../../vault/real.tarnwick");
    writeOwnerOnly(files, later, path);
    EXPECT_EQ(files.contents("/disk/money/real.tarnwick"), later);
}

TEST(WriteOwnerOnly, MakesTheFileThatALinkLeadsToInVain) {
    InMemoryFileSystem files;
    files.addLink(path, "/elsewhere/deeper/real.tarnwick");
    writeOwnerOnly(files, later, path);
    EXPECT_TRUE(files.isLink(path));
    EXPECT_EQ(files.contents("/elsewhere/deeper/real.tarnwick"), later);
    EXPECT_EQ(files.permissions("/elsewhere/deeper"), 0700U);
}

TEST(WriteOwnerOnly, RefusesLinksThatGoRoundInACircle) {
    InMemoryFileSystem files;
    files.addLink(path, "other");
    files.addLink(folder + "/other", "Library.tarnwick");
    try {
        writeOwnerOnly(files, later, path);
        FAIL() << "nothing was thrown";
    } catch (const FileError& error) {
        EXPECT_EQ(error.code(), ELOOP);
    }
    EXPECT_TRUE(files.isLink(path));
}

TEST(WriteOwnerOnly, RefusesAFolderInPlaceOfTheFile) {
    InMemoryFileSystem files;
    files.addFolder(path);
    EXPECT_THROW(writeOwnerOnly(files, later, path), FileError);
    EXPECT_EQ(files.names(folder), std::vector<std::string>{"Library.tarnwick"});
}

TEST(WriteOwnerOnly, ManagesANameAsLongAsNamesMayBe) {
    InMemoryFileSystem files;
    const std::string longPath = folder + "/" + std::string(255, 'n');
    writeOwnerOnly(files, later, longPath);
    EXPECT_EQ(files.contents(longPath), later);
}

TEST(WriteOwnerOnly, NamesTheFileAndTheReason) {
    InMemoryFileSystem files = filesWithEarlier();
    files.setFreeSpace(5);
    try {
        writeOwnerOnly(files, later, path);
        FAIL() << "nothing was thrown";
    } catch (const FileError& error) {
        EXPECT_EQ(error.localizedDescription(),
                  "“Library.tarnwick” couldn’t be saved: the disk is full");
        EXPECT_EQ(error.code(), ENOSPC);
    }
}

TEST(WriteOwnerOnly, KeepsTheEarlierFileOnAFullDisk) {
    InMemoryFileSystem files = filesWithEarlier();
    files.setFreeSpace(5);
    EXPECT_FALSE(writes(files, later));
    EXPECT_EQ(files.contents(path), earlier);
    EXPECT_EQ(files.names(folder), std::vector<std::string>{"Library.tarnwick"});
}

TEST(WriteOwnerOnly, KeepsTheEarlierFileWhenTheFolderMayNotBeWritten) {
    InMemoryFileSystem files = filesWithEarlier();
    files.setPermissions(folder, 0500);
    EXPECT_FALSE(writes(files, later));
    EXPECT_EQ(files.contents(path), earlier);
}

TEST(WriteOwnerOnly, FailsWhenTheSyncFails) {
    InMemoryFileSystem files = filesWithEarlier();
    files.failAll(Call::sync, EIO);
    EXPECT_FALSE(writes(files, later));
    EXPECT_EQ(files.contents(path), earlier);
    EXPECT_EQ(files.names(folder), std::vector<std::string>{"Library.tarnwick"});
}

TEST(WriteOwnerOnly, FailsWhenClosingFails) {
    InMemoryFileSystem files = filesWithEarlier();
    files.failAll(Call::close, EDQUOT);
    EXPECT_FALSE(writes(files, later));
    EXPECT_EQ(files.contents(path), earlier);
}

TEST(WriteOwnerOnly, TellsThatThePermissionsCouldNotBeSetThoughTheBytesAreInPlace) {
    InMemoryFileSystem files = filesWithEarlier();
    files.failAll(Call::setPermissions, EPERM);
    EXPECT_FALSE(writes(files, later));
    EXPECT_EQ(files.contents(path), later);
}

TEST(WriteOwnerOnly, HoldsTheEarlierOrTheLaterFileWhicheverCallFails) {
    for (const int error : {EIO, ENOSPC, EINTR, EACCES}) {
        for (const Repeat repeat : {Repeat::once, Repeat::fromThenOn}) {
            if (error == EINTR && repeat == Repeat::fromThenOn) {
                continue; // An endless interruption is waited out without an end.
            }
            sweep(error, repeat, false, [](InMemoryFileSystem& files, bool succeeded) {
                const auto contents = files.contents(path);
                EXPECT_TRUE(contents == earlier || contents == later);
                if (succeeded) {
                    EXPECT_EQ(contents, later);
                }
                EXPECT_EQ(files.openDescriptors(), 0U);
            });
        }
    }
}

TEST(WriteOwnerOnly, LeavesNoTemporaryFileWhicheverCallFailsOnce) {
    sweep(EIO, Repeat::once, false, [](InMemoryFileSystem& files, bool) {
        EXPECT_EQ(files.names(folder), std::vector<std::string>{"Library.tarnwick"});
    });
}

TEST(WriteOwnerOnly, HoldsNothingOrTheWholeNewFileWhicheverCallFails) {
    sweep(EIO, Repeat::fromThenOn, true, [](InMemoryFileSystem& files, bool succeeded) {
        const auto contents = files.contents(path);
        EXPECT_TRUE(!contents || contents == later);
        EXPECT_TRUE(contents || !succeeded);
    });
}

TEST(WriteOwnerOnly, HoldsTheEarlierOrTheLaterFileAfterACrashAtAnyCall) {
    for (const bool keepsNames : {false, true}) {
        for (const std::size_t keptBytes : {std::size_t{0}, std::size_t{7}}) {
            sweep(EIO, Repeat::fromThenOn, false, [&](InMemoryFileSystem& files, bool succeeded) {
                files.crash({.keepsNames = keepsNames, .keptBytes = keptBytes});
                const auto contents = files.contents(path);
                EXPECT_TRUE(contents == earlier || contents == later);
                if (succeeded) {
                    EXPECT_EQ(contents, later);
                }
                EXPECT_TRUE(writes(files, later));
                EXPECT_EQ(files.contents(path), later);
                EXPECT_EQ(files.names(folder), std::vector<std::string>{"Library.tarnwick"});
            });
        }
    }
}

TEST(WriteOwnerOnly, SurvivesACrashTogetherWithTheFoldersThatItMade) {
    InMemoryFileSystem files;
    files.addFolder("/home/user");
    writeOwnerOnly(files, later, path);
    files.crash({});
    EXPECT_EQ(files.contents(path), later);
}

TEST(WriteOwnerOnly, SurvivesACrashInAFolderThatAnEarlierAttemptMadeInVain) {
    InMemoryFileSystem files;
    files.addFolder("/home/user/data");
    files.failCall(Call::sync, 1, EIO);
    EXPECT_FALSE(writes(files, later));
    EXPECT_TRUE(files.permissions(folder).has_value());
    EXPECT_TRUE(writes(files, later));
    files.crash({});
    EXPECT_EQ(files.contents(path), later);
}

TEST(WriteOwnerOnly, MakesDoWithAFileSystemThatCannotSyncFolders) {
    for (const int error : {EINVAL, ENOTSUP}) {
        InMemoryFileSystem files = filesWithEarlier();
        constexpr int folderSync = 2; // The first is the file's.
        files.failCall(Call::sync, folderSync, error);
        EXPECT_TRUE(writes(files, later));
        EXPECT_TRUE(files.hasFailed());
        EXPECT_EQ(files.contents(path), later);
    }
}

TEST(WriteOwnerOnly, TellsThatTheFolderCouldNotBeSyncedThoughTheBytesAreInPlace) {
    InMemoryFileSystem files = filesWithEarlier();
    files.failCall(Call::sync, 2, EIO);
    EXPECT_FALSE(writes(files, later));
    EXPECT_EQ(files.contents(path), later);
}

} // namespace
} // namespace oakfen
