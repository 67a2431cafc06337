#include "Oakfen/Views/Gate/PasswordViews.h"

#include <set>
#include <utility>

#include "OakfenCore/Support/Text/CharacterKind.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// Of lower-case and upper-case letters, numbers and whatever is neither letter nor number.
std::size_t kindsOfCharacter(std::string_view password) {
    std::set<CharacterKind> kinds;
    forEachCharacter(
        password, [&kinds](std::string_view character) { kinds.insert(characterKind(character)); });
    kinds.erase(CharacterKind::letterWithoutCase);
    return kinds.size();
}

} // namespace

GatePanel gatePanel(const LibraryStore& store) {
    switch (store.accessState().kind) {
    case AccessState::Kind::open:
        return GatePanel::none;
    case AccessState::Kind::locked:
        return GatePanel::unlock;
    case AccessState::Kind::legacyUnavailable:
        return GatePanel::legacyUnavailable;
    case AccessState::Kind::needsPassword:
        break;
    }
    return store.isNewLibrary() ? GatePanel::welcome : GatePanel::protectExistingData;
}

GatePanelText gatePanelText(GatePanel panel, std::string_view reason) {
    switch (panel) {
    case GatePanel::unlock:
        return {"lock.fill", "Enter Your Password",
                "Your Oakfen data is encrypted. Enter its password to open it."};
    case GatePanel::protectExistingData:
        return {"lock.shield", "Protect Your Data with a Password",
                "Oakfen can encrypt your data file with a password you choose. Your existing data "
                "and backups will be converted."};
    case GatePanel::legacyUnavailable:
        return {"key.slash", "Your Data File Can’t Be Opened Yet",
                std::string(reason) +
                    " It was encrypted by an earlier version of Oakfen with a key kept in your "
                    "Keychain. If macOS asks for Keychain access, click Always Allow, then try "
                    "again."};
    case GatePanel::none:
    case GatePanel::welcome:
        break;
    }
    return {};
}

PasswordRating passwordRating(std::string_view password) {
    const std::size_t length = characterCount(password);
    if (length == 0) {
        return {0, ""};
    }
    if (length < 8) {
        return {1, "Weak"};
    }
    if (length < 12 && kindsOfCharacter(password) < 2) {
        return {2, "Fair"};
    }
    return length < 16 ? PasswordRating{3, "Good"} : PasswordRating{4, "Strong"};
}

std::string_view NewPasswordForm::hint() const {
    if (!confirm.empty() && confirm != password) {
        return "The passwords don’t match.";
    }
    return "Oakfen can’t recover a forgotten password. Store it somewhere safe, such as a password "
           "manager.";
}

std::string_view passwordsUnavailableText() {
    return canEncrypt ? "" : "Encryption isn’t available in this version yet.";
}

ConfirmationRequest unencryptedConfirmation() {
    return {.title = "Keep your data unencrypted?",
            .message =
                "Your data file will be saved without encryption. It’s still readable only by your "
                "Mac user account, but any app or person with access to your account or your disk "
                "could read it. You can add a password later in Settings ▸ Security.",
            .confirmTitle = "Don’t Use a Password",
            .isDestructive = true};
}

void chooseNoPassword(AppEnvironment& environment, std::function<void(std::string)> failed) {
    environment.panels.confirm(unencryptedConfirmation(),
                               [&store = environment.store, failed = std::move(failed)](bool yes) {
                                   if (!yes) {
                                       return;
                                   }
                                   try {
                                       store.useNoPassword();
                                   } catch (const LocalizedError& error) {
                                       failed(error.localizedDescription());
                                   }
                               });
}

void chooseStartOver(AppEnvironment& environment) {
    const ConfirmationRequest request{
        .title = "Start over with an empty library?",
        .message = "Your current data file isn’t deleted. It’s renamed and kept next to the new "
                   "one, so it can still be opened later if the key turns up.",
        .confirmTitle = "Start Over",
        .isDestructive = true};
    environment.panels.confirm(request, [&store = environment.store](bool confirmed) {
        if (confirmed) {
            store.startOver();
        }
    });
}

} // namespace oakfen
