#include "Oakfen/OtherVersionFlow.h"

#include <optional>
#include <utility>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Cover.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

OtherVersionFlow::OtherVersionFlow(AppEnvironment& environment) : environment_(environment) {
    statusChanged_ = environment_.store.statusChanged.observe([this] { statusChanged(); });
    noticeChanged_ = environment_.appState.noticeChanged.observe([this] { noticeChanged(); });
}

void OtherVersionFlow::statusChanged() {
    const bool isChanged = environment_.store.isChangedElsewhere();
    if (isChanged && !std::exchange(isNoticed_, isChanged)) {
        askWhenFree();
    }
    isNoticed_ = isChanged;
    if (!isChanged && std::exchange(isPutOff_, false)) {
        // The earlier bytes are back.
        environment_.appState.dismissNotice();
    }
}

void OtherVersionFlow::askWhenFree() {
    // Not over a draft, which may belong to the version that is given up, and not to whoever finds
    // the window locked.
    environment_.appState.whenFree(
        [this] {
            return !environment_.appState.sheet() && !environment_.panels.isAsking() &&
                   cover(environment_) != Cover::lock;
        },
        [this] {
            if (environment_.store.isChangedElsewhere()) {
                ask([](Decision) {});
            }
        });
}

void OtherVersionFlow::ask(std::function<void(Decision)> then) {
    whenDecided_.push_back(std::move(then));
    if (!std::exchange(isAsking_, true)) {
        isPutOff_ = false;
        reason_ = environment_.store.lastError().value_or(
            "Couldn’t save: the data file was changed by another program.");
        showQuestion();
    }
}

void OtherVersionFlow::showQuestion() {
    const ChoiceRequest request{
        .title = "Which version do you want to keep?",
        .message = reason_ +
                   "\n\n“Keep This Version” saves what you see and sets the other version aside "
                   "in the same folder. “Open the Other Version” shows what the other program "
                   "wrote; Edit ▸ Undo brings this version back.",
        .choices = {{.title = "Keep This Version"}, {.title = "Open the Other Version"}}};
    // The question tells of the error; an alert with the same text need not follow it.
    environment_.store.clearError();
    environment_.panels.choose(request, [this](std::optional<std::size_t> choice) {
        if (choice == 0U) {
            keepThisVersion();
        } else if (choice == 1U) {
            openOtherVersion();
        } else {
            isPutOff_ = true;
            end(Decision::none);
            noticeChanged();
        }
    });
}

void OtherVersionFlow::noticeChanged() {
    if (isPutOff_ && !environment_.appState.notice()) {
        showUndecided();
    }
}

void OtherVersionFlow::showUndecided() {
    environment_.appState.showNotice(
        {.text = "Your changes aren’t saved, since another program has changed the data file.",
         .actionTitle = "Decide…",
         .action = [this] { ask([](Decision) {}); },
         .stays = true});
}

void OtherVersionFlow::keepThisVersion() {
    try {
        const std::optional<std::string> copy = environment_.store.keepThisVersion();
        if (environment_.store.isChangedElsewhere()) {
            // Yet another version came before this one was saved.
            askAgain(environment_.store.lastError().value_or(reason_));
            return;
        }
        isPutOff_ = false;
        if (copy) {
            environment_.appState.showNotice(
                {.text = "The other version is kept as " + quoted(*copy) + "."});
        } else {
            environment_.appState.dismissNotice();
        }
        end(Decision::keptThisVersion);
    } catch (const LocalizedError& error) {
        askAgain(error.localizedDescription());
    }
}

void OtherVersionFlow::openOtherVersion() {
    try {
        environment_.store.openOtherVersion();
        isPutOff_ = false;
        environment_.appState.showNotice(
            {.text = "The other version is open. Edit ▸ Undo brings the earlier one back."});
        end(Decision::openedOtherVersion);
    } catch (const LocalizedError& error) {
        askAgain(error.localizedDescription());
    }
}

void OtherVersionFlow::askAgain(const std::string& reason) {
    reason_ = reason;
    showQuestion();
}

void OtherVersionFlow::end(Decision decision) {
    isAsking_ = false;
    for (const auto& then : std::exchange(whenDecided_, {})) {
        then(decision);
    }
}

} // namespace oakfen
