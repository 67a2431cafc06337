#pragma once

#include <optional>
#include <string>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Editor.h"

namespace oakfen {

/// The sheet that puts money aside for a savings goal, or takes it back.
class ContributionEditor final : public Editor {
public:
    ContributionEditor(AppEnvironment& environment, const UUID& goalID);

    // The form.
    Decimal contribution;

    [[nodiscard]] std::string title() const override;
    /// How far the goal is.
    [[nodiscard]] std::string subtitle() const override;
    [[nodiscard]] std::string primaryTitle() const override { return "Add"; }
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    void save() override;
    /// "Withdraw".
    [[nodiscard]] std::optional<SecondAction> secondAction() const override;
    void performSecondAction() override;

private:
    /// Null once the goal is gone.
    [[nodiscard]] const SavingsGoal* goal() const;
    /// Never takes more than is there.
    void adjust(const Decimal& delta);

    AppEnvironment& environment_;
    UUID goalID_;
};

} // namespace oakfen
