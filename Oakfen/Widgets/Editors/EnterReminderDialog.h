#pragma once

#include "Oakfen/Views/Editors/EnterReminderEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

/// Draws the sheet that enters a reminder with another amount or on another day.
class EnterReminderDialog final : public EditorSheetOf<EnterReminderEditor> {
    Q_OBJECT

public:
    EnterReminderDialog(AppEnvironment& environment, const ScheduledTransaction& reminder,
                        QWidget* parent = nullptr);
};

} // namespace oakfen
