#include "Oakfen/Widgets/Editors/AccountEditorDialog.h"

#include "Oakfen/Widgets/Components/EntryField.h"
#include "Oakfen/Widgets/Components/FlowingLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

AccountEditorDialog::AccountEditorDialog(AppEnvironment& environment, std::optional<UUID> accountID,
                                         QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<AccountEditor>(environment, accountID), parent) {
    constexpr int sheetWidth = 512;
    setMinimumWidth(sheetWidth);
    AccountEditor& edited = editor();
    Account& draft = edited.draft;
    form().text(tr("Name"), draft.name).prompt(tr("e.g. Everyday Chequing"));
    form().choice(tr("Type"), accountTypeRows(), draft.type);
    form().text(tr("Institution"), draft.institution).prompt(tr("Optional"));
    FieldRow& opening = form()
                            .amount({}, draft.openingBalance)
                            .labelled([&edited] { return qt(edited.openingBalanceLabel()); })
                            .hint([&edited] { return qt(edited.openingBalanceHint()); });
    addMeaning(dynamic_cast<EntryField&>(*opening.field()));
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

void AccountEditorDialog::addMeaning(const EntryField& opening) {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* meaning = new FlowingLabel(TextStyle::body, ThemeColor::text);
    auto* turn = new QPushButton(tr("Change Sign"));
    turn->setAccessibleName(tr("Change Sign"));
    turn->setAutoDefault(false);
    turn->setToolTip(tr("Turns what you owe into what is in your favour, or back"));
    Theme::setTrait(*turn, "link");
    line->addWidget(meaning, 1);
    line->addWidget(turn, 0, Qt::AlignTop);
    AccountEditor& edited = editor();
    connect(turn, &QPushButton::clicked, this, [this, &edited] {
        edited.turnOpeningBalance();
        refresh();
    });
    form()
        .custom({}, row,
                [&edited, &opening, meaning, turn] {
                    // What can't be read means nothing yet.
                    const bool isReadable = opening.isReadable();
                    meaning->showText(isReadable ? qt(edited.openingBalanceMeaning()) : QString());
                    turn->setEnabled(isReadable && !edited.draft.openingBalance.isZero());
                })
        .shownWhen([&edited] { return isLiability(edited.draft.type); });
}

} // namespace oakfen
