#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Components/CategoryOffer.h"
#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Editor.h"

namespace oakfen {

/// The sheet that creates a reminder or changes one.
class ScheduledEditor final : public Editor {
public:
    enum class Kind { bill, income, transfer };

    /// Without an id, or for one that is gone, a new reminder, like an entry if one is named.
    ScheduledEditor(AppEnvironment& environment, const ActiveSheet::Scheduled& sheet);

    // The form.
    ScheduledTransaction draft;
    Kind kind = Kind::bill;
    std::optional<UUID> accountID;
    /// The other account of a transfer.
    std::optional<UUID> transferID;
    /// Without a direction, which the kind gives.
    Decimal amount;
    bool hasEndDate = false;
    Date endDate;

    [[nodiscard]] bool isNew() const { return !scheduledID_; }
    [[nodiscard]] bool isTransfer() const { return kind == Kind::transfer; }
    [[nodiscard]] std::string title() const override;
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    /// Stores the draft; nothing without an account.
    void save() override;
    [[nodiscard]] std::optional<ConfirmationRequest> deleteConfirmation() const override;
    void performDelete() override;

    /// What the field of the account is called.
    [[nodiscard]] std::string_view accountTitle() const;
    /// What is odd about the end date; empty while nothing is.
    [[nodiscard]] std::string_view endDateHint() const;

    // What the fields offer. The draft's own choice is always among it.
    [[nodiscard]] std::vector<PickerRow> accountChoices() const;
    [[nodiscard]] std::vector<PickerRow> transferChoices() const;
    [[nodiscard]] std::vector<PickerRow> categoryChoices() const;
    [[nodiscard]] std::vector<std::string> payeeSuggestions() const;
    /// What can be made of a text that was typed for the category.
    [[nodiscard]] CategoryOffer categoryOffer(std::string_view typed) const;
    /// Plans a category of that path; saving makes it.
    PickerRow planCategory(const std::string& path);

private:
    void load(const ScheduledTransaction& reminder);
    /// Takes over from an entry what is to come again.
    void beginLike(const Transaction& entry);
    /// A month or more after the entry, on its day, and not before today.
    [[nodiscard]] Date nextDateAfter(Date entered) const;
    [[nodiscard]] ScheduledTransaction reminderToSave() const;

    AppEnvironment& environment_;
    std::optional<UUID> scheduledID_;
    CategoryPlan plan_;
};

template <>
inline constexpr auto allCases<ScheduledEditor::Kind> = std::array{
    ScheduledEditor::Kind::bill, ScheduledEditor::Kind::income, ScheduledEditor::Kind::transfer};

[[nodiscard]] std::string_view title(ScheduledEditor::Kind value) noexcept;

} // namespace oakfen
