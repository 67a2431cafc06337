#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "OakfenCore/Platform/Scheduler.h"

namespace oakfen {

/// Lets the test decide when a worker does its work and when the main thread hears of it.
class SteppedScheduler final : public Scheduler {
public:
    ScheduledWork after(double /*seconds*/, std::function<void()> work) override {
        auto token = std::make_shared<std::function<void()>>(std::move(work));
        timer_ = token;
        return ScheduledWork(std::move(token));
    }

    ScheduledWork background(std::function<void()> work, std::function<void()> then) override {
        auto token = std::make_shared<std::function<void()>>(std::move(then));
        works.push_back(std::move(work));
        thens_.push_back(token);
        return ScheduledWork(std::move(token));
    }

    /// The delay that was asked for last is over.
    void fireTimer() {
        if (const auto work = timer_.lock()) {
            timer_.reset();
            (*work)();
        }
    }

    void runWorks() {
        for (const auto& work : std::exchange(works, {})) {
            work();
        }
    }

    void tellMainThread() {
        for (const auto& then : std::exchange(thens_, {})) {
            if (const auto held = then.lock()) {
                (*held)();
            }
        }
    }

    std::vector<std::function<void()>> works;

private:
    std::weak_ptr<std::function<void()>> timer_;
    std::vector<std::weak_ptr<std::function<void()>>> thens_;
};

} // namespace oakfen
