#include "Oakfen/Platform/SingleInstance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/file.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/OakfenCore/Support/Files/Mounts.h"

namespace oakfen {
namespace {

using AtTheEnd = DataFileLock::AtTheEnd;
using State = DataFileLock::State;
using ::testing::HasSubstr;

class SingleInstanceTest : public ::testing::Test {
protected:
    SingleInstanceTest() : before_(qgetenv("XDG_RUNTIME_DIR")) {
        QDir(folder.path()).mkdir(QStringLiteral("run"));
        QFile::setPermissions(folder.filePath(QStringLiteral("run")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        useRuntimeFolder();
    }
    ~SingleInstanceTest() override { qputenv("XDG_RUNTIME_DIR", before_); }

    void useRuntimeFolder() const {
        qputenv("XDG_RUNTIME_DIR", folder.filePath(QStringLiteral("run")).toUtf8());
    }
    [[nodiscard]] std::string path(const char* name) const {
        return utf8(folder.filePath(QString::fromUtf8(name)));
    }
    [[nodiscard]] QStringList names(const char* inside = ".") const {
        return QDir(folder.filePath(QString::fromUtf8(inside)))
            .entryList(QDir::Files | QDir::System | QDir::Hidden);
    }
    /// Puts a note into the lock's file as another computer's program would.
    void holdFromElsewhere(const std::string& note) {
        lock.setFileName(qt(path(".Library.tarnwick.lock")));
        ASSERT_TRUE(lock.open(QFile::ReadWrite));
        lock.write(QByteArray::fromStdString(note));
        lock.flush();
        ASSERT_EQ(::flock(lock.handle(), LOCK_EX | LOCK_NB), 0);
    }

    QTemporaryDir folder;
    QFile lock;

private:
    QByteArray before_;
};

TEST_F(SingleInstanceTest, IsTheFirstOnlyOncePerFile) {
    const SingleInstance first(path("Library.tarnwick"), AtTheEnd::keep);
    const SingleInstance second(path("Library.tarnwick"), AtTheEnd::keep);
    const SingleInstance other(path("Other.tarnwick"), AtTheEnd::keep);
    EXPECT_TRUE(first.isFirst());
    EXPECT_FALSE(second.isFirst());
    EXPECT_TRUE(other.isFirst());
}

TEST_F(SingleInstanceTest, DoesNotDependOnTheEnvironmentOfAStart) {
    const SingleInstance first(path("Library.tarnwick"), AtTheEnd::keep);
    qunsetenv("XDG_RUNTIME_DIR");
    EXPECT_FALSE(SingleInstance(path("Library.tarnwick"), AtTheEnd::keep).isFirst());
    qputenv("XDG_RUNTIME_DIR", "/nowhere");
    EXPECT_FALSE(SingleInstance(path("Library.tarnwick"), AtTheEnd::keep).isFirst());
    QFile::setPermissions(folder.filePath(QStringLiteral("run")), QFile::Permissions(0x7777));
    useRuntimeFolder();
    EXPECT_FALSE(SingleInstance(path("Library.tarnwick"), AtTheEnd::keep).isFirst());
}

TEST_F(SingleInstanceTest, KnowsAFileByEveryPathThatLeadsToIt) {
    QFile::link(qt(path("Library.tarnwick")), qt(path("link.tarnwick")));
    const SingleInstance first(path("Library.tarnwick"), AtTheEnd::keep);
    EXPECT_FALSE(SingleInstance(path("run/.././Library.tarnwick"), AtTheEnd::keep).isFirst());
    EXPECT_FALSE(SingleInstance(path("link.tarnwick"), AtTheEnd::keep).isFirst());
}

TEST_F(SingleInstanceTest, LetsTheNextOneInWhenTheFirstIsGone) {
    { const SingleInstance first(path("Library.tarnwick"), AtTheEnd::keep); }
    EXPECT_TRUE(SingleInstance(path("Library.tarnwick"), AtTheEnd::keep).isFirst());
}

TEST_F(SingleInstanceTest, LeavesNothingBesideAFileThatWasNamed) {
    {
        const SingleInstance first(path("Named.tarnwick"), AtTheEnd::remove);
        EXPECT_EQ(names(), QStringList{QStringLiteral(".Named.tarnwick.lock")});
        const SingleInstance second(path("Named.tarnwick"), AtTheEnd::remove);
        EXPECT_FALSE(second.isFirst());
    }
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(SingleInstanceTest, MakesAFolderForThePersonsUsualFileOnly) {
    { const SingleInstance usual(path("new/Library.tarnwick"), AtTheEnd::keep); }
    EXPECT_TRUE(QDir(qt(path("new"))).exists());
    EXPECT_FALSE(QFile::permissions(qt(path("new"))) & (QFile::ReadGroup | QFile::ReadOther));
    { const SingleInstance named(path("other/Library.tarnwick"), AtTheEnd::remove); }
    EXPECT_FALSE(QDir(qt(path("other"))).exists());
}

TEST_F(SingleInstanceTest, TellsNothingOfTheFileInTheNameOfItsSocket) {
    const SingleInstance first(path("Library.tarnwick"), AtTheEnd::keep);
    const QStringList sockets = names("run");
    ASSERT_EQ(sockets.size(), 1);
    EXPECT_FALSE(sockets.first().contains(QStringLiteral("Library")));
}

TEST_F(SingleInstanceTest, RaisesTheFirstWindowAndHandsAStatementOver) {
    SingleInstance first(path("Library.tarnwick"), AtTheEnd::keep);
    QEventLoop loop;
    std::vector<std::string> asked;
    first.listen([&](const std::string& statement) {
        asked.push_back(statement);
        loop.quit();
    });
    std::optional<std::string> problem = "not run";
    // From an environment in which the first one's socket would not be looked for.
    qunsetenv("XDG_RUNTIME_DIR");
    const std::unique_ptr<QThread> second(QThread::create([&] {
        const SingleInstance instance(path("Library.tarnwick"), AtTheEnd::keep);
        problem = instance.presentFirst("/home/ann/bank statement.csv");
    }));
    second->start();
    loop.exec();
    QCoreApplication::processEvents();
    second->wait();
    EXPECT_FALSE(problem) << *problem;
    EXPECT_THAT(asked, ::testing::ElementsAre("/home/ann/bank statement.csv"));
}

TEST_F(SingleInstanceTest, SaysOnWhichComputerTheFileIsOpen) {
    holdFromElsewhere("Oakfen has the data file beside this open.\nanother-kernel\nstudy-pc\n"
                      "/run/user/1000/oakfen.socket\n");
    const SingleInstance instance(path("Library.tarnwick"), AtTheEnd::keep);
    EXPECT_FALSE(instance.isFirst());
    EXPECT_EQ(instance.presentFirst(""), "“Library.tarnwick” is open on the computer “study-pc”. "
                                         "Quit Oakfen there first.");
}

TEST_F(SingleInstanceTest, OpensWhereAnOldLockWasLeftBehind) {
    QFile left(qt(path(".Library.tarnwick.lock")));
    ASSERT_TRUE(left.open(QFile::WriteOnly));
    left.write("Oakfen has the data file beside this open.\nanother-kernel\nstudy-pc\n/x\n");
    left.close();
    EXPECT_TRUE(SingleInstance(path("Library.tarnwick"), AtTheEnd::keep).isFirst());
}

TEST_F(SingleInstanceTest, GoesOnWithoutALockWhereNoneIsToBeHad) {
    // A folder in the lock's place stands for every file that can't be opened.
    QDir(folder.path()).mkdir(QStringLiteral(".Library.tarnwick.lock"));
    const DataFileLock taken(path("Library.tarnwick"), AtTheEnd::keep);
    EXPECT_EQ(taken.state(), State::unavailable);
    EXPECT_TRUE(SingleInstance(path("Library.tarnwick"), AtTheEnd::keep).isFirst());
}

TEST_F(SingleInstanceTest, GoesOnWithoutALockInAReadOnlyFolder) {
    if (!Mount::isPossible()) {
        GTEST_SKIP() << "only the superuser may mount a folder read-only";
    }
    const Mount mount = Mount::readOnly(utf8(folder.path()));
    ASSERT_TRUE(mount.isMounted());
    const DataFileLock taken(path("Library.tarnwick"), AtTheEnd::remove);
    EXPECT_EQ(taken.state(), State::unavailable);
}

} // namespace
} // namespace oakfen
