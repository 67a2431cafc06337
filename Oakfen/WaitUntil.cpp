#include "Oakfen/WaitUntil.h"

#include <memory>
#include <utility>

namespace oakfen {

namespace {

/// Short enough that nobody waits for it, long enough to cost nothing overnight.
constexpr double secondsBetweenLooks = 0.2;

} // namespace

void waitUntil(Scheduler& scheduler, std::function<bool()> isTime, std::function<void()> then) {
    if (isTime()) {
        then();
        return;
    }
    // The next look is taken for as long as its handle is held: until then.
    auto handle = std::make_shared<ScheduledWork>();
    *handle = scheduler.after(secondsBetweenLooks, [&scheduler, isTime = std::move(isTime),
                                                    then = std::move(then), handle] {
        waitUntil(scheduler, isTime, then);
        handle->cancel();
    });
}

} // namespace oakfen
