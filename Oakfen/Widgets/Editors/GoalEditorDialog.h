#pragma once

#include "Oakfen/Views/Editors/GoalEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

/// Draws the editor of a savings goal.
class GoalEditorDialog final : public EditorSheetOf<GoalEditor> {
    Q_OBJECT

public:
    /// Without an id, for a new goal.
    GoalEditorDialog(AppEnvironment& environment, const std::optional<UUID>& goalID,
                     QWidget* parent = nullptr);
};

} // namespace oakfen
