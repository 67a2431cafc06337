#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Components/Choices.h"
#include "Oakfen/Views/Editor.h"

namespace oakfen {

/// The sheet that creates a savings goal or changes one.
class GoalEditor final : public Editor {
public:
    /// Without an id, a new goal.
    GoalEditor(AppEnvironment& environment, const std::optional<UUID>& goalID);

    // The form.
    SavingsGoal draft;
    bool hasDate = false;
    /// The day by which the target is to be reached, while there is to be one.
    Date date;

    [[nodiscard]] bool isNew() const { return isNew_; }
    [[nodiscard]] std::string title() const override;
    [[nodiscard]] std::string primaryTitle() const override { return "Save"; }
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    void save() override;
    [[nodiscard]] std::optional<ConfirmationRequest> deleteConfirmation() const override;
    void performDelete() override;

    /// The icons that can be chosen. A goal whose icon is none of them keeps it while the line for
    /// that is chosen.
    [[nodiscard]] std::vector<ChoiceRow> symbolRows() const;
    /// The value of the chosen line.
    [[nodiscard]] int symbol() const;
    void setSymbol(int value);

    /// What the day would ask for each month; empty where that is nothing.
    [[nodiscard]] std::string dateHint() const;

private:
    /// The draft as it would be stored.
    [[nodiscard]] SavingsGoal finished() const;

    AppEnvironment& environment_;
    bool isNew_ = true;
    /// The icon that the goal came with.
    std::string firstSymbolName_;
};

} // namespace oakfen
