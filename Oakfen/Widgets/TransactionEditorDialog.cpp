#include "Oakfen/Widgets/TransactionEditorDialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/SegmentedChoice.h"
#include "Oakfen/Widgets/PayeeField.h"
#include "Oakfen/Widgets/SplitRowsWidget.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

namespace {

constexpr int sheetWidth = 620;
constexpr int shortWidth = 160;

QStringList kindTitles() {
    QStringList titles;
    for (const TransactionEditor::Kind kind : allCases<TransactionEditor::Kind>) {
        titles.append(qt(title(kind)));
    }
    return titles;
}

void showText(QLineEdit& field, const std::string& text) {
    const QSignalBlocker blocker(&field);
    field.setText(qt(text));
}

} // namespace

TransactionEditorDialog::TransactionEditorDialog(AppEnvironment& environment,
                                                 const TransactionEditor& editor, QWidget* parent)
    : SheetScaffold(environment.panels, qt(editor.title()), tr("Save"), parent),
      environment_(environment), editor_(editor), form_(addForm()),
      kind_(new SegmentedChoice(tr("Type"), kindTitles())),
      account_(new AccountPicker(tr("Account"))),
      date_(new DateField(tr("Date"), environment.clock.calendar())),
      payee_(new PayeeField(tr("Payee"))), amount_(new AmountField(tr("Amount"))),
      total_(new MoneyLabel(TextStyle::bodyStrong)),
      direction_(new SegmentedChoice(tr("Direction"), {tr("Money Out"), tr("Money In")})),
      transferLabel_(new QLabel), transfer_(new AccountPicker(tr("To Account"))),
      category_(new CategoryPicker(tr("Category"))),
      split_(new QPushButton(tr("Split Across Categories…"))),
      splitRows_(new SplitRowsWidget(editor_)), cleared_(new QComboBox) {
    setMinimumWidth(sheetWidth);
    addFirstFields();
    addAmountFields();
    addTransferFields();
    addCategoryFields();
    addLastFields();
    if (const auto confirmation = editor_.deleteConfirmation()) {
        addDestructiveButton(*confirmation);
    }
    setSubtitle(qt(editor_.subtitle()));
    showDraft();
    payee_->setFocus();
}

void TransactionEditorDialog::addFirstFields() {
    kind_->chosen = [this] {
        editor_.setKind(
            allCases<TransactionEditor::Kind>[static_cast<std::size_t>(kind_->choice())]);
        showFieldsOfKind();
        showState();
    };
    form_->addRow(tr("Type"), kind_);

    account_->setToolTip(tr("The account whose register holds the entry"));
    account_->chosen = [this] {
        editor_.accountSelection = account_->chosenID();
        showTransferChoices();
        showState();
    };
    form_->addRow(tr("Account"), account_);

    date_->setMaximumWidth(shortWidth);
    date_->setPurpose(tr("The day of the entry"));
    date_->edited = [this] {
        editor_.draft.date = date_->value();
        setProblem({});
    };
    form_->addRow(tr("Date"), date_);

    payee_->setToolTip(editor_.isNew()
                           ? tr("Return fills in the rest as it was with this payee last time")
                           : tr("Who was paid, or who paid"));
    payee_->suggestions = [this] {
        QStringList offered;
        for (const std::string& payee : editor_.payeeSuggestions()) {
            offered.append(qt(payee));
        }
        return offered;
    };
    payee_->edited = [this] {
        editor_.draft.payee = utf8(payee_->text());
        showState();
    };
    payee_->completed = [this] { applyMemorizedPayee(); };
    payee_->returned = [this] { return answerReturnInPayee(); };
    form_->addRow(tr("Payee"), payee_);
}

void TransactionEditorDialog::addAmountFields() {
    amount_->setMaximumWidth(shortWidth);
    amount_->edited = [this] {
        editor_.amount = amount_->value();
        showState();
    };
    form_->addRow(tr("Amount"), amount_);
    form_->addRow(tr("Amount"), total_);
}

void TransactionEditorDialog::addTransferFields() {
    direction_->chosen = [this] {
        editor_.transferIn = direction_->choice() == 1;
        showFieldsOfKind();
    };
    form_->addRow(tr("Direction"), direction_);
    transfer_->setToolTip(tr("The other account of the transfer"));
    transfer_->chosen = [this] {
        editor_.transferSelection = transfer_->chosenID();
        showState();
    };
    transferLabel_->setBuddy(transfer_);
    form_->addRow(transferLabel_, transfer_);
}

void TransactionEditorDialog::addCategoryFields() {
    category_->setToolTip(tr("Type any part of a category’s name"));
    category_->chosen = [this] { editor_.draft.categoryID = category_->chosenID(); };
    form_->addRow(tr("Category"), category_);
    split_->setAutoDefault(false);
    split_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    split_->setToolTip(tr("Assign parts of the amount to several categories"));
    connect(split_, &QPushButton::clicked, this, [this] { startSplitting(); });
    form_->addRow(QString(), split_);

    splitRows_->edited = [this] { showState(); };
    splitRows_->removed = [this] { stopSplitting(); };
    form_->addRow(tr("Splits"), splitRows_);
}

void TransactionEditorDialog::addLastFields() {
    memo_ = addText(tr("Memo"), editor_.draft.memo);
    checkNumber_ = addText(tr("Cheque #"), editor_.draft.checkNumber);
    checkNumber_->setMaximumWidth(shortWidth);
    tags_ = addText(tr("Tags"), editor_.tagsText, tr("Comma separated, e.g. Vacation, Tax"));
    for (const ClearedState state : allCases<ClearedState>) {
        const ClearedBadge badge = clearedBadge(state);
        cleared_->addItem(symbolIcon(badge.symbolName, themeColor(badge.tone)),
                          qt(oakfen::title(state)));
    }
    cleared_->setAccessibleName(tr("Status"));
    cleared_->setToolTip(tr("Whether the bank shows the entry too"));
    connect(cleared_, &QComboBox::activated, this, [this](int index) {
        editor_.draft.cleared = allCases<ClearedState>[static_cast<std::size_t>(index)];
    });
    form_->addRow(tr("Status"), cleared_);
}

QLineEdit* TransactionEditorDialog::addText(const QString& title, std::string& text,
                                            const QString& prompt) {
    auto* field = new QLineEdit;
    field->setAccessibleName(title);
    field->setPlaceholderText(prompt);
    connect(field, &QLineEdit::textChanged, this,
            [&text](const QString& typed) { text = utf8(typed); });
    form_->addRow(title, field);
    return field;
}

void TransactionEditorDialog::showDraft() {
    account_->setRows(editor_.accountChoices());
    account_->choose(editor_.accountSelection);
    date_->setValue(editor_.draft.date);
    payee_->setPayee(qt(editor_.draft.payee));
    amount_->setValue(editor_.amount);
    showTransferChoices();
    category_->setRows(editor_.categoryChoices(editor_.draft.categoryID));
    category_->choose(editor_.draft.categoryID);
    splitRows_->reload();
    showText(*memo_, editor_.draft.memo);
    showText(*checkNumber_, editor_.draft.checkNumber);
    showText(*tags_, editor_.tagsText);
    cleared_->setCurrentIndex(static_cast<int>(editor_.draft.cleared));
    showFieldsOfKind();
    showState();
}

void TransactionEditorDialog::showTransferChoices() {
    transfer_->setRows(editor_.transferChoices());
    transfer_->choose(editor_.transferSelection);
}

void TransactionEditorDialog::showFieldsOfKind() {
    const bool isTransfer = editor_.kind() == TransactionEditor::Kind::transfer;
    const bool isSplit = editor_.useSplits;
    kind_->choose(static_cast<int>(editor_.kind()));
    direction_->choose(editor_.transferIn ? 1 : 0);
    transferLabel_->setText(qt(editor_.transferTitle()));
    transfer_->setAccessibleName(qt(editor_.transferTitle()));
    form_->setRowVisible(amount_, !isSplit);
    form_->setRowVisible(total_, isSplit);
    form_->setRowVisible(direction_, isTransfer);
    form_->setRowVisible(transfer_, isTransfer);
    form_->setRowVisible(category_, !isTransfer && !isSplit);
    form_->setRowVisible(split_, !isTransfer && !isSplit);
    form_->setRowVisible(splitRows_, isSplit);
}

void TransactionEditorDialog::showState() {
    total_->setMoney(moneyText(editor_.splitsTotal(), environment_.currencyCode()));
    setProblem({});
    setCanSave(editor_.canSave());
    primaryButton()->setToolTip(editor_.canSave() ? tr("Save (Return)") : qt(*editor_.obstacle()));
}

bool TransactionEditorDialog::answerReturnInPayee() {
    return editor_.draft.payee != appliedPayee_ && applyMemorizedPayee();
}

bool TransactionEditorDialog::applyMemorizedPayee() {
    // All fields are written anew, which would wipe out a text that can't be read yet.
    if (editor_.isNew() && !finishFields()) {
        return true;
    }
    if (!editor_.applyMemorizedPayee()) {
        return false;
    }
    appliedPayee_ = editor_.draft.payee;
    showDraft();
    // The amount is what most often differs from the last time.
    if (editor_.useSplits) {
        splitRows_->focusFirstLine();
    } else {
        amount_->setFocus(Qt::TabFocusReason);
    }
    return true;
}

void TransactionEditorDialog::startSplitting() {
    if (!finishFields()) {
        return;
    }
    editor_.splitAcrossCategories();
    showDraft();
    splitRows_->focusFirstLine();
}

void TransactionEditorDialog::stopSplitting() {
    if (!finishFields()) {
        return;
    }
    editor_.removeSplits();
    showDraft();
    category_->setFocus(Qt::OtherFocusReason);
}

void TransactionEditorDialog::save() {
    editor_.save();
}

void TransactionEditorDialog::performDestructiveAction() {
    editor_.performDelete();
}

void TransactionEditorDialog::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier) {
        saveAndStartNext();
    } else if (isReturn && !editor_.canSave() && !isOnButton()) {
        tellObstacle();
    } else {
        SheetScaffold::keyPressEvent(event);
    }
}

void TransactionEditorDialog::saveAndStartNext() {
    if (!finishFields()) {
        return;
    }
    if (!editor_.canSave()) {
        tellObstacle();
        return;
    }
    if (!editor_.isNew()) {
        primaryButton()->click();
        return;
    }
    editor_.save();
    editor_.startNext();
    appliedPayee_.clear();
    setSubtitle(qt(editor_.subtitle()));
    showDraft();
    // Heard when the field gets the focus.
    payee_->setAccessibleDescription(qt(editor_.subtitle()));
    payee_->setFocus(Qt::TabFocusReason);
}

void TransactionEditorDialog::tellObstacle() {
    setProblem(qt(*editor_.obstacle()));
}

} // namespace oakfen
