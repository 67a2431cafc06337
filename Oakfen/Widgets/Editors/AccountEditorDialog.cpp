#include "Oakfen/Widgets/Editors/AccountEditorDialog.h"

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

AccountEditorDialog::AccountEditorDialog(AppEnvironment& environment, std::optional<UUID> accountID,
                                         QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<AccountEditor>(environment, accountID), parent) {
    constexpr int sheetWidth = 480;
    setMinimumWidth(sheetWidth);
    AccountEditor& edited = editor();
    Account& draft = edited.draft;
    form().text(tr("Name"), draft.name).prompt(tr("e.g. Everyday Chequing"));
    form().choice(tr("Type"), accountTypeRows(), draft.type);
    form().text(tr("Institution"), draft.institution).prompt(tr("Optional"));
    form()
        .amount({}, draft.openingBalance)
        .labelled([&edited] { return qt(edited.openingBalanceLabel()); })
        .hint([&edited] { return qt(edited.openingBalanceHint()); });
    form().day(tr("As Of"), draft.openingDate).help(tr("The day of the opening balance"));
    form().amount(tr("Credit Limit"), edited.creditLimit).shownWhen([&edited] {
        return edited.showsCreditLimit();
    });
    form()
        .amount(tr("Interest Rate (%)"), edited.interestRate, AmountKind::rate)
        .shownWhen([&edited] { return edited.showsInterestRate(); });
    form().toggle(tr("Alert When Balance Is Low"), edited.hasLowBalanceAlert).shownWhen([&edited] {
        return edited.showsLowBalanceAlert();
    });
    form().amount(tr("Minimum Balance"), edited.lowBalance).shownWhen([&edited] {
        return edited.showsMinimumBalance();
    });
    form()
        .toggle(tr("Closed"), draft.isClosed)
        .shownWhen([&edited] { return edited.showsClosed(); })
        .help(tr("Keeps the account’s history but leaves it out of lists and totals"));
    form().paragraph(tr("Notes"), draft.notes);
    begin();
}

} // namespace oakfen
