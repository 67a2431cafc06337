#pragma once

#include <string>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Editor.h"

namespace oakfen {

/// The sheet that enters the next occurrence of a reminder with another amount or on another day.
/// The reminder keeps its own amount, and its schedule follows its own date.
class EnterReminderEditor final : public Editor {
public:
    /// For a reminder of the document.
    EnterReminderEditor(AppEnvironment& environment, const ScheduledTransaction& reminder);

    // The form.
    /// Without a direction, which the reminder gives.
    Decimal amount;
    Date date;

    [[nodiscard]] std::string title() const override { return "Enter Reminder"; }
    /// Whose occurrence it is.
    [[nodiscard]] std::string subtitle() const override;
    [[nodiscard]] std::string primaryTitle() const override { return "Enter"; }
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    void save() override;

private:
    AppEnvironment& environment_;
    ScheduledTransaction reminder_;
};

} // namespace oakfen
