#include "Oakfen/Widgets/Components/EditorSheet.h"

#include <QKeyEvent>

#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

namespace {

/// Says so to those who listen, once.
void describe(QWidget& widget, const QString& text) {
    if (widget.accessibleDescription() != text) {
        widget.setAccessibleDescription(text);
    }
}

/// Enables the button unless something stands in the way, which it then says.
void showObstacle(QPushButton& button, const std::optional<std::string>& obstacle,
                  const QString& help) {
    button.setEnabled(!obstacle);
    button.setToolTip(obstacle ? plainToolTip(qt(*obstacle)) : help);
    describe(button, obstacle ? qt(*obstacle) : help);
}

} // namespace

EditorSheet::EditorSheet(AppEnvironment& environment, Editor& editor, QWidget* parent)
    : SheetScaffold(environment.panels, qt(editor.title()), qt(editor.primaryTitle()), parent),
      environment_(environment), editor_(editor), form_(new Form(environment.clock)),
      work_(new QLabel) {
    content()->addWidget(form_);
    form_->changed = [this] { refresh(); };
    editor_.workEnded = [this](const auto& failure) { endWork(failure); };
    work_->setTextFormat(Qt::PlainText);
    Theme::setText(*work_, TextStyle::body, ThemeColor::secondaryText);
}

void EditorSheet::begin() {
    content()->addWidget(work_);
    if (const auto action = editor_.secondAction()) {
        connect(addSecondButton(qt(action->title)), &QPushButton::clicked, this,
                [this] { pressSecondButton(); });
    }
    if (const auto confirmation = editor_.deleteConfirmation()) {
        addDestructiveButton(*confirmation);
    }
    refresh();
    form_->focusFirst();
}

void EditorSheet::refresh() {
    form_->refresh();
    setSubtitle(qt(editor_.subtitle()));
    setProblem({});
    showButtons();
    showWork();
}

void EditorSheet::showButtons() {
    showObstacle(*primaryButton(), editor_.obstacle(),
                 tr("%1 (Return)").arg(withoutMnemonic(primaryButton()->text())));
    if (const auto action = editor_.secondAction(); action && secondButton() != nullptr) {
        showObstacle(*secondButton(), action->obstacle, qt(action->help));
    }
}

void EditorSheet::showWork() {
    const bool isWorking = editor_.isWorking();
    work_->setText(qt(editor_.work()));
    work_->setVisible(isWorking);
    describe(*this, isWorking ? work_->text() : qt(editor_.subtitle()));
    form_->setEnabled(!isWorking);
    cancelButton()->setEnabled(!isWorking);
    if (destructiveButton() != nullptr) {
        destructiveButton()->setEnabled(!isWorking);
    }
    if (isWorking) {
        primaryButton()->setEnabled(false);
        if (secondButton() != nullptr) {
            secondButton()->setEnabled(false);
        }
    }
}

void EditorSheet::tellObstacle() {
    if (const std::optional<std::string> obstacle = editor_.obstacle()) {
        setProblem(qt(*obstacle));
    }
}

void EditorSheet::save() {
    editor_.save();
}

void EditorSheet::finish() {
    perform([this] { save(); });
}

void EditorSheet::pressSecondButton() {
    if (!finishFields()) {
        return;
    }
    // What was still being typed may have changed whether it can be done.
    const std::optional<SecondAction> action = editor_.secondAction();
    if (!action || action->obstacle) {
        return;
    }
    const auto performIt = [sheet = QPointer<EditorSheet>(this)](bool isConfirmed) {
        if (sheet && isConfirmed) {
            sheet->perform([sheet] { sheet->editor_.performSecondAction(); });
        }
    };
    if (action->confirmation) {
        environment_.panels.confirm(*action->confirmation, performIt);
    } else {
        performIt(true);
    }
}

void EditorSheet::perform(const std::function<void()>& action) {
    try {
        action();
    } catch (const LocalizedError& error) {
        setProblem(qt(error.localizedDescription()));
        return;
    }
    if (!editor_.isWorking()) {
        accept();
        return;
    }
    workedFrom_ = focusWidget();
    refresh();
    // The fields can't have the keyboard now; here, what goes on is heard.
    setFocus(Qt::OtherFocusReason);
}

void EditorSheet::endWork(const std::optional<std::string>& failure) {
    if (!failure) {
        accept();
        return;
    }
    refresh();
    if (workedFrom_ != nullptr) {
        workedFrom_->setFocus(Qt::OtherFocusReason);
    }
    setProblem(qt(*failure));
}

void EditorSheet::performDestructiveAction() {
    editor_.performDelete();
}

void EditorSheet::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (editor_.isWorking()) {
        event->accept();
    } else if (isReturn && !editor_.canSave() && !isOnButton()) {
        tellObstacle();
    } else {
        SheetScaffold::keyPressEvent(event);
    }
}

} // namespace oakfen
