#pragma once

#include <QObject>
#include <QThreadPool>

#include "OakfenCore/Platform/Scheduler.h"

namespace oakfen {

/// Timers of the event loop and a small pool of workers.
class QtScheduler final : public Scheduler {
public:
    QtScheduler();
    /// Waits for work that has begun; what would follow on it is dropped.
    ~QtScheduler() override;

    [[nodiscard]] ScheduledWork after(double seconds, std::function<void()> work) override;
    [[nodiscard]] ScheduledWork background(std::function<void()> work,
                                           std::function<void()> then) override;

private:
    /// Lives on the main thread: what is posted to it runs there.
    QObject mainThread_;
    QThreadPool workers_;
};

} // namespace oakfen
