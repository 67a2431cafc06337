#include "Oakfen/Platform/QtScheduler.h"

#include <QTimer>
#include <chrono>
#include <utility>

namespace oakfen {

QtScheduler::QtScheduler() {
    workers_.setMaxThreadCount(2);
}

QtScheduler::~QtScheduler() {
    workers_.clear();
    workers_.waitForDone();
}

ScheduledWork QtScheduler::after(double seconds, std::function<void()> work) {
    // Deleted later: the work may drop its own handle while the timer is still telling of it.
    const std::shared_ptr<QTimer> timer(new QTimer, [](QTimer* ended) {
        ended->stop();
        ended->deleteLater();
    });
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(work));
    timer->start(std::chrono::milliseconds(static_cast<long long>(seconds * 1000)));
    return ScheduledWork(timer);
}

ScheduledWork QtScheduler::background(std::function<void()> work, std::function<void()> then) {
    auto token = std::make_shared<bool>(true);
    workers_.start([this, work = std::move(work), then = std::move(then),
                    weak = std::weak_ptr<bool>(token)]() mutable {
        work();
        QMetaObject::invokeMethod(
            &mainThread_,
            [then = std::move(then), weak] {
                if (const auto held = weak.lock()) {
                    then();
                }
            },
            Qt::QueuedConnection);
    });
    return ScheduledWork(std::move(token));
}

} // namespace oakfen
