#include "Oakfen/Widgets/Editors/GoalEditorDialog.h"

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

GoalEditorDialog::GoalEditorDialog(AppEnvironment& environment, const std::optional<UUID>& goalID,
                                   QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<GoalEditor>(environment, goalID), parent) {
    constexpr int sheetWidth = 448;
    setMinimumWidth(sheetWidth);
    GoalEditor& edited = editor();
    SavingsGoal& draft = edited.draft;
    form().text(tr("Name"), draft.name).prompt(tr("e.g. Emergency Fund"));
    form().choice(tr("Icon"), edited.symbolRows(),
                  Bound<int>([&edited] { return edited.symbol(); },
                             [&edited](const int& symbol) { edited.setSymbol(symbol); }));
    form().amount(tr("Target Amount"), draft.target);
    form()
        .amount(tr("Saved So Far"), draft.saved)
        .help(tr("A figure that you keep yourself; no account is tied to it"));
    form().toggle(tr("Target Date"), edited.hasDate);
    form()
        .day(tr("Date"), edited.date)
        .shownWhen([&edited] { return edited.hasDate; })
        .hint([&edited] { return qt(edited.dateHint()); });
    begin();
}

} // namespace oakfen
