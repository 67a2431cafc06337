#include "Oakfen/Widgets/Components/EditorSheet.h"

#include <QKeyEvent>

#include "Oakfen/Widgets/Bridge.h"

namespace oakfen {

EditorSheet::EditorSheet(AppEnvironment& environment, Editor& editor, QWidget* parent)
    : SheetScaffold(environment.panels, qt(editor.title()), qt(editor.primaryTitle()), parent),
      environment_(environment), editor_(editor), form_(new Form(environment.clock.calendar())) {
    content()->addWidget(form_);
    form_->changed = [this] { refresh(); };
}

void EditorSheet::begin() {
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
    const std::optional<std::string> obstacle = editor_.obstacle();
    setCanSave(!obstacle);
    QPushButton* button = primaryButton();
    button->setToolTip(obstacle ? plainToolTip(qt(*obstacle))
                                : tr("%1 (Return)").arg(button->text()));
    button->setAccessibleDescription(obstacle ? qt(*obstacle) : QString());
}

void EditorSheet::tellObstacle() {
    if (const std::optional<std::string> obstacle = editor_.obstacle()) {
        setProblem(qt(*obstacle));
    }
}

void EditorSheet::save() {
    editor_.save();
}

void EditorSheet::performDestructiveAction() {
    editor_.performDelete();
}

void EditorSheet::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !editor_.canSave() && !isOnButton()) {
        tellObstacle();
    } else {
        SheetScaffold::keyPressEvent(event);
    }
}

} // namespace oakfen
