#include "Oakfen/BusyWork.h"

#include <memory>
#include <optional>
#include <utility>

#include "Oakfen/WaitUntil.h"

namespace oakfen {

namespace {

void start(AppEnvironment& environment, const std::string& message, std::function<void()> work,
           std::function<void()> then) {
    environment.appState.setBusyMessage(message);
    auto failure = std::make_shared<std::optional<std::string>>();
    // The work goes on for as long as its handle is held: until its result is taken.
    auto handle = std::make_shared<ScheduledWork>();
    *handle = environment.scheduler.background(
        [work = std::move(work), failure] {
            try {
                work();
            } catch (const std::exception& error) {
                *failure = error.what();
            }
        },
        [&state = environment.appState, then = std::move(then), failure, handle] {
            state.setBusyMessage(std::nullopt);
            if (*failure) {
                state.setAlertMessage(*failure);
            } else {
                then();
            }
            handle->cancel();
        });
}

} // namespace

void runBusy(AppEnvironment& environment, const std::string& message, std::function<void()> work,
             std::function<void()> then) {
    waitUntil(
        environment.scheduler, [&environment] { return !environment.appState.busyMessage(); },
        [&environment, message, work = std::move(work), then = std::move(then)] {
            start(environment, message, work, then);
        });
}

} // namespace oakfen
