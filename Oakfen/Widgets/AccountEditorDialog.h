#pragma once

#include "Oakfen/Views/AccountEditor.h"
#include "Oakfen/Views/AmountEntry.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;

namespace oakfen {

class AmountField;
class DateField;

/// Draws the account editor.
class AccountEditorDialog final : public SheetScaffold {
    Q_OBJECT

public:
    /// Without an id, for a new account.
    AccountEditorDialog(AppEnvironment& environment, std::optional<UUID> accountID,
                        QWidget* parent = nullptr);

    [[nodiscard]] AccountEditor& editor() { return editor_; }

protected:
    void save() override;
    void performDestructiveAction() override;

private:
    void addTextFields();
    void addBalanceFields();
    void addTypeFields();
    void addLastFields();
    void fillTypes();
    AmountField* addAmount(const QString& title, Decimal& value,
                           AmountKind kind = AmountKind::money);
    /// Shows the fields that the chosen type has.
    void showFieldsOfType();

    AccountEditor editor_;
    QFormLayout* form_;
    QLineEdit* name_;
    QComboBox* type_;
    QLineEdit* institution_;
    AmountField* openingBalance_ = nullptr;
    QLabel* openingBalanceLabel_;
    QLabel* openingBalanceHint_;
    DateField* openingDate_;
    AmountField* creditLimit_ = nullptr;
    AmountField* interestRate_ = nullptr;
    QCheckBox* hasAlert_;
    AmountField* lowBalance_ = nullptr;
    QCheckBox* isClosed_;
    QPlainTextEdit* notes_;
};

} // namespace oakfen
