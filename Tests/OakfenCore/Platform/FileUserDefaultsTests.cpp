#include <cerrno>

#include <gtest/gtest.h>

#include "OakfenCore/Platform/FileUserDefaults.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "OakfenCore/Testing/ManualScheduler.h"
#include "Tests/OakfenCore/Platform/SteppedScheduler.h"

namespace oakfen {
namespace {

using Call = InMemoryFileSystem::Call;

class FileUserDefaultsTest : public testing::Test {
protected:
    static constexpr const char* path = "/home/user/.config/Oakfen/Oakfen.conf";

    [[nodiscard]] FileUserDefaults open() { return {files, scheduler, path}; }

    InMemoryFileSystem files;
    ManualScheduler scheduler;
};

TEST_F(FileUserDefaultsTest, AreEmptyWithoutAFileAndWriteNone) {
    const FileUserDefaults defaults = open();
    EXPECT_FALSE(defaults.string("key").has_value());
    EXPECT_FALSE(files.contents(path).has_value());
}

TEST_F(FileUserDefaultsTest, WriteABurstOfChangesOnceForTheOwnerAlone) {
    FileUserDefaults defaults = open();
    defaults.setString("reportRange", "This Year");
    scheduler.advance(0.4);
    defaults.set(settings::requireAuthentication, true);
    EXPECT_FALSE(files.contents(path).has_value());
    scheduler.advance(0.1);
    EXPECT_EQ(files.contents(path), "reportRange=This Year\nrequireAuthentication=true\n");
    EXPECT_EQ(files.permissions(path), 0600U);
    EXPECT_EQ(files.count(Call::rename), 1);
}

TEST_F(FileUserDefaultsTest, WriteAtOnceWhenTheyAreSettled) {
    FileUserDefaults defaults = open();
    defaults.setString("a", "1");
    defaults.settle();
    EXPECT_EQ(files.contents(path), "a=1\n");
    scheduler.advance(1);
    EXPECT_EQ(files.count(Call::rename), 1);
}

TEST_F(FileUserDefaultsTest, WriteWhatIsHeldAtTheEnd) {
    open().setString("a", "1");
    EXPECT_EQ(files.contents(path), "a=1\n");
    EXPECT_EQ(scheduler.waitingTimers(), 0U);
}

TEST_F(FileUserDefaultsTest, AreThereAtTheNextStart) {
    open().set(settings::autoBackupKeep, 5);
    EXPECT_EQ(open().get(settings::autoBackupKeep), 5);
}

TEST_F(FileUserDefaultsTest, KeepAnyKeyAndAnyValue) {
    const std::string key = "dataFileUnencrypted:/odd=name/#1\\n\nnew\rline";
    const std::string value = " =a\\b\n\r#c=\\n ";
    open().setString(key, value);
    open().setString("#other", "x");
    EXPECT_EQ(open().string(key), value);
    EXPECT_EQ(open().string("#other"), "x");
}

TEST_F(FileUserDefaultsTest, TellAnEmptyValueFromNone) {
    open().setString("key", "");
    EXPECT_EQ(open().string("key"), "");
}

TEST_F(FileUserDefaultsTest, ChangeALineInItsPlaceAndKeepTheRest) {
    files.addFile(path, "# by hand\n[General]\na=1\n\nb=2\nc=3");
    FileUserDefaults defaults = open();
    defaults.setString("b", "20");
    defaults.settle();
    EXPECT_EQ(files.contents(path), "# by hand\n[General]\na=1\n\nb=20\nc=3\n");
}

TEST_F(FileUserDefaultsTest, RemoveALine) {
    files.addFile(path, "a=1\nb=2\n");
    FileUserDefaults defaults = open();
    defaults.remove("a");
    EXPECT_FALSE(defaults.string("a").has_value());
    defaults.settle();
    EXPECT_EQ(files.contents(path), "b=2\n");
    EXPECT_FALSE(open().string("a").has_value());
}

TEST_F(FileUserDefaultsTest, ReadTheLastOfTwoLinesWithOneKeyAndWriteOne) {
    files.addFile(path, "a=1\na=2\n");
    FileUserDefaults defaults = open();
    EXPECT_EQ(defaults.string("a"), "2");
    defaults.setString("a", "3");
    defaults.settle();
    EXPECT_EQ(files.contents(path), "a=3\n");
}

TEST_F(FileUserDefaultsTest, WriteNothingWhenNothingChanges) {
    FileUserDefaults defaults = open();
    defaults.setString("a", "1");
    scheduler.advance(1);
    defaults.setString("a", "1");
    defaults.remove("b");
    scheduler.advance(1);
    EXPECT_EQ(files.count(Call::rename), 1);
}

TEST_F(FileUserDefaultsTest, HoldAValueThatCouldNotBeWrittenAndWriteItWithTheNext) {
    FileUserDefaults defaults = open();
    files.failAll(Call::write, ENOSPC);
    defaults.setString("a", "1");
    scheduler.advance(1);
    EXPECT_EQ(defaults.string("a"), "1");
    EXPECT_FALSE(files.contents(path).has_value());
    files.stopFailing();
    defaults.setString("b", "2");
    scheduler.advance(1);
    EXPECT_EQ(files.contents(path), "a=1\nb=2\n");
}

TEST_F(FileUserDefaultsTest, TryAgainWhenTheSameValueIsSetAgain) {
    FileUserDefaults defaults = open();
    files.failAll(Call::write, ENOSPC);
    defaults.setString("a", "1");
    scheduler.advance(1);
    files.stopFailing();
    defaults.setString("a", "1");
    scheduler.advance(1);
    EXPECT_EQ(files.contents(path), "a=1\n");
}

TEST_F(FileUserDefaultsTest, NeverWriteOverAFileThatCouldNotBeRead) {
    files.addFile(path, "a=1\n");
    files.failAll(Call::read, EIO);
    FileUserDefaults defaults = open();
    EXPECT_FALSE(defaults.string("a").has_value());
    defaults.setString("b", "2");
    defaults.settle();
    EXPECT_EQ(files.contents(path), "a=1\n");
    EXPECT_EQ(defaults.string("b"), "2");
    files.stopFailing();
    defaults.setString("c", "3");
    defaults.settle();
    EXPECT_EQ(files.contents(path), "a=1\nb=2\nc=3\n");
}

TEST_F(FileUserDefaultsTest, LeaveWhatAnotherProgramWroteMeanwhile) {
    FileUserDefaults one = open();
    FileUserDefaults other = open();
    one.setString("a", "1");
    other.setString("b", "2");
    scheduler.advance(1);
    EXPECT_EQ(files.contents(path), "a=1\nb=2\n");
}

TEST_F(FileUserDefaultsTest, TellOfAChangeEvenWhenItCouldNotBeWritten) {
    FileUserDefaults defaults = open();
    int changes = 0;
    const Subscription subscription =
        defaults.observe(Setting<std::string_view>{"a", ""}, [&] { ++changes; });
    files.failAll(Call::write, ENOSPC);
    defaults.setString("a", "1");
    defaults.setString("a", "1");
    EXPECT_EQ(changes, 1);
}

class SteppedUserDefaultsTest : public FileUserDefaultsTest {
protected:
    SteppedScheduler steps;
    FileUserDefaults defaults{files, steps, path};
};

TEST_F(SteppedUserDefaultsTest, WriteOnAWorkerOnly) {
    defaults.setString("a", "1");
    steps.fireTimer();
    EXPECT_FALSE(files.contents(path).has_value());
    steps.runWorks();
    EXPECT_EQ(files.contents(path), "a=1\n");
}

TEST_F(SteppedUserDefaultsTest, WriteAfterwardsWhatChangedMeanwhile) {
    defaults.setString("a", "1");
    steps.fireTimer();
    defaults.setString("a", "2");
    steps.fireTimer();
    EXPECT_EQ(steps.works.size(), 1U) << "one write at a time";
    steps.runWorks();
    steps.tellMainThread();
    EXPECT_EQ(files.contents(path), "a=1\n");
    steps.fireTimer();
    steps.runWorks();
    EXPECT_EQ(files.contents(path), "a=2\n");
}

TEST_F(SteppedUserDefaultsTest, NeverLetAnOlderWriteFollowANewerOne) {
    defaults.setString("a", "1");
    steps.fireTimer();
    defaults.setString("a", "2");
    defaults.settle();
    EXPECT_EQ(files.contents(path), "a=2\n");
    steps.runWorks();
    steps.tellMainThread();
    EXPECT_EQ(files.contents(path), "a=2\n");
}

TEST_F(SteppedUserDefaultsTest, WriteNothingAgainThatTheWorkerHasWritten) {
    defaults.setString("a", "1");
    steps.fireTimer();
    steps.runWorks();
    defaults.settle();
    steps.tellMainThread();
    EXPECT_EQ(files.count(Call::rename), 1);
}

TEST_F(FileUserDefaultsTest, ReadsAsBeforeOrAsAfterWhicheverCallFails) {
    for (int number = 1;; ++number) {
        files.addFile(path, "a=1\n");
        FileUserDefaults defaults = open();
        files.failCall(number, EIO, InMemoryFileSystem::Repeat::fromThenOn);
        defaults.setString("a", "2");
        defaults.settle();
        EXPECT_EQ(defaults.string("a"), "2");
        const bool failed = files.hasFailed();
        files.stopFailing();
        const auto stored = open().string("a");
        EXPECT_TRUE(stored == "1" || stored == "2");
        if (!failed) {
            EXPECT_EQ(stored, "2");
            break;
        }
    }
}

} // namespace
} // namespace oakfen
