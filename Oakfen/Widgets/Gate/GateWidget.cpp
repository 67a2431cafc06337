#include "Oakfen/Widgets/Gate/GateWidget.h"

#include <QEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>

#include "Oakfen/Widgets/Components/Blur.h"
#include "Oakfen/Widgets/Gate/GatePanelWidget.h"
#include "Oakfen/Widgets/Gate/LockWidget.h"
#include "Oakfen/Widgets/Gate/NewPasswordFields.h"
#include "Oakfen/Widgets/Gate/WelcomeWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

QLineEdit* makeUnavailableField(const QString& name, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setEchoMode(QLineEdit::Password);
    field->setPlaceholderText(name);
    field->setAccessibleName(name);
    field->setEnabled(canEncrypt);
    field->setToolTip(qt(passwordsUnavailableText()));
    return field;
}

QLabel* makeUnavailableNote(QWidget* parent) {
    auto* note = new QLabel(qt(passwordsUnavailableText()), parent);
    Theme::setText(*note, TextStyle::caption, ThemeColor::secondaryText);
    note->setAlignment(Qt::AlignHCenter);
    return note;
}

} // namespace

GateWidget::GateWidget(AppEnvironment& environment, std::function<void()> quit, QWidget& screen,
                       QWidget* parent)
    : QFrame(parent), environment_(environment), quit_(std::move(quit)), screen_(screen) {
    setObjectName(QStringLiteral("Cover"));
    auto* grid = new QGridLayout(this);
    grid->setRowStretch(0, 2);
    grid->setRowStretch(2, 3);
    libraryChanged_ = environment.store.libraryChanged.observe([this] { forgetBackdrop(); });
    refresh();
}

void GateWidget::forgetBackdrop() {
    backdrop_ = {};
    update();
}

void GateWidget::refresh() {
    const Cover cover = oakfen::cover(environment_);
    setVisible(cover != Cover::none);
    const GatePanel panel = gatePanel(environment_.store);
    const std::string reason = environment_.store.accessState().reason;
    Shown wanted{cover, panel, reason};
    if (shown_ == wanted) {
        return;
    }
    shown_ = std::move(wanted);
    forgetBackdrop();
    if (panel_ != nullptr) {
        panel_->hide();
        panel_->deleteLater();
    }
    panel_ = makePanel(cover, panel, reason);
    if (panel_ != nullptr) {
        static_cast<QGridLayout*>(layout())->addWidget(panel_, 1, 0, Qt::AlignCenter);
        panel_->show();
    }
}

void GateWidget::paintEvent(QPaintEvent* /*event*/) {
    if (backdrop_.isNull()) {
        backdrop_ = blurredPicture(screen_);
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), backdrop_);
    // A veil, so that the panel stands out.
    QColor veil = Theme::color(ThemeColor::window);
    veil.setAlphaF(0.5F);
    painter.fillRect(rect(), veil);
}

void GateWidget::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    forgetBackdrop();
}

void GateWidget::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        forgetBackdrop();
    }
}

QWidget* GateWidget::makePanel(Cover cover, GatePanel panel, const std::string& reason) {
    if (cover == Cover::lock) {
        return new LockWidget(environment_.appState, environment_.authenticator, this);
    }
    switch (panel) {
    case GatePanel::unlock:
        return makeUnlockPanel();
    case GatePanel::welcome:
        return new WelcomeWidget(environment_, this);
    case GatePanel::protectExistingData:
        return makeProtectPanel();
    case GatePanel::legacyUnavailable:
        return makeLegacyPanel(reason);
    case GatePanel::none:
        break;
    }
    return nullptr;
}

QWidget* GateWidget::makeUnlockPanel() {
    auto* panel = new GatePanelWidget(gatePanelText(GatePanel::unlock, {}), this);
    panel->fields().addWidget(makeUnavailableField(QStringLiteral("Password"), panel));
    panel->fields().addWidget(makeUnavailableNote(panel));
    auto* quit = new QPushButton(QStringLiteral("Quit Oakfen"), panel);
    connect(quit, &QPushButton::clicked, this, quit_);
    panel->buttons().addWidget(quit, 0, Qt::AlignHCenter);
    return panel;
}

QWidget* GateWidget::makeProtectPanel() {
    auto* panel = new GatePanelWidget(gatePanelText(GatePanel::protectExistingData, {}), this);
    const QPointer<GatePanelWidget> shown = panel;
    const PasswordChoiceButtons buttons = makePasswordChoiceButtons(
        {.cancelHelp = QStringLiteral("Quit Oakfen without changing your data file"),
         .submitTitle = QStringLiteral("Set Password"),
         .cancel = quit_,
         .useNoPassword =
             [this, shown] {
                 shown->setErrorText(std::nullopt);
                 chooseNoPassword(environment_, [shown](const std::string& text) {
                     if (shown != nullptr) {
                         shown->setErrorText(text);
                     }
                 });
             },
         .submit = [] {}},
        panel);
    panel->fields().addWidget(new NewPasswordFields(
        passwordForm_,
        [this, submit = buttons.submit] {
            submit->setEnabled(canEncrypt && passwordForm_.canSubmit());
        },
        panel));
    panel->buttons().addWidget(buttons.row);
    panel->setCancelButton(buttons.cancel);
    panel->setDefaultButton(canEncrypt ? buttons.submit : buttons.useNoPassword);
    return panel;
}

QWidget* GateWidget::makeLegacyPanel(const std::string& reason) {
    auto* panel = new GatePanelWidget(gatePanelText(GatePanel::legacyUnavailable, reason), this);
    if (environment_.store.accessState().recoverable) {
        panel->fields().addWidget(
            makeUnavailableField(QStringLiteral("Recovery passphrase"), panel));
        panel->fields().addWidget(makeUnavailableNote(panel));
    }
    auto* again = new QPushButton(QStringLiteral("Try Again"), panel);
    connect(again, &QPushButton::clicked, this, [this] { environment_.store.retryLoading(); });
    auto* over = new QPushButton(QStringLiteral("Start Over…"), panel);
    Theme::setTrait(*over, "destructive");
    connect(over, &QPushButton::clicked, this, [this] { chooseStartOver(environment_); });
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(again);
    row->addWidget(over);
    row->addStretch(1);
    panel->buttons().addLayout(row);
    panel->setDefaultButton(again);
    return panel;
}

} // namespace oakfen
