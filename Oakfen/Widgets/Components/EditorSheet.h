#pragma once

#include <memory>
#include <utility>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Editor.h"
#include "Oakfen/Widgets/Components/Form.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"

namespace oakfen {

/// The sheet of any editor: a form under the editor's title, and buttons that do what it can do.
/// While something keeps the draft from being saved, the default button says what, and so does
/// Return. While the editor works in the background, the sheet says at what, and takes nothing
/// else.
class EditorSheet : public SheetScaffold {
    Q_OBJECT

protected:
    EditorSheet(AppEnvironment& environment, Editor& editor, QWidget* parent);

    /// Where the constructor of a sheet declares its fields.
    [[nodiscard]] Form& form() { return *form_; }
    /// Ends that constructor: shows the draft, and goes to the first field.
    void begin();
    /// Shows the draft as it is now, and what follows from it.
    void refresh();
    /// Says why the draft can’t be saved.
    void tellObstacle();

    void save() override;
    void finish() override;
    void performDestructiveAction() override;
    void keyPressEvent(QKeyEvent* event) override;

    AppEnvironment& environment_;

private:
    void pressSecondButton();
    /// Does what ends the sheet, and closes it unless that failed or still goes on.
    void perform(const std::function<void()>& action);
    void showButtons();
    void showWork();
    void endWork(const std::optional<std::string>& failure);

    Editor& editor_;
    Form* form_;
    QLabel* work_;
    /// Where the keyboard was when the work began.
    QPointer<QWidget> workedFrom_;
};

/// The sheet of an editor that it owns.
template <typename OwnEditor>
class EditorSheetOf : public EditorSheet {
public:
    /// Hidden before the draft goes: a field that loses the keyboard still writes into it.
    ~EditorSheetOf() override { hide(); }

    [[nodiscard]] OwnEditor& editor() { return *own_; }

protected:
    EditorSheetOf(AppEnvironment& environment, std::unique_ptr<OwnEditor> editor, QWidget* parent)
        : EditorSheet(environment, *editor, parent), own_(std::move(editor)) {}

private:
    std::unique_ptr<OwnEditor> own_;
};

} // namespace oakfen
