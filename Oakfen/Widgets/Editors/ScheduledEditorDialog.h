#pragma once

#include "Oakfen/Views/Editors/ScheduledEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

/// Draws the editor of a reminder.
class ScheduledEditorDialog final : public EditorSheetOf<ScheduledEditor> {
    Q_OBJECT

public:
    ScheduledEditorDialog(AppEnvironment& environment, const ActiveSheet::Scheduled& sheet,
                          QWidget* parent = nullptr);

private:
    void addPayee();
    void addAccountFields();
    void addTimeFields();
};

} // namespace oakfen
