#include "Oakfen/Widgets/Editors/ScheduledEditorDialog.h"

#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Editors/PayeeField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

ScheduledEditorDialog::ScheduledEditorDialog(AppEnvironment& environment,
                                             const ActiveSheet::Scheduled& sheet, QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<ScheduledEditor>(environment, sheet), parent) {
    constexpr int sheetWidth = 480;
    setMinimumWidth(sheetWidth);
    ScheduledEditor& edited = editor();
    form().segments(tr("Type"), edited.kind);
    addPayee();
    form().amount(tr("Amount"), edited.amount);
    addAccountFields();
    addTimeFields();
    form().text(tr("Memo"), edited.draft.memo);
    begin();
}

void ScheduledEditorDialog::addPayee() {
    ScheduledEditor& edited = editor();
    auto* payee = new PayeeField(tr("Payee"));
    payee->suggestions = [&edited] {
        QStringList offered;
        for (const std::string& each : edited.payeeSuggestions()) {
            offered.append(qt(each));
        }
        return offered;
    };
    payee->edited = [this, payee, &edited] {
        edited.draft.payee = utf8(payee->text());
        form().fieldChanged();
    };
    form()
        .custom(tr("Payee"), payee, [payee, &edited] { payee->setPayee(qt(edited.draft.payee)); })
        .help(tr("Who is paid, or who pays"));
}

void ScheduledEditorDialog::addAccountFields() {
    ScheduledEditor& edited = editor();
    form()
        .account({}, edited.accountID, [&edited] { return edited.accountChoices(); })
        .labelled([&edited] { return qt(edited.accountTitle()); })
        .help(tr("The account whose register will hold the entry"));
    form()
        .account(tr("Transfer To"), edited.transferID,
                 [&edited] { return edited.transferChoices(); })
        .help(tr("The account that the money goes to"))
        .shownWhen([&edited] { return edited.isTransfer(); });
    form()
        .category(
            tr("Category"), edited.draft.categoryID, [&edited] { return edited.categoryChoices(); },
            PickerCreation{
                .offer =
                    [&edited](const std::string& typed) { return edited.categoryOffer(typed); },
                .make = [&edited](const std::string& path) { return edited.planCategory(path); }})
        .help(tr("Type any part of a category’s name"))
        .shownWhen([&edited] { return !edited.isTransfer(); });
}

void ScheduledEditorDialog::addTimeFields() {
    ScheduledEditor& edited = editor();
    form().choice(tr("Repeats"), choiceRows<Frequency>(), edited.draft.frequency).narrow();
    form().day(tr("Next Due"), edited.draft.nextDate).help(tr("The day of the next occurrence"));
    form().toggle(tr("Ends"), edited.hasEndDate).help(tr("Comes no more after a last day"));
    form()
        .day(tr("End Date"), edited.endDate)
        .help(tr("The last day on which it can be due"))
        .hint([&edited] { return qt(edited.endDateHint()); })
        .shownWhen([&edited] { return edited.hasEndDate; });
    form()
        .toggle(tr("Enter Automatically When Due"), edited.draft.autoEnter)
        .help(tr("Enters what is due by itself, whenever Oakfen is started"));
}

} // namespace oakfen
