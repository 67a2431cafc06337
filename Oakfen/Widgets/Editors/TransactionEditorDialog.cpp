#include "Oakfen/Widgets/Editors/TransactionEditorDialog.h"

#include <QKeyEvent>

#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Editors/PayeeField.h"
#include "Oakfen/Widgets/Editors/SplitRowsWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

TransactionEditorDialog::TransactionEditorDialog(AppEnvironment& environment,
                                                 const TransactionEditor& editor, QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<TransactionEditor>(editor), parent),
      payee_(new PayeeField(tr("Payee"))),
      splitRows_(new SplitRowsWidget(EditorSheetOf::editor())) {
    constexpr int sheetWidth = 620;
    setMinimumWidth(sheetWidth);
    addFirstFields();
    addPayee();
    addAmountFields();
    addTransferFields();
    addCategoryFields();
    addLastFields();
    begin();
    payee_->setFocus();
}

void TransactionEditorDialog::addFirstFields() {
    TransactionEditor& edited = editor();
    form().segments(tr("Type"), Bound<TransactionEditor::Kind>(
                                    [&edited] { return edited.kind(); },
                                    [&edited](const auto& kind) { edited.setKind(kind); }));
    form()
        .account(tr("Account"), edited.accountSelection,
                 [&edited] { return edited.accountChoices(); })
        .help(tr("The account whose register holds the entry"));
    form().day(tr("Date"), edited.draft.date).help(tr("The day of the entry"));
}

void TransactionEditorDialog::addPayee() {
    TransactionEditor& edited = editor();
    payee_->suggestions = [&edited] {
        QStringList offered;
        for (const std::string& payee : edited.payeeSuggestions()) {
            offered.append(qt(payee));
        }
        return offered;
    };
    payee_->edited = [this, &edited] {
        edited.draft.payee = utf8(payee_->text());
        form().fieldChanged();
    };
    payee_->completed = [this] { applyMemorizedPayee(); };
    payee_->returned = [this] { return answerReturnInPayee(); };
    form()
        .custom(tr("Payee"), payee_, [this, &edited] { payee_->setPayee(qt(edited.draft.payee)); })
        .help(edited.isNew() ? tr("Return fills in the rest as it was with this payee last time")
                             : tr("Who was paid, or who paid"));
}

void TransactionEditorDialog::addAmountFields() {
    TransactionEditor& edited = editor();
    amount_ = form()
                  .amount(tr("Amount"), edited.amount)
                  .shownWhen([&edited] { return !edited.useSplits; })
                  .field();
    form()
        .figure(tr("Amount"),
                [this, &edited] {
                    return moneyText(edited.splitsTotal(), environment_.currencyCode());
                })
        .shownWhen([&edited] { return edited.useSplits; });
}

void TransactionEditorDialog::addTransferFields() {
    TransactionEditor& edited = editor();
    const auto isTransfer = [&edited] { return edited.isTransfer(); };
    form()
        .segments(tr("Direction"), {tr("Money Out"), tr("Money In")},
                  Bound<int>([&edited] { return edited.transferIn ? 1 : 0; },
                             [&edited](int place) { edited.transferIn = place == 1; }))
        .shownWhen(isTransfer);
    form()
        .account({}, edited.transferSelection, [&edited] { return edited.transferChoices(); })
        .labelled([&edited] { return qt(edited.transferTitle()); })
        .help(tr("The other account of the transfer"))
        .shownWhen(isTransfer);
}

void TransactionEditorDialog::addCategoryFields() {
    TransactionEditor& edited = editor();
    const auto showsCategory = [&edited] { return edited.showsCategory(); };
    category_ = form()
                    .category(
                        tr("Category"), edited.draft.categoryID,
                        [&edited] { return edited.categoryChoices(edited.draft.categoryID); },
                        categoryCreation(edited))
                    .help(tr("Type any part of a category’s name"))
                    .shownWhen(showsCategory)
                    .field();
    auto* split = new QPushButton(tr("Split Across Categories…"));
    split->setAutoDefault(false);
    split->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    split->setToolTip(tr("Assign parts of the amount to several categories"));
    connect(split, &QPushButton::clicked, this, [this] { startSplitting(); });
    form().custom({}, split).shownWhen(showsCategory);

    splitRows_->edited = [this] { form().fieldChanged(); };
    splitRows_->removed = [this] { stopSplitting(); };
    form()
        .custom(tr("Splits"), splitRows_, [this] { splitRows_->showLines(); })
        .shownWhen([&edited] { return edited.useSplits; });
}

void TransactionEditorDialog::addLastFields() {
    TransactionEditor& edited = editor();
    form().text(tr("Memo"), edited.draft.memo);
    form().text(tr("Cheque #"), edited.draft.checkNumber).narrow();
    form().text(tr("Tags"), edited.tagsText).prompt(tr("Comma separated, e.g. Vacation, Tax"));
    form()
        .choice(tr("Status"), clearedStateRows(), edited.draft.cleared)
        .help(tr("Whether the bank shows the entry too"));
}

bool TransactionEditorDialog::answerReturnInPayee() {
    return editor().draft.payee != appliedPayee_ && applyMemorizedPayee();
}

bool TransactionEditorDialog::applyMemorizedPayee() {
    // A text that can't be read yet might be written over.
    if (editor().isNew() && !finishFields()) {
        return true;
    }
    if (!editor().applyMemorizedPayee()) {
        return false;
    }
    appliedPayee_ = editor().draft.payee;
    refresh();
    // The amount is what most often differs from the last time.
    if (editor().useSplits) {
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
    editor().splitAcrossCategories();
    refresh();
    splitRows_->focusFirstLine();
}

void TransactionEditorDialog::stopSplitting() {
    if (!finishFields()) {
        return;
    }
    editor().removeSplits();
    refresh();
    category_->setFocus(Qt::OtherFocusReason);
}

void TransactionEditorDialog::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier) {
        saveAndStartNext();
    } else {
        EditorSheetOf::keyPressEvent(event);
    }
}

void TransactionEditorDialog::saveAndStartNext() {
    if (!finishFields()) {
        return;
    }
    if (!editor().canSave()) {
        tellObstacle();
        return;
    }
    if (!editor().isNew()) {
        primaryButton()->click();
        return;
    }
    editor().save();
    editor().startNext();
    appliedPayee_.clear();
    refresh();
    // Heard when the field gets the focus.
    payee_->setAccessibleDescription(qt(editor().subtitle()));
    payee_->setFocus(Qt::TabFocusReason);
}

} // namespace oakfen
