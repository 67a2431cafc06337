#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <csignal>

#include "Oakfen/Platform/QtScheduler.h"
#include "Oakfen/Platform/UnixSignals.h"

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

} // namespace
} // namespace oakfen
