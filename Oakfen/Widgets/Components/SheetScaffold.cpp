#include "Oakfen/Widgets/Components/SheetScaffold.h"

#include <QAbstractSpinBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>

#include "Oakfen/Widgets/Components/CheckedField.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/SheetBody.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

QLabel* makeLabel(TextStyle style, ThemeColor color) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // A name or a pasted text may be one word that is wider than the screen.
    label->setMinimumWidth(1);
    Theme::setText(*label, style, color);
    return label;
}

} // namespace

SheetScaffold::SheetScaffold(Panels& panels, const QString& title, const QString& primaryTitle,
                             QWidget* parent)
    : QDialog(parent), panels_(panels), title_(makeLabel(TextStyle::headline, ThemeColor::text)),
      subtitle_(makeLabel(TextStyle::body, ThemeColor::secondaryText)), body_(new SheetBody),
      buttons_(new QHBoxLayout), problem_(makeLabel(TextStyle::caption, ThemeColor::negative)),
      cancel_(new QPushButton(tr("Cancel"))), primary_(new QPushButton(primaryTitle)) {
    setWindowTitle(title);
    // Within a window the title of a window isn't read.
    setAccessibleName(title);
    title_->setText(title);
    subtitle_->hide();
    problem_->hide();
    problem_->setContentsMargins(0, 0, 0, Theme::grid);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(3 * Theme::grid, 3 * Theme::grid, 3 * Theme::grid, 3 * Theme::grid);
    layout->setSpacing(Theme::grid / 2);
    layout->addWidget(title_);
    layout->addWidget(subtitle_);
    layout->addSpacing(3 * Theme::grid / 2);
    layout->addWidget(body_, 1);
    layout->addSpacing(3 * Theme::grid / 2);
    layout->addWidget(problem_);
    layout->addLayout(buttons_);

    buttons_->setSpacing(Theme::grid);
    buttons_->addStretch(1);
    buttons_->addWidget(cancel_);
    buttons_->addWidget(primary_);
    cancel_->setAutoDefault(false);
    cancel_->setToolTip(tr("Close without saving"));
    // The toolkit would take it for the default button no longer, once the keyboard has been on it:
    // it looks for that in windows only.
    primary_->setAutoDefault(false);
    primary_->setDefault(true);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(primary_, &QPushButton::clicked, this, [this] { savePressed(); });
}

void SheetScaffold::done(int result) {
    Q_EMIT closing();
    QDialog::done(result);
}

QVBoxLayout* SheetScaffold::content() const {
    return body_->content();
}

void SheetScaffold::setSubtitle(const QString& subtitle) {
    if (subtitle == subtitle_->text()) {
        return;
    }
    subtitle_->setText(subtitle);
    setAccessibleDescription(subtitle);
    subtitle_->setVisible(!subtitle.isEmpty());
}

void SheetScaffold::setCanSave(bool canSave) {
    primary_->setEnabled(canSave);
}

void SheetScaffold::setPrimaryTitle(const QString& title) {
    primary_->setText(title);
    primary_->setMinimumWidth(std::max(primary_->minimumWidth(), primary_->sizeHint().width()));
}

void SheetScaffold::addDestructiveButton(const ConfirmationRequest& confirmation) {
    destructive_ = new QPushButton(qt(confirmation.confirmTitle));
    destructive_->setProperty("destructive", true);
    destructive_->setAutoDefault(false);
    destructive_->setToolTip(tr("Asks before it does anything"));
    buttons_->insertWidget(0, destructive_);
    connect(destructive_, &QPushButton::clicked, this,
            [this, confirmation] { confirmDestructiveAction(confirmation); });
}

QPushButton* SheetScaffold::addSecondButton(const QString& title) {
    second_ = new QPushButton(title);
    second_->setAutoDefault(false);
    buttons_->insertWidget(buttons_->indexOf(primary_), second_);
    setTabOrder(cancel_, second_);
    setTabOrder(second_, primary_);
    return second_;
}

QFormLayout* SheetScaffold::addForm() {
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(2 * Theme::grid);
    form->setVerticalSpacing(Theme::grid);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    content()->addLayout(form);
    return form;
}

void SheetScaffold::setProblem(const QString& text) {
    const QString earlier = problem_->text();
    problem_->setText(text);
    problem_->setVisible(!text.isEmpty());
    // Who can't see the line hears it where the keyboard is. A field that says something else by
    // now has mended itself.
    if (toldBy_ != nullptr && toldBy_->accessibleDescription() == earlier) {
        toldBy_->setAccessibleDescription(toldInsteadOf_);
    }
    toldBy_ = text.isEmpty() ? nullptr : focusWidget();
    if (toldBy_ != nullptr) {
        toldInsteadOf_ = toldBy_->accessibleDescription();
        toldBy_->setAccessibleDescription(text);
    }
}

bool SheetScaffold::isOnButton() const {
    const auto* button = qobject_cast<const QPushButton*>(focusWidget());
    return button != nullptr && !button->isCheckable();
}

void SheetScaffold::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && isOnButton()) {
        // The sheet's own button would save what the person is about to cancel.
        qobject_cast<QPushButton*>(focusWidget())->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

void SheetScaffold::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    putButtonsLast();
}

void SheetScaffold::putButtonsLast() {
    problem_->raise();
    for (QPushButton* button : {destructive_, cancel_, second_, primary_}) {
        if (button != nullptr) {
            button->raise();
        }
    }
}

bool SheetScaffold::finishFields() {
    for (QComboBox* box : findChildren<QComboBox*>()) {
        if (auto* picker = dynamic_cast<PickerBox*>(box)) {
            picker->takeTypedText();
        }
    }
    for (QAbstractSpinBox* stepper : findChildren<QAbstractSpinBox*>()) {
        stepper->interpretText();
    }
    const auto [field, widget] = unreadableField();
    if (field == nullptr) {
        return true;
    }
    widget->setFocus(Qt::OtherFocusReason);
    setProblem(widget->accessibleName() + QStringLiteral(": ") + field->explanation());
    field->selectText();
    return false;
}

void SheetScaffold::savePressed() {
    // What was still being typed may have changed whether the draft can be saved.
    if (finishFields() && primary_->isEnabled()) {
        finish();
    }
}

void SheetScaffold::finish() {
    save();
    accept();
}

void SheetScaffold::confirmDestructiveAction(const ConfirmationRequest& confirmation) {
    panels_.confirm(confirmation, [sheet = QPointer<SheetScaffold>(this)](bool isConfirmed) {
        if (sheet && isConfirmed) {
            sheet->performDestructiveAction();
            sheet->accept();
        }
    });
}

SheetScaffold::UnreadableField SheetScaffold::unreadableField() const {
    for (QWidget* widget : findChildren<QWidget*>()) {
        auto* field = dynamic_cast<CheckedField*>(widget);
        if (field != nullptr && widget->isVisibleTo(this) && !field->isReadable()) {
            return {field, widget};
        }
    }
    return {};
}

} // namespace oakfen
