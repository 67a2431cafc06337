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

/// The sheet that enters a payment, a deposit or a transfer, or changes one.
class TransactionEditor final : public Editor {
public:
    enum class Kind { payment, deposit, transfer };

    /// A line of a split. Its amount is positive in the direction of the entry's kind and negative
    /// against it.
    struct SplitDraft {
        UUID id;
        std::optional<UUID> categoryID = {};
        std::string memo = {};
        Decimal amount = {};

        friend bool operator==(const SplitDraft&, const SplitDraft&) = default;
    };

    /// For a new entry of that account, or of the first one when none is named or it is gone.
    TransactionEditor(AppEnvironment& environment, const ActiveSheet::NewTransaction& sheet);
    TransactionEditor(AppEnvironment& environment, const ActiveSheet::EditTransaction& sheet);

    // The form.
    Transaction draft;
    std::optional<UUID> accountSelection;
    /// The other account of a transfer.
    std::optional<UUID> transferSelection;
    /// Without a direction, which the kind gives.
    Decimal amount;
    bool useSplits = false;
    std::vector<SplitDraft> splits;
    /// The tags as they are typed, between commas.
    std::string tagsText;
    /// A transfer brings money into the selected account.
    bool transferIn = false;

    [[nodiscard]] Kind kind() const { return kind_; }
    /// A transfer has no splits; what was split is kept in case the person comes back to it.
    void setKind(Kind kind);
    [[nodiscard]] bool isTransfer() const { return kind_ == Kind::transfer; }
    /// Whether the entry has one category, and not several or none.
    [[nodiscard]] bool showsCategory() const { return !isTransfer() && !useSplits; }

    [[nodiscard]] bool isNew() const { return !transactionID_; }
    [[nodiscard]] std::string title() const override;
    /// What the last `save` entered, for the person to see; for a new entry, how to enter several.
    [[nodiscard]] std::string subtitle() const override;
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    /// Enters the draft; nothing without an account.
    void save() override;
    /// Empties the form for the next entry of the same account on the same day.
    void startNext();
    [[nodiscard]] std::optional<ConfirmationRequest> deleteConfirmation() const override;
    void performDelete() override;

    /// What the field of a transfer's other account is called.
    [[nodiscard]] std::string_view transferTitle() const;

    // What the pickers list. The draft's own choice is always among it, so that a closed account
    // stays what it is until the person chooses another.
    [[nodiscard]] std::vector<PickerRow> accountChoices() const;
    [[nodiscard]] std::vector<PickerRow> transferChoices() const;
    [[nodiscard]] std::vector<PickerRow> categoryChoices(const std::optional<UUID>& chosen) const;

    /// What can be made of a text that was typed for a category.
    [[nodiscard]] CategoryOffer categoryOffer(std::string_view typed) const;
    /// Plans a category of that path, for the entry or its lines; saving makes it if they are filed
    /// under it.
    PickerRow planCategory(const std::string& path);

    /// At most eight known payees with the typed text in their name.
    [[nodiscard]] std::vector<std::string> payeeSuggestions() const;
    /// Fills a new entry in as the payee's latest one was. Whether there was one to follow.
    bool applyMemorizedPayee();

    /// Begins two lines anew, the first with the category and the amount.
    void splitAcrossCategories();
    /// Adds an empty line.
    void addSplitLine();
    /// Takes the line of that id away.
    void removeSplitLine(const UUID& id);
    /// Goes back to one category, that of the first line, for the sum of the lines.
    void removeSplits();
    /// The line of that id; null when there is none.
    [[nodiscard]] SplitDraft* splitLine(const UUID& id);
    /// The sum of the lines.
    [[nodiscard]] Decimal splitsTotal() const;
    /// How far the lines are from the amount that is being split; empty when they meet it, or when
    /// nobody named one.
    [[nodiscard]] std::string remainderText() const;

private:
    void startEmpty(const std::optional<UUID>& accountID, Date date);
    void load(const Transaction& entry);
    /// The wanted account; where none is named, or it is gone, the first one.
    [[nodiscard]] std::optional<UUID> accountToBeginWith(const std::optional<UUID>& wanted) const;
    /// What is wrong with the amount or with the split lines, if anything.
    [[nodiscard]] std::optional<std::string> obstacleOfAmount() const;
    [[nodiscard]] Transaction transactionToSave() const;
    /// Makes the planned categories that the entry is filed under: for income where money comes in,
    /// for expenses where it goes out.
    void makeCategories(Library& library, Transaction& entry) const;
    /// Remembers what the stored entry is filed under for later choices.
    void rememberCategories(const Transaction& stored) const;

    AppEnvironment& environment_;
    std::optional<UUID> transactionID_;
    Kind kind_ = Kind::payment;
    CategoryPlan plan_;
    std::string savedText_;
};

template <>
inline constexpr auto allCases<TransactionEditor::Kind> =
    std::array{TransactionEditor::Kind::payment, TransactionEditor::Kind::deposit,
               TransactionEditor::Kind::transfer};

[[nodiscard]] std::string_view title(TransactionEditor::Kind value) noexcept;

} // namespace oakfen
