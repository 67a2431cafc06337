#include "Oakfen/Widgets/Editors/ContributionDialog.h"

namespace oakfen {

ContributionDialog::ContributionDialog(AppEnvironment& environment, const UUID& goalID,
                                       QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<ContributionEditor>(environment, goalID),
                    parent) {
    constexpr int sheetWidth = 384;
    setMinimumWidth(sheetWidth);
    form().amount(tr("Amount"), editor().contribution);
    begin();
}

} // namespace oakfen
