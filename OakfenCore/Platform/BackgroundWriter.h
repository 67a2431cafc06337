#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "OakfenCore/Platform/Scheduler.h"

namespace oakfen {

/// Does one piece of writing at a time on a worker, so that a long document or a slow disk doesn't
/// stall the window while it is encoded and synced. Whoever is about to touch the file on the main thread
/// settles first; so no two writes ever overlap, and none comes after a later one.
class BackgroundWriter {
public:
    /// Told on the main thread how the writing ended: nothing, or the text of what went wrong.
    using Done = std::function<void(const std::optional<std::string>& error)>;

    explicit BackgroundWriter(Scheduler& scheduler) : scheduler_(scheduler) {}
    /// Withdraws what has not begun and waits for what has; tells nobody.
    ~BackgroundWriter();
    BackgroundWriter(const BackgroundWriter&) = delete;
    BackgroundWriter& operator=(const BackgroundWriter&) = delete;

    [[nodiscard]] bool isBusy() const { return job_ != nullptr; }

    /// Runs `write`, which may throw, on a worker. Only while not busy.
    void start(std::function<void()> write, Done done);

    /// Withdraws writing that has not begun, without a word; waits for one that has, and tells how
    /// it ended. Not busy afterwards.
    void settle();

private:
    struct Job;

    /// Whether the job had begun, and so has been waited for.
    bool withdrawOrAwait();
    void finish();

    Scheduler& scheduler_;
    std::shared_ptr<Job> job_;
    Done done_;
    ScheduledWork work_;
};

} // namespace oakfen
