#include "OakfenCore/Platform/BackgroundWriter.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

#include "OakfenCore/Support/Values/FailureText.h"

namespace oakfen {

/// What the main thread and the worker share of one write.
struct BackgroundWriter::Job {
    enum class Phase { waiting, withdrawn, running, finished };

    void run(const std::function<void()>& write) {
        {
            const std::scoped_lock lock(mutex);
            if (phase == Phase::withdrawn) {
                return;
            }
            phase = Phase::running;
        }
        std::optional<std::string> failure;
        try {
            write();
        } catch (const std::exception& exception) {
            failure = failureText(exception);
        }
        const std::scoped_lock lock(mutex);
        error = std::move(failure);
        phase = Phase::finished;
        changed.notify_all();
    }

    std::mutex mutex;
    std::condition_variable changed;
    Phase phase = Phase::waiting;
    std::optional<std::string> error;
};

BackgroundWriter::~BackgroundWriter() {
    withdrawOrAwait();
}

void BackgroundWriter::start(std::function<void()> write, Done done) {
    job_ = std::make_shared<Job>();
    done_ = std::move(done);
    work_ = scheduler_.background([job = job_, write = std::move(write)] { job->run(write); },
                                  [this] { finish(); });
}

void BackgroundWriter::settle() {
    if (!isBusy()) {
        return;
    }
    if (withdrawOrAwait()) {
        finish();
    } else {
        job_.reset();
        done_ = nullptr;
    }
}

bool BackgroundWriter::withdrawOrAwait() {
    work_.cancel();
    if (!isBusy()) {
        return false;
    }
    std::unique_lock lock(job_->mutex);
    if (job_->phase == Job::Phase::waiting) {
        job_->phase = Job::Phase::withdrawn;
        return false;
    }
    job_->changed.wait(lock, [this] { return job_->phase == Job::Phase::finished; });
    return true;
}

void BackgroundWriter::finish() {
    // Let go first: whoever is told may start the next write.
    const auto job = std::exchange(job_, nullptr);
    const Done done = std::exchange(done_, nullptr);
    work_.cancel();
    done(job->error);
}

} // namespace oakfen
