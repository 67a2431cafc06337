#pragma once

#include "Oakfen/Views/TransactionEditor.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace oakfen {

class AccountPicker;
class AmountField;
class CategoryPicker;
class DateField;
class MoneyLabel;
class PayeeField;
class SegmentedChoice;
class SplitRowsWidget;

/// Draws the transaction editor. Return saves; Ctrl+Return saves a new entry and starts the next
/// one in its place.
class TransactionEditorDialog final : public SheetScaffold {
    Q_OBJECT

public:
    TransactionEditorDialog(AppEnvironment& environment, const TransactionEditor& editor,
                            QWidget* parent = nullptr);

    [[nodiscard]] TransactionEditor& editor() { return editor_; }

protected:
    void save() override;
    void performDestructiveAction() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addFirstFields();
    void addAmountFields();
    void addTransferFields();
    void addCategoryFields();
    void addLastFields();
    QLineEdit* addText(const QString& title, std::string& text, const QString& prompt = {});

    /// Writes the whole draft into the fields.
    void showDraft();
    void showTransferChoices();
    /// Shows the fields that the draft's kind has.
    void showFieldsOfKind();
    /// After each change: what follows from it, but none of the fields.
    void showState();

    /// Return applies a known payee first; the next one saves.
    bool answerReturnInPayee();
    /// Fills the draft in, if the payee is known, and goes to where one types on.
    bool applyMemorizedPayee();
    void startSplitting();
    void stopSplitting();
    void saveAndStartNext();
    /// Says why the draft can’t be saved.
    void tellObstacle();

    AppEnvironment& environment_;
    TransactionEditor editor_;
    /// The payee that the draft was filled in for, which needs no second time.
    std::string appliedPayee_;
    QFormLayout* form_;
    SegmentedChoice* kind_;
    AccountPicker* account_;
    DateField* date_;
    PayeeField* payee_;
    AmountField* amount_;
    MoneyLabel* total_;
    SegmentedChoice* direction_;
    QLabel* transferLabel_;
    AccountPicker* transfer_;
    CategoryPicker* category_;
    QPushButton* split_;
    SplitRowsWidget* splitRows_;
    QLineEdit* memo_ = nullptr;
    QLineEdit* checkNumber_ = nullptr;
    QLineEdit* tags_ = nullptr;
    QComboBox* cleared_;
};

} // namespace oakfen
