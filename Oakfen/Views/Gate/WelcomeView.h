#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Oakfen/Views/Gate/PasswordViews.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

/// What the first start shows.
struct WelcomeContent {
    /// Whether the first step is done and the password step shows.
    bool hasChosen = false;
    std::optional<std::string> errorText = {};

    friend bool operator==(const WelcomeContent&, const WelcomeContent&) = default;
};

/// The first start: choose a currency and what to begin with, then choose about a password.
class WelcomeView final : public Screen<WelcomeContent> {
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

    /// Begins with the default categories and nothing else.
    void startFresh();
    /// Begins with a household to look around in.
    void exploreSampleData();
    /// Back to the first step; a new choice there replaces the library again.
    void goBack();
    void useNoPassword();

    NewPasswordForm passwordForm;

protected:
    [[nodiscard]] WelcomeContent derive(const WelcomeContent* /*earlier*/) const override {
        return state_;
    }

private:
    void begin(Library library);
    void setErrorText(std::optional<std::string> text);

    std::string currency_;
    WelcomeContent state_;
};

} // namespace oakfen
