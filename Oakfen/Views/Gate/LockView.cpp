#include "Oakfen/Views/Gate/LockView.h"

#include <utility>

namespace oakfen {

GatePanelText LockView::panelText() {
    return {"lock.shield", "Oakfen is Locked", "Authenticate to view your finances."};
}

void LockView::unlock() {
    if (isAsking_) {
        return;
    }
    isAsking_ = true;
    setErrorText(std::nullopt);
    authenticator_.authenticate(
        "unlock your financial data",
        lifetime_.whileAlive([this](const AuthenticationResult& result) { finish(result); }));
}

void LockView::finish(const AuthenticationResult& result) {
    isAsking_ = false;
    if (result.kind == AuthenticationResult::Kind::failed) {
        setErrorText(result.error);
    } else {
        appState_.setUnlocked(true);
    }
}

void LockView::setErrorText(std::optional<std::string> text) {
    errorText_ = std::move(text);
    changed.notify();
}

} // namespace oakfen
