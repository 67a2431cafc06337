#pragma once

#include "Oakfen/Views/Editors/AccountEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

/// Draws the account editor.
class AccountEditorDialog final : public EditorSheetOf<AccountEditor> {
    Q_OBJECT

public:
    /// Without an id, for a new account.
    AccountEditorDialog(AppEnvironment& environment, std::optional<UUID> accountID,
                        QWidget* parent = nullptr);
};

} // namespace oakfen
