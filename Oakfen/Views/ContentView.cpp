#include "Oakfen/Views/ContentView.h"

namespace oakfen {

bool ContentView::isScreenLocked() const {
    return environment_.defaults.get(settings::requireAuthentication) &&
           !environment_.appState.isUnlocked();
}

ContentView::Cover ContentView::cover() const {
    if (!environment_.store.accessState().isOpen()) {
        return Cover::gate;
    }
    return isScreenLocked() ? Cover::lock : Cover::none;
}

bool ContentView::isObscured() const {
    return cover() != Cover::none;
}

bool ContentView::canClose() const {
    return !environment_.appState.sheet() || cover() == Cover::gate;
}

std::optional<ContentView::Alert> ContentView::dueAlert() const {
    if (const auto& message = environment_.appState.alertMessage()) {
        return Alert{AlertSource::application, "Oakfen", *message};
    }
    if (const auto& error = environment_.store.lastError()) {
        return Alert{AlertSource::dataFile, "Problem with your data file", *error};
    }
    return std::nullopt;
}

void ContentView::dismissAlert(AlertSource source) {
    switch (source) {
    case AlertSource::application:
        environment_.appState.setAlertMessage(std::nullopt);
        return;
    case AlertSource::dataFile:
        environment_.store.clearError();
        return;
    }
}

} // namespace oakfen
