#pragma once

#include <optional>
#include <string>

#include "Oakfen/AppState.h"
#include "Oakfen/Views/Gate/PasswordViews.h"
#include "Oakfen/Views/Lifetime.h"
#include "OakfenCore/Platform/Authenticator.h"
#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

/// The extra screen lock, which goes once the person has proven who they are. It has nothing to do
/// with the password of the data file.
class LockView {
public:
    LockView(AppState& appState, Authenticator& authenticator)
        : appState_(appState), authenticator_(authenticator) {}

    [[nodiscard]] static GatePanelText panelText();
    /// Why the lock stays, after an attempt that failed.
    [[nodiscard]] const std::optional<std::string>& errorText() const { return errorText_; }

    /// To be called when the lock comes up, and by its button: asks the person, or opens at once
    /// where the machine has no way to ask. Does nothing while the prompt is up. May end this
    /// object, if whoever shows it lets go of it when the lock opens.
    void unlock();

    /// Told after the error text changed.
    Observers<> changed;

private:
    void finish(const AuthenticationResult& result);
    void setErrorText(std::optional<std::string> text);

    AppState& appState_;
    Authenticator& authenticator_;
    std::optional<std::string> errorText_;
    bool isAsking_ = false;
    Lifetime lifetime_;
};

} // namespace oakfen
