#pragma once

#include "Oakfen/Views/Editors/ContributionEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

/// Draws the sheet that changes what is saved for a goal.
class ContributionDialog final : public EditorSheetOf<ContributionEditor> {
    Q_OBJECT

public:
    ContributionDialog(AppEnvironment& environment, const UUID& goalID, QWidget* parent = nullptr);
};

} // namespace oakfen
