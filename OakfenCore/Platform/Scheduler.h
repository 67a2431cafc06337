#pragma once

#include <functional>
#include <memory>

namespace oakfen {

/// Work that will be done later; dropping the handle cancels it. An empty handle holds nothing.
class ScheduledWork {
public:
    ScheduledWork() = default;
    explicit ScheduledWork(std::shared_ptr<void> token) : token_(std::move(token)) {}

    void cancel() { token_.reset(); }

private:
    std::shared_ptr<void> token_;
};

/// Timers and workers. All calls come from the main thread, and all that is handed in runs on it,
/// but for the first argument of `background`.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Runs `work` on the main thread once `seconds` have passed, unless the handle was dropped.
    [[nodiscard]] virtual ScheduledWork after(double seconds, std::function<void()> work) = 0;

    /// Runs `work` on a worker thread, then `then` on the main thread, unless the handle was
    /// dropped (the work itself is not interrupted). `work` must not throw.
    [[nodiscard]] virtual ScheduledWork background(std::function<void()> work,
                                                   std::function<void()> then) = 0;
};

} // namespace oakfen
