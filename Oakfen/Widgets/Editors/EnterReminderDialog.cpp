#include "Oakfen/Widgets/Editors/EnterReminderDialog.h"

namespace oakfen {

EnterReminderDialog::EnterReminderDialog(AppEnvironment& environment,
                                         const ScheduledTransaction& reminder, QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<EnterReminderEditor>(environment, reminder),
                    parent) {
    constexpr int sheetWidth = 460;
    setMinimumWidth(sheetWidth);
    form()
        .amount(tr("Amount"), editor().amount)
        .help(tr("For this time only; the reminder keeps its amount"));
    form()
        .day(tr("Date"), editor().date)
        .help(tr("The day of the entry; the next one is due as planned"));
    begin();
}

} // namespace oakfen
