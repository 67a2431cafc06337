#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>

#include "Oakfen/Platform/QtScheduler.h"
#include "Oakfen/Platform/SingleInstance.h"
#include "Oakfen/Platform/UnixSignals.h"
#include "Oakfen/Widgets/Bridge.h"

namespace oakfen {
namespace {

TEST(QtScheduler, RunsWorkLaterOnTheMainThread) {
    QtScheduler scheduler;
    QEventLoop loop;
    QThread* thread = nullptr;
    const ScheduledWork work = scheduler.after(0.001, [&] {
        thread = QThread::currentThread();
        loop.quit();
    });
    EXPECT_EQ(thread, nullptr);
    loop.exec();
    EXPECT_EQ(thread, QCoreApplication::instance()->thread());
}

TEST(QtScheduler, ForgetsWorkWhoseHandleWasDropped) {
    QtScheduler scheduler;
    QEventLoop loop;
    bool ran = false;
    {
        const ScheduledWork dropped = scheduler.after(0, [&] { ran = true; });
    }
    const ScheduledWork last = scheduler.after(0.002, [&] { loop.quit(); });
    loop.exec();
    EXPECT_FALSE(ran);
}

TEST(QtScheduler, LetsWorkDropItsOwnHandle) {
    QtScheduler scheduler;
    QEventLoop loop;
    ScheduledWork work;
    int runs = 0;
    work = scheduler.after(0, [&] {
        work.cancel();
        ++runs;
        loop.quit();
    });
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(runs, 1);
}

TEST(QtScheduler, WorksOnAnotherThreadAndComesBack) {
    QtScheduler scheduler;
    QEventLoop loop;
    QThread* worker = nullptr;
    QThread* after = nullptr;
    const ScheduledWork work = scheduler.background([&] { worker = QThread::currentThread(); },
                                                    [&] {
                                                        after = QThread::currentThread();
                                                        loop.quit();
                                                    });
    loop.exec();
    EXPECT_NE(worker, QCoreApplication::instance()->thread());
    EXPECT_EQ(after, QCoreApplication::instance()->thread());
}

TEST(QtScheduler, DropsTheResultOfWorkThatNobodyWaitsFor) {
    bool cameBack = false;
    bool worked = false;
    {
        QtScheduler scheduler;
        QEventLoop loop;
        {
            const ScheduledWork dropped =
                scheduler.background([&] { worked = true; }, [&] { cameBack = true; });
        }
        const ScheduledWork second = scheduler.background([] {}, [&] { loop.quit(); });
        loop.exec();
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(worked);
    EXPECT_FALSE(cameBack);
}

TEST(UnixSignals, BringASignalToTheMainThread) {
    QEventLoop loop;
    int received = 0;
    const UnixSignals signals([&] {
        ++received;
        loop.quit();
    });
    std::raise(SIGTERM);
    loop.exec();
    EXPECT_EQ(received, 1);
}

class SingleInstanceTest : public ::testing::Test {
protected:
    SingleInstanceTest() : before_(qgetenv("XDG_RUNTIME_DIR")) {
        QFile::setPermissions(folder.path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    }
    ~SingleInstanceTest() override { qputenv("XDG_RUNTIME_DIR", before_); }

    QTemporaryDir folder;

private:
    QByteArray before_;
};

TEST_F(SingleInstanceTest, IsTheFirstOnlyOncePerFile) {
    const SingleInstance first("/home/ann/Library.tarnwick");
    const SingleInstance second("/home/ann/Library.tarnwick");
    const SingleInstance other("/home/ann/Other.tarnwick");
    EXPECT_TRUE(first.isFirst());
    EXPECT_FALSE(second.isFirst());
    EXPECT_TRUE(other.isFirst());
}

TEST_F(SingleInstanceTest, KnowsAFileByEveryPathThatLeadsToIt) {
    const SingleInstance first("/home/ann/Library.tarnwick");
    EXPECT_FALSE(SingleInstance("/home/ann/../ann/./Library.tarnwick").isFirst());
}

TEST_F(SingleInstanceTest, LetsTheNextOneInWhenTheFirstIsGone) {
    { const SingleInstance first("/home/ann/Library.tarnwick"); }
    EXPECT_TRUE(SingleInstance("/home/ann/Library.tarnwick").isFirst());
}

TEST_F(SingleInstanceTest, TellsNothingOfTheFileInItsNames) {
    const SingleInstance first("/home/ann/Library.tarnwick");
    const QStringList names = QDir(folder.path()).entryList(QDir::Files);
    ASSERT_EQ(names.size(), 1);
    EXPECT_FALSE(names.first().contains(QStringLiteral("Library")));
}

TEST_F(SingleInstanceTest, RaisesTheFirstWindow) {
    SingleInstance first("/home/ann/Library.tarnwick");
    QEventLoop loop;
    int raised = 0;
    first.listen([&] {
        ++raised;
        loop.quit();
    });
    const std::unique_ptr<QThread> second(QThread::create([] {
        const SingleInstance instance("/home/ann/Library.tarnwick");
        instance.raiseFirst();
    }));
    second->start();
    loop.exec();
    QCoreApplication::processEvents();
    second->wait();
    EXPECT_EQ(raised, 1);
}

} // namespace
} // namespace oakfen
