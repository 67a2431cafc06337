#include "Oakfen/Views/Gate/ContentView.h"

#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

std::optional<ContentView::Alert> ContentView::dueAlert() const {
    if (const auto& message = environment_.appState.alertMessage()) {
        return Alert{AlertSource::application, "Oakfen", *message};
    }
    if (const auto& error = environment_.store.lastError()) {
        const ErrorDetails& details = environment_.store.lastErrorDetails();
        return Alert{.source = AlertSource::dataFile,
                     .title = "Problem with your data file",
                     .text = *error,
                     .addition = details.keptName
                                     ? "It is kept as " + quoted(*details.keptName) + "."
                                     : std::string(),
                     .details = details.place};
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
