#include "Oakfen/Widgets/Gate/WelcomeWidget.h"

#include <map>
#include <utility>
#include <vector>

#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Gate/GatePanelWidget.h"
#include "Oakfen/Widgets/Gate/NewPasswordFields.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

WelcomeWidget::WelcomeWidget(AppEnvironment& environment, QWidget* parent)
    : QWidget(parent), view_(environment) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    refresh();
    subscription_ = view_.changed.observe([this] { refresh(); });
}

void WelcomeWidget::refresh() {
    const auto content = view_.content();
    if (panel_ == nullptr || content->hasChosen != showsSecondStep_) {
        if (panel_ != nullptr) {
            // Later: the click that led here came from the panel.
            panel_->hide();
            panel_->deleteLater();
        }
        showsSecondStep_ = content->hasChosen;
        panel_ = showsSecondStep_ ? makeSecondStep() : makeFirstStep();
        layout()->addWidget(panel_);
        panel_->show();
    }
    panel_->setErrorText(content->errorText);
}

GatePanelWidget* WelcomeWidget::makeFirstStep() {
    auto* panel = new GatePanelWidget(WelcomeView::welcomeText(), this);

    PickerBox* currency = makeCurrencyPicker();
    auto* label = new QLabel(QStringLiteral("Currency"), panel);
    label->setBuddy(currency);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(label);
    row->addWidget(currency);
    row->addStretch(1);
    panel->fields().addLayout(row);
    panel->fields().addSpacing(Theme::grid * 2);

    auto* fresh = new QPushButton(symbolIcon("sparkles", ThemeColor::onAccent),
                                  QStringLiteral("Start Fresh"), panel);
    connect(fresh, &QPushButton::clicked, this, [this, currency] {
        if (takeCurrency(*currency)) {
            view_.startFresh();
        }
    });
    panel->setDefaultButton(fresh);
    auto* sample =
        new QPushButton(symbolIcon("wand.and.stars"), QStringLiteral("Explore Sample Data"), panel);
    sample->setToolTip(QStringLiteral("Look around in the ledger of a made-up household"));
    connect(sample, &QPushButton::clicked, this, [this, currency] {
        if (takeCurrency(*currency)) {
            view_.exploreSampleData();
        }
    });
    for (QPushButton* button : {fresh, sample}) {
        button->setMinimumWidth(220);
        // A little air between picture and words.
        button->setIconSize({22, 16});
        panel->buttons().addWidget(button, 0, Qt::AlignHCenter);
    }
    return panel;
}

PickerBox* WelcomeWidget::makeCurrencyPicker() {
    auto* currency = new PickerBox(QStringLiteral("Currency"));
    std::vector<PickerRow> rows;
    std::map<UUID, std::string> codes;
    std::optional<UUID> chosen;
    for (const WelcomeView::Currency& entry : WelcomeView::currencies()) {
        const UUID id = UUID::random();
        rows.push_back({.title = entry.label, .id = id});
        codes[id] = entry.code;
        chosen = entry.code == view_.currency() ? id : chosen;
    }
    currency->setRows(rows);
    currency->choose(chosen);
    currency->setMinimumContentsLength(24);
    currency->chosen = [this, currency, codes = std::move(codes)] {
        view_.setCurrency(codes.at(currency->chosenID().value()));
        panel_->setErrorText(std::nullopt);
    };
    return currency;
}

bool WelcomeWidget::takeCurrency(PickerBox& picker) {
    // All money will be shown in it, so a word that is none must not be passed over.
    const bool isKnown = picker.takeTypedText();
    if (!isKnown) {
        picker.setFocus(Qt::OtherFocusReason);
        picker.selectText();
        panel_->setErrorText(
            utf8(picker.accessibleName() + QStringLiteral(": ") + picker.explanation()));
    }
    return isKnown;
}

GatePanelWidget* WelcomeWidget::makeSecondStep() {
    auto* panel = new GatePanelWidget(WelcomeView::passwordText(), this);
    const PasswordChoiceButtons buttons =
        makePasswordChoiceButtons({.cancelHelp = QStringLiteral("Go back to the welcome screen"),
                                   .submitTitle = QStringLiteral("Continue"),
                                   .cancel = [this] { view_.goBack(); },
                                   .useNoPassword = [this] { view_.useNoPassword(); },
                                   .submit = [] {}},
                                  panel);
    panel->fields().addWidget(new NewPasswordFields(
        view_.passwordForm,
        [this, submit = buttons.submit] {
            submit->setEnabled(canEncrypt && view_.passwordForm.canSubmit());
        },
        panel));
    panel->buttons().addWidget(buttons.row);
    panel->setCancelButton(buttons.cancel);
    panel->setDefaultButton(canEncrypt ? buttons.submit : buttons.useNoPassword);
    return panel;
}

} // namespace oakfen
