#include "OakfenCore/Testing/ManualScheduler.h"

#include <algorithm>
#include <cmath>

namespace oakfen {

namespace {

std::int64_t nanoseconds(double seconds) {
    constexpr double inOneSecond = 1e9;
    return std::llround(seconds * inOneSecond);
}

} // namespace

ScheduledWork ManualScheduler::after(double seconds, std::function<void()> work) {
    auto token = std::make_shared<std::function<void()>>(std::move(work));
    timers_.push_back({now_ + nanoseconds(std::max(seconds, 0.0)), token});
    return ScheduledWork(std::move(token));
}

ScheduledWork ManualScheduler::background(std::function<void()> work, std::function<void()> then) {
    auto token = std::make_shared<std::function<void()>>(std::move(then));
    tasks_.push_back({std::move(work), token});
    return ScheduledWork(std::move(token));
}

void ManualScheduler::advance(double seconds) {
    const std::int64_t end = now_ + nanoseconds(seconds);
    runBackground();
    while (true) {
        const auto next = std::min_element(
            timers_.begin(), timers_.end(),
            [](const Timer& one, const Timer& other) { return one.due < other.due; });
        if (next == timers_.end() || next->due > end) {
            break;
        }
        const Timer timer = *next;
        timers_.erase(next);
        now_ = timer.due;
        if (const auto work = timer.work.lock()) {
            (*work)();
        }
        runBackground();
    }
    now_ = end;
}

void ManualScheduler::runBackground() {
    while (!tasks_.empty()) {
        const Task task = std::move(tasks_.front());
        tasks_.pop_front();
        task.work();
        if (const auto then = task.then.lock()) {
            (*then)();
        }
    }
}

std::size_t ManualScheduler::waitingTimers() const {
    return static_cast<std::size_t>(std::count_if(
        timers_.begin(), timers_.end(), [](const Timer& timer) { return !timer.work.expired(); }));
}

} // namespace oakfen
