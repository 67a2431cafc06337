#include "Oakfen/Views/Gate/WelcomeView.h"

#include <utility>

#include "OakfenCore/SampleData/EmptyLibrary.h"
#include "OakfenCore/SampleData/SampleData.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

WelcomeView::WelcomeView(AppEnvironment& environment)
    : Screen(environment), currency_(defaultCurrencyCode()) {}

GatePanelText WelcomeView::welcomeText() {
    return {"chart.line.uptrend.xyaxis.circle.fill", "Welcome to Oakfen",
            "Track every account, plan bills, budget with confidence and watch your net worth "
            "grow, all stored privately on this Mac."};
}

GatePanelText WelcomeView::passwordText() {
    return {"lock.shield", "Choose a Password",
            "Oakfen can encrypt your data file with a password. Remember it in the Keychain to "
            "open Oakfen without typing it."};
}

std::vector<WelcomeView::Currency> WelcomeView::currencies() {
    std::vector<Currency> result;
    for (const std::string& code : currencyCodes()) {
        const std::string name = currencyName(code);
        result.push_back({code, name.empty() ? code : code + " – " + name});
    }
    return result;
}

void WelcomeView::startFresh() {
    begin(emptyLibrary(currency_));
}

void WelcomeView::exploreSampleData() {
    begin(SampleData::make(environment_.clock.now(), currency_, environment_.clock.calendar()));
}

void WelcomeView::begin(Library library) {
    environment_.store.replaceLibrary(std::move(library), std::nullopt);
    state_.hasChosen = true;
    stateChanged();
}

void WelcomeView::goBack() {
    state_ = {};
    stateChanged();
}

void WelcomeView::useNoPassword() {
    setErrorText(std::nullopt);
    chooseNoPassword(environment_,
                     whileAlive([this](const std::string& text) { setErrorText(text); }));
}

void WelcomeView::setErrorText(std::optional<std::string> text) {
    state_.errorText = std::move(text);
    stateChanged();
}

} // namespace oakfen
