#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "OakfenCore/Platform/Scheduler.h"

namespace oakfen {

/// A scheduler whose time passes only when it is told to, for tests. Everything runs on the
/// caller's thread, in order.
class ManualScheduler final : public Scheduler {
public:
    [[nodiscard]] ScheduledWork after(double seconds, std::function<void()> work) override;
    [[nodiscard]] ScheduledWork background(std::function<void()> work,
                                           std::function<void()> then) override;

    /// Lets time pass: runs all that falls due, earliest first, and the background work.
    void advance(double seconds);

    /// Runs the background work that waits, and what follows on it.
    void runBackground();

    /// The number of timers that wait.
    [[nodiscard]] std::size_t waitingTimers() const;

private:
    struct Timer {
        std::int64_t due = 0;
        std::weak_ptr<std::function<void()>> work;
    };
    struct Task {
        std::function<void()> work;
        std::weak_ptr<std::function<void()>> then;
    };

    /// In nanoseconds, so that ten tenths are one second.
    std::int64_t now_ = 0;
    /// In the order of asking.
    std::vector<Timer> timers_;
    std::deque<Task> tasks_;
};

} // namespace oakfen
