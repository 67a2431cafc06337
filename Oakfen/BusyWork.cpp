#include "Oakfen/BusyWork.h"

#include <exception>
#include <memory>
#include <optional>
#include <utility>

#include "OakfenCore/Support/Values/FailureText.h"

namespace oakfen {

void BusyWork::run(std::string message, std::function<void()> work, std::function<void()> then) {
    Job job{.message = std::move(message), .work = std::move(work), .then = std::move(then)};
    if (isRunning_) {
        waiting_.push_back(std::move(job));
    } else {
        start(std::move(job));
    }
}

void BusyWork::whenIdle(std::function<void()> then) {
    if (isRunning_) {
        whenIdle_.push_back(std::move(then));
    } else {
        then();
    }
}

void BusyWork::start(Job job) {
    isRunning_ = true;
    state_.setBusyMessage(std::move(job.message));
    auto failure = std::make_shared<std::optional<std::string>>();
    running_ = scheduler_.background(
        [work = std::move(job.work), failure] {
            try {
                work();
            } catch (const std::exception& error) {
                *failure = failureText(error);
            }
        },
        [this, then = std::move(job.then), failure] {
            state_.setBusyMessage(std::nullopt);
            if (*failure) {
                state_.setAlertMessage(**failure);
            } else {
                then();
            }
            goOn();
        });
}

void BusyWork::goOn() {
    if (!waiting_.empty()) {
        Job next = std::move(waiting_.front());
        waiting_.pop_front();
        start(std::move(next));
        return;
    }
    isRunning_ = false;
    for (const auto& then : std::exchange(whenIdle_, {})) {
        then();
    }
}

} // namespace oakfen
