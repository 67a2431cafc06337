#pragma once

#include <QWidget>

#include "Oakfen/Views/Gate/WelcomeView.h"

namespace oakfen {

class GatePanelWidget;
class PickerBox;

/// Draws the two steps of the first start.
class WelcomeWidget final : public QWidget {
    Q_OBJECT

public:
    explicit WelcomeWidget(AppEnvironment& environment, QWidget* parent = nullptr);

private:
    void refresh();
    [[nodiscard]] GatePanelWidget* makeFirstStep();
    [[nodiscard]] PickerBox* makeCurrencyPicker();
    /// Takes the currency that was typed. A word that is none is told of; then nothing begins.
    bool takeCurrency(PickerBox& picker);
    [[nodiscard]] GatePanelWidget* makeSecondStep();

    WelcomeView view_;
    GatePanelWidget* panel_ = nullptr;
    bool showsSecondStep_ = false;
    Subscription subscription_;
};

} // namespace oakfen
