#include "Oakfen/Widgets/Gate/NewPasswordFields.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <utility>

#include "Oakfen/Widgets/Components/WrappedLabel.h"
#include "Oakfen/Widgets/Gate/GatePanelWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// Of what stands beside the names of the fields.
constexpr int captionWidth = 260;

QLineEdit* makeSecureField(const QString& name, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setEchoMode(QLineEdit::Password);
    field->setAccessibleName(name);
    field->setEnabled(canEncrypt);
    field->setToolTip(qt(passwordsUnavailableText()));
    return field;
}

WrappedLabel* makeCaption(int width, QWidget* parent) {
    return new WrappedLabel(TextStyle::caption, ThemeColor::secondaryText, width, parent);
}

ThemeColor strengthColor(int level) {
    if (level < 2) {
        return ThemeColor::negative;
    }
    return level == 2 ? ThemeColor::warning : ThemeColor::positive;
}

} // namespace

NewPasswordFields::NewPasswordFields(NewPasswordForm& form, std::function<void()> changed,
                                     QWidget* parent)
    : QWidget(parent), form_(form), changed_(std::move(changed)), fields_(new QFormLayout),
      password_(makeSecureField(QStringLiteral("Password"), this)),
      confirm_(makeSecureField(QStringLiteral("Confirm Password"), this)),
      strengthRow_(new QWidget(this)), strengthBar_(new QProgressBar(strengthRow_)),
      strengthWord_(new QLabel(strengthRow_)),
      remember_(new QCheckBox(QStringLiteral("Remember password in Keychain"), this)),
      rememberCaption_(makeCaption(captionWidth, this)),
      hint_(makeCaption(GatePanelWidget::contentWidth, this)) {
    strengthBar_->setRange(0, 4);
    strengthBar_->setTextVisible(false);
    strengthBar_->setFixedHeight(6);
    strengthBar_->setAccessibleName(QStringLiteral("Strength"));
    auto* strength = new QHBoxLayout(strengthRow_);
    strength->setContentsMargins(0, 0, 0, 0);
    strength->addWidget(strengthBar_, 1);
    strength->addWidget(strengthWord_);

    rememberCaption_->showText(qt(rememberCaption));
    remember_->setEnabled(canEncrypt);
    remember_->setToolTip(qt(passwordsUnavailableText()));
    remember_->setChecked(form_.remember);
    password_->setText(qt(form_.password));
    confirm_->setText(qt(form_.confirm));

    fields_->setHorizontalSpacing(Theme::grid * 2);
    fields_->setVerticalSpacing(Theme::grid);
    fields_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fields_->addRow(QStringLiteral("Password"), password_);
    fields_->addRow(QStringLiteral("Confirm Password"), confirm_);
    fields_->addRow(QStringLiteral("Strength"), strengthRow_);
    fields_->addRow(QString(), remember_);
    fields_->addRow(QString(), rememberCaption_);
    for (QLineEdit* field : {password_, confirm_}) {
        fields_->labelForField(field)->setMinimumHeight(field->sizeHint().height());
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::grid);
    column->addLayout(fields_);
    column->addWidget(hint_);
    if (!canEncrypt) {
        WrappedLabel* unavailable = makeCaption(GatePanelWidget::contentWidth, this);
        unavailable->showText(qt(passwordsUnavailableText()));
        column->addWidget(unavailable);
    }

    connect(password_, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.password = utf8(text);
        refresh();
    });
    connect(confirm_, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.confirm = utf8(text);
        refresh();
    });
    connect(remember_, &QCheckBox::toggled, this, [this](bool isOn) {
        form_.remember = isOn;
        refresh();
    });
    refresh();
}

void NewPasswordFields::refresh() {
    const PasswordRating rating = passwordRating(form_.password);
    fields_->setRowVisible(strengthRow_, rating.level > 0);
    strengthBar_->setValue(rating.level);
    QPalette colors = strengthBar_->palette();
    colors.setColor(QPalette::Highlight, Theme::color(strengthColor(rating.level)));
    strengthBar_->setPalette(colors);
    strengthWord_->setText(qt(rating.word));
    Theme::setText(*strengthWord_, TextStyle::captionStrong, strengthColor(rating.level));
    rememberCaption_->setVisible(form_.remember);
    hint_->showText(qt(form_.hint()));
    changed_();
}

PasswordChoiceButtons makePasswordChoiceButtons(const PasswordChoiceActions& actions,
                                                QWidget* parent) {
    PasswordChoiceButtons buttons{};
    buttons.row = new QWidget(parent);
    buttons.cancel = new QPushButton(QStringLiteral("Cancel"), buttons.row);
    buttons.cancel->setToolTip(actions.cancelHelp);
    buttons.useNoPassword = new QPushButton(QStringLiteral("Don’t Use a Password"), buttons.row);
    buttons.useNoPassword->setToolTip(QStringLiteral("Save the data file unencrypted"));
    buttons.submit = new QPushButton(actions.submitTitle, buttons.row);
    buttons.submit->setToolTip(qt(passwordsUnavailableText()));
    buttons.submit->setEnabled(false);
    QObject::connect(buttons.cancel, &QPushButton::clicked, buttons.row, actions.cancel);
    QObject::connect(buttons.useNoPassword, &QPushButton::clicked, buttons.row,
                     actions.useNoPassword);
    QObject::connect(buttons.submit, &QPushButton::clicked, buttons.row, actions.submit);

    auto* row = new QHBoxLayout(buttons.row);
    row->setContentsMargins(0, Theme::grid, 0, 0);
    row->setSpacing(Theme::grid);
    row->addWidget(buttons.cancel);
    row->addStretch(1);
    row->addWidget(buttons.useNoPassword);
    row->addWidget(buttons.submit);
    return buttons;
}

} // namespace oakfen
