#pragma once

#include "Oakfen/Views/Editors/AccountEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

class EntryField;

/// Draws the account editor.
class AccountEditorDialog final : public EditorSheetOf<AccountEditor> {
    Q_OBJECT

public:
    /// Without an id, for a new account.
    AccountEditorDialog(AppEnvironment& environment, std::optional<UUID> accountID,
                        QWidget* parent = nullptr);

private:
    /// Beneath the opening balance of a debt: what it means, and what turns its sign.
    void addMeaning(const EntryField& opening);
};

} // namespace oakfen
