#pragma once

#include "Oakfen/Views/Editors/CategoryEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

/// Draws the category editor.
class CategoryEditorDialog final : public EditorSheetOf<CategoryEditor> {
    Q_OBJECT

public:
    CategoryEditorDialog(AppEnvironment& environment, const ActiveSheet::Category& sheet,
                         QWidget* parent = nullptr);
};

} // namespace oakfen
