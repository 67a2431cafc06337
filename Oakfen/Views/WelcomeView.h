#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/PasswordViews.h"
#include "OakfenCore/Support/Observers.h"

namespace oakfen {

/// The first start: choose a currency and what to begin with, then choose about a password.
class WelcomeView {
public:
    struct Currency {
        std::string code;
        /// "CAD – Canadian Dollar"; the code alone where the locale has no name for it.
        std::string label;

        friend bool operator==(const Currency&, const Currency&) = default;
    };

    explicit WelcomeView(AppEnvironment& environment);

    [[nodiscard]] static GatePanelText welcomeText();
    [[nodiscard]] static GatePanelText passwordText();
    [[nodiscard]] static std::vector<Currency> currencies();

    [[nodiscard]] const std::string& currency() const { return currency_; }
    void setCurrency(std::string code) { currency_ = std::move(code); }

    /// Whether the first step is done and the password step shows.
    [[nodiscard]] bool hasChosen() const { return hasChosen_; }
    [[nodiscard]] const std::optional<std::string>& errorText() const { return errorText_; }

    /// Begins with the default categories and nothing else.
    void startFresh();
    /// Begins with a household to look around in.
    void exploreSampleData();
    /// Back to the first step; a new choice there replaces the library again.
    void goBack();
    void useNoPassword();

    NewPasswordForm passwordForm;
    /// Told after the step or the error text changed.
    Observers<> changed;

private:
    void begin(Library library);
    void setErrorText(std::optional<std::string> text);

    AppEnvironment& environment_;
    std::string currency_;
    bool hasChosen_ = false;
    std::optional<std::string> errorText_;
    /// An answer that comes after this object is gone finds it expired.
    std::shared_ptr<WelcomeView*> self_ = std::make_shared<WelcomeView*>(this);
};

} // namespace oakfen
