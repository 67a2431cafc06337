#pragma once

#include <optional>
#include <string>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// The root: what covers the main screen, and which alert is due.
class ContentView {
public:
    enum class Cover { none, gate, lock };

    /// Where an alert's text comes from, and so what dismissing it clears.
    enum class AlertSource { application, dataFile };
    struct Alert {
        AlertSource source;
        std::string title;
        std::string text;

        friend bool operator==(const Alert&, const Alert&) = default;
    };

    explicit ContentView(AppEnvironment& environment) : environment_(environment) {}

    /// The gate wins over the lock: a locked screen makes sense only before an open file.
    [[nodiscard]] Cover cover() const;
    /// Whether the main screen is hidden and its controls are disabled.
    [[nodiscard]] bool isObscured() const;
    /// Whether the window may be closed. What was begun in an open sheet would be lost with it; at
    /// the gate there is nothing that it could be saved to.
    [[nodiscard]] bool canClose() const;
    /// The alert to show now; further ones come after it was dismissed.
    [[nodiscard]] std::optional<Alert> dueAlert() const;
    void dismissAlert(AlertSource source);

private:
    [[nodiscard]] bool isScreenLocked() const;

    AppEnvironment& environment_;
};

} // namespace oakfen
