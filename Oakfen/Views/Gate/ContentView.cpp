#include "Oakfen/Views/Gate/ContentView.h"

namespace oakfen {

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
