#include "Oakfen/Widgets/AccountEditorDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStandardItemModel>

#include "Oakfen/Views/Components.h"
#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

namespace {

constexpr int sheetWidth = 480;
constexpr int amountWidth = 160;
constexpr int notesHeight = 68;

} // namespace

AccountEditorDialog::AccountEditorDialog(AppEnvironment& environment, std::optional<UUID> accountID,
                                         QWidget* parent)
    : SheetScaffold(environment.panels, accountID ? tr("Edit Account") : tr("New Account"),
                    accountID ? tr("Save") : tr("Add Account"), parent),
      editor_(environment, accountID), form_(addForm()), name_(new QLineEdit), type_(new QComboBox),
      institution_(new QLineEdit), openingBalanceLabel_(new QLabel),
      openingBalanceHint_(new QLabel),
      openingDate_(new DateField(tr("As Of"), environment.clock.calendar())),
      hasAlert_(new QCheckBox(tr("Alert When Balance Is Low"))),
      isClosed_(new QCheckBox(tr("Closed"))), notes_(new QPlainTextEdit) {
    setMinimumWidth(sheetWidth);
    addTextFields();
    addBalanceFields();
    addTypeFields();
    addLastFields();
    if (const auto confirmation = editor_.deleteConfirmation()) {
        addDestructiveButton(*confirmation);
    }
    showFieldsOfType();
    setCanSave(editor_.canSave());
    name_->setFocus();
}

void AccountEditorDialog::addTextFields() {
    name_->setText(qt(editor_.draft.name));
    name_->setPlaceholderText(tr("e.g. Everyday Chequing"));
    name_->setAccessibleName(tr("Name"));
    connect(name_, &QLineEdit::textChanged, this, [this](const QString& text) {
        editor_.draft.name = utf8(text);
        setCanSave(editor_.canSave());
    });
    form_->addRow(tr("Name"), name_);

    fillTypes();
    type_->setAccessibleName(tr("Type"));
    connect(type_, &QComboBox::activated, this, [this](int index) {
        editor_.draft.type = static_cast<AccountType>(type_->itemData(index).toInt());
        showFieldsOfType();
    });
    form_->addRow(tr("Type"), type_);

    institution_->setText(qt(editor_.draft.institution));
    institution_->setCursorPosition(0);
    institution_->setPlaceholderText(tr("Optional"));
    institution_->setAccessibleName(tr("Institution"));
    connect(institution_, &QLineEdit::textChanged, this,
            [this](const QString& text) { editor_.draft.institution = utf8(text); });
    form_->addRow(tr("Institution"), institution_);
}

void AccountEditorDialog::fillTypes() {
    auto* items = qobject_cast<QStandardItemModel*>(type_->model());
    for (const AccountGroup each : allCases<AccountGroup>) {
        type_->addItem(qt(pickerTitle(each)));
        QStandardItem* header = items->item(type_->count() - 1);
        header->setFlags(Qt::NoItemFlags);
        header->setFont(Theme::font(TextStyle::captionStrong));
        for (const AccountType type : allCases<AccountType>) {
            if (group(type) == each) {
                type_->addItem(symbolIcon(symbolName(type), ThemeColor::secondaryText),
                               qt(oakfen::title(type)), static_cast<int>(type));
            }
        }
    }
    type_->setMaxVisibleItems(type_->count());
    type_->setCurrentIndex(type_->findData(static_cast<int>(editor_.draft.type)));
}

AmountField* AccountEditorDialog::addAmount(const QString& title, Decimal& value, AmountKind kind) {
    auto* field = new AmountField(title, kind);
    field->setMaximumWidth(amountWidth);
    field->setValue(value);
    field->edited = [this, field, &value] {
        value = field->value();
        setProblem({});
        setCanSave(editor_.canSave());
    };
    return field;
}

void AccountEditorDialog::addBalanceFields() {
    openingBalance_ = addAmount(tr("Opening Balance"), editor_.draft.openingBalance);
    openingBalanceHint_->setTextFormat(Qt::PlainText);
    Theme::setText(*openingBalanceHint_, TextStyle::caption, ThemeColor::secondaryText);
    openingBalanceLabel_->setBuddy(openingBalance_);
    form_->addRow(openingBalanceLabel_, openingBalance_);
    form_->addRow(QString(), openingBalanceHint_);

    openingDate_->setMaximumWidth(amountWidth);
    openingDate_->setPurpose(tr("The day of the opening balance"));
    openingDate_->setValue(editor_.draft.openingDate);
    openingDate_->edited = [this] {
        editor_.draft.openingDate = openingDate_->value();
        setProblem({});
    };
    form_->addRow(tr("As Of"), openingDate_);
}

void AccountEditorDialog::addTypeFields() {
    creditLimit_ = addAmount(tr("Credit Limit"), editor_.creditLimit);
    form_->addRow(tr("Credit Limit"), creditLimit_);
    interestRate_ = addAmount(tr("Interest Rate (%)"), editor_.interestRate, AmountKind::number);
    form_->addRow(tr("Interest Rate (%)"), interestRate_);

    hasAlert_->setChecked(editor_.hasLowBalanceAlert);
    connect(hasAlert_, &QCheckBox::toggled, this, [this](bool isOn) {
        editor_.hasLowBalanceAlert = isOn;
        showFieldsOfType();
    });
    form_->addRow(QString(), hasAlert_);
    lowBalance_ = addAmount(tr("Minimum Balance"), editor_.lowBalance);
    form_->addRow(tr("Minimum Balance"), lowBalance_);
}

void AccountEditorDialog::addLastFields() {
    isClosed_->setChecked(editor_.draft.isClosed);
    isClosed_->setToolTip(tr("Keeps the account’s history but leaves it out of lists and totals"));
    connect(isClosed_, &QCheckBox::toggled, this,
            [this](bool isOn) { editor_.draft.isClosed = isOn; });
    form_->addRow(QString(), isClosed_);
    form_->setRowVisible(isClosed_, editor_.showsClosed());

    notes_->setPlainText(qt(editor_.draft.notes));
    notes_->setAccessibleName(tr("Notes"));
    notes_->setTabChangesFocus(true);
    notes_->setFixedHeight(notesHeight);
    connect(notes_, &QPlainTextEdit::textChanged, this,
            [this] { editor_.draft.notes = utf8(notes_->toPlainText()); });
    form_->addRow(tr("Notes"), notes_);
}

void AccountEditorDialog::showFieldsOfType() {
    openingBalanceLabel_->setText(qt(editor_.openingBalanceLabel()));
    openingBalance_->setAccessibleName(qt(editor_.openingBalanceLabel()));
    openingBalanceHint_->setText(qt(editor_.openingBalanceHint()));
    form_->setRowVisible(openingBalanceHint_, !editor_.openingBalanceHint().empty());
    form_->setRowVisible(creditLimit_, editor_.showsCreditLimit());
    form_->setRowVisible(interestRate_, editor_.showsInterestRate());
    form_->setRowVisible(hasAlert_, editor_.showsLowBalanceAlert());
    form_->setRowVisible(lowBalance_, editor_.showsLowBalanceAlert() && editor_.hasLowBalanceAlert);
}

void AccountEditorDialog::save() {
    editor_.save();
}

void AccountEditorDialog::performDestructiveAction() {
    editor_.performDelete();
}

} // namespace oakfen
