#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "Oakfen/AppState.h"
#include "OakfenCore/Platform/Scheduler.h"

namespace oakfen {

/// Long work that goes on beside the window, with the progress pill to say so. One at a time and in
/// order, since there is one pill and two could write the same file.
class BusyWork {
public:
    /// Both must outlive it.
    BusyWork(AppState& state, Scheduler& scheduler) : state_(state), scheduler_(scheduler) {}
    BusyWork(const BusyWork&) = delete;
    BusyWork& operator=(const BusyWork&) = delete;

    /// Runs `work` on a worker while the pill shows the message, then `then` on the main thread.
    /// When the work throws, the error's text becomes an alert instead.
    void run(std::string message, std::function<void()> work, std::function<void()> then);

    /// Whether something goes on or waits for its turn.
    [[nodiscard]] bool isBusy() const { return isRunning_; }
    /// Calls `then` once nothing does any more: at once or later.
    void whenIdle(std::function<void()> then);

private:
    struct Job {
        std::string message;
        std::function<void()> work;
        std::function<void()> then;
    };

    void start(Job job);
    /// To the work that has waited longest, or to rest.
    void goOn();

    AppState& state_;
    Scheduler& scheduler_;
    std::deque<Job> waiting_;
    std::vector<std::function<void()>> whenIdle_;
    bool isRunning_ = false;
    ScheduledWork running_;
};

} // namespace oakfen
