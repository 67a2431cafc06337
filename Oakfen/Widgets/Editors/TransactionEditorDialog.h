#pragma once

#include "Oakfen/Views/Editors/TransactionEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

class PayeeField;
class SplitRowsWidget;

/// Draws the transaction editor. Return saves; Ctrl+Return saves a new entry and starts the next
/// one in its place.
class TransactionEditorDialog final : public EditorSheetOf<TransactionEditor> {
    Q_OBJECT

public:
    TransactionEditorDialog(AppEnvironment& environment, const TransactionEditor& editor,
                            QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addFirstFields();
    void addPayee();
    void addAmountFields();
    void addTransferFields();
    void addCategoryFields();
    void addLastFields();

    /// Return applies a known payee first; the next one saves.
    bool answerReturnInPayee();
    /// Fills the draft in, if the payee is known, and goes to where one types on.
    bool applyMemorizedPayee();
    void startSplitting();
    void stopSplitting();
    void saveAndStartNext();

    /// The payee that the draft was filled in for, which needs no second time.
    std::string appliedPayee_;
    PayeeField* payee_;
    QWidget* amount_ = nullptr;
    QWidget* category_ = nullptr;
    SplitRowsWidget* splitRows_;
};

} // namespace oakfen
