#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// Whether this version can protect a data file with a password. What asks for one is shown
/// disabled till then, so that nothing moves when it can.
inline constexpr bool canEncrypt = false;

/// Which panel the access gate shows.
enum class GatePanel { none, unlock, welcome, protectExistingData, legacyUnavailable };

[[nodiscard]] GatePanel gatePanel(const LibraryStore& store);

/// The head of a gate panel.
struct GatePanelText {
    std::string symbolName;
    std::string title;
    std::string message;

    friend bool operator==(const GatePanelText&, const GatePanelText&) = default;
};

/// For every panel but `welcome`, which has two steps of its own. `reason` is the store's, for the
/// file that can't be opened.
[[nodiscard]] GatePanelText gatePanelText(GatePanel panel, std::string_view reason);

/// How hard a password is to guess: a level from 0 to 4 and its word. Advice only.
struct PasswordRating {
    int level = 0;
    std::string_view word;

    friend bool operator==(const PasswordRating&, const PasswordRating&) = default;
};

[[nodiscard]] PasswordRating passwordRating(std::string_view password);

/// The pair of fields in which a new password is entered.
struct NewPasswordForm {
    std::string password;
    std::string confirm;
    bool remember = true;

    /// There is no minimum length and no rule about characters.
    [[nodiscard]] bool canSubmit() const { return !password.empty() && confirm == password; }
    [[nodiscard]] std::string_view hint() const;
};

/// Under the ticked "Remember password".
inline constexpr std::string_view rememberCaption = "Oakfen opens without asking on this Mac.";

/// The tooltip of password fields while passwords can't be used; empty when they can.
[[nodiscard]] std::string_view passwordsUnavailableText();

/// What is asked before the data file is kept unencrypted.
[[nodiscard]] ConfirmationRequest unencryptedConfirmation();

/// Asks, and then keeps the data file unencrypted. `failed` gets the text of an error; after a
/// success the gate goes away by itself.
void chooseNoPassword(AppEnvironment& environment, std::function<void(std::string)> failed);

/// Asks, and then sets the unreadable file aside and begins an empty library.
void chooseStartOver(AppEnvironment& environment);

} // namespace oakfen
