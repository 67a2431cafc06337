#include "Oakfen/TerminationFlow.h"

#include <utility>

#include "Oakfen/OtherVersionFlow.h"

namespace oakfen {

TerminationFlow::TerminationFlow(AppEnvironment& environment, std::function<void()> quit)
    : environment_(environment), quit_(std::move(quit)) {}

void TerminationFlow::requestQuit() {
    if (isAsking_ || isWaiting_) {
        return;
    }
    if (!environment_.busyWork.isBusy()) {
        saveAndQuit();
        return;
    }
    isWaiting_ = true;
    environment_.busyWork.whenIdle([this] {
        isWaiting_ = false;
        if (!environment_.appState.alertMessage()) {
            saveAndQuit();
        }
    });
}

void TerminationFlow::saveAndQuit() {
    if (save()) {
        quit_();
    } else if (environment_.store.isChangedElsewhere()) {
        askForVersion();
    } else {
        askAfterFailure();
    }
}

void TerminationFlow::askForVersion() {
    isAsking_ = true;
    environment_.otherVersion.ask([this](OtherVersionFlow::Decision decision) {
        isAsking_ = false;
        // Whoever opens the other version wants to see it, and undo would end with the program.
        if (decision == OtherVersionFlow::Decision::keptThisVersion) {
            requestQuit();
        }
    });
}

void TerminationFlow::quitWithoutAsking() {
    static_cast<void>(save());
    quit_();
}

bool TerminationFlow::save() {
    environment_.store.saveNow();
    return !environment_.store.hasUnsavedChanges();
}

void TerminationFlow::askAfterFailure() {
    isAsking_ = true;
    const ChoiceRequest request{
        .title = "Your latest changes aren’t saved",
        .message = environment_.store.lastError().value_or("Couldn’t save your data file.") +
                   "\n\nIf you quit now, these changes are lost.",
        .choices = {{.title = "Try Again"}, {.title = "Quit Anyway", .isDestructive = true}},
        .cancelTitle = "Don’t Quit"};
    // The question tells of the error; an alert with the same text need not follow it.
    environment_.store.clearError();
    environment_.panels.choose(request, [this](std::optional<std::size_t> choice) {
        isAsking_ = false;
        if (choice == 0U) {
            requestQuit();
        } else if (choice == 1U) {
            quit_();
        }
    });
}

} // namespace oakfen
