#pragma once

#include <optional>
#include <string>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// The root: which alert is due. What covers the main screen, `cover` says.
class ContentView {
public:
    /// Where an alert's text comes from, and so what dismissing it clears.
    enum class AlertSource { application, dataFile };
    struct Alert {
        AlertSource source;
        std::string title;
        std::string text;
        /// What is said below the text; often empty.
        std::string addition = {};
        /// What only those want to see who ask for it; often empty.
        std::string details = {};

        friend bool operator==(const Alert&, const Alert&) = default;
    };

    explicit ContentView(AppEnvironment& environment) : environment_(environment) {}

    /// The alert to show now; further ones come after it was dismissed.
    [[nodiscard]] std::optional<Alert> dueAlert() const;
    void dismissAlert(AlertSource source);

private:
    AppEnvironment& environment_;
};

} // namespace oakfen
