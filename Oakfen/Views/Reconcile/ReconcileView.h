#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Reconcile/ReconcileTable.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

/// Something about the ticks that the person may have missed, and the button that mends it.
struct ReconcileHint {
    std::string sentence;
    std::string buttonTitle;
    /// The entries that the button ticks, or takes the ticks from.
    std::vector<UUID> entryIDs;
    bool ticks = false;

    friend bool operator==(const ReconcileHint&, const ReconcileHint&) = default;
};

/// What the sheet shows.
struct ReconcileContent {
    /// The entries up to the statement's date that aren't reconciled, in ledger order.
    std::shared_ptr<const Table<ReconcileRow>> table = {};
    /// The balance of the last reconciliation.
    Decimal reconciled = {};
    /// What is reconciled and the ticked rows together.
    Decimal clearedTotal = {};
    /// What the statement has and the ticked rows don't.
    Decimal difference = {};
    /// Whether the statement is matched, and what finishing would enter otherwise.
    std::string verdict = {};
    /// One entry that is the whole difference, or ticks that the date hides.
    std::optional<ReconcileHint> hint = {};
    /// Whether anything is ticked.
    bool canUnmark = false;

    [[nodiscard]] bool isMatched() const { return difference.isZero(); }
    /// Why what remains can't be entered as an adjustment; empty when it can.
    [[nodiscard]] std::string_view obstacle() const;
    [[nodiscard]] bool canFinish() const { return obstacle().empty(); }
    /// "Finish", or that it would enter an adjustment.
    [[nodiscard]] std::string_view finishTitle() const;
    [[nodiscard]] std::string_view finishHelp() const;

    friend bool operator==(const ReconcileContent&, const ReconcileContent&) = default;
};

/// The sheet that matches a register with a bank's statement: the person ticks what the statement
/// shows until nothing is left of the difference.
class ReconcileView final : public Screen<ReconcileContent> {
public:
    ReconcileView(AppEnvironment& environment, const UUID& accountID);

    /// Entries after this day are not shown.
    [[nodiscard]] Date statementDate() const { return statementDate_; }
    void setStatementDate(Date date);
    /// The statement's ending balance; at first, what the cleared entries come to.
    [[nodiscard]] const Decimal& statementBalance() const { return statementBalance_; }
    void setStatementBalance(const Decimal& balance);

    /// "Reconcile Everyday".
    [[nodiscard]] static std::string heading(const Account& account);
    [[nodiscard]] static std::string_view instructions();

    /// The ticked entries; at first, those marked as cleared. An entry that a change of the date
    /// hides stays ticked.
    [[nodiscard]] const UUIDSet& checked() const { return checked_; }
    /// Ticks the entries, or takes their ticks away.
    void setChecked(const std::vector<UUID>& ids, bool isChecked);
    /// Ticks exactly the rows that are shown.
    void markAll();
    /// Takes all ticks away, those that the date hides too.
    void unmarkAll();
    /// Does what the hint's button says.
    void followHint();

    /// Keeps the ticks for the next time as the entries' states, without reconciling any.
    void saveForLater();
    /// Reconciles the ticked entries; a difference that remains becomes an adjustment.
    void finish();

protected:
    [[nodiscard]] ReconcileContent derive(const ReconcileContent* earlier) const override;

private:
    [[nodiscard]] Date end() const {
        return environment_.clock.calendar().endOfDay(statementDate_);
    }
    [[nodiscard]] std::string verdict(const ReconcileContent& content) const;
    [[nodiscard]] std::optional<ReconcileHint> hint(const ReconcileContent& content) const;
    /// The entry that is the whole difference, unless it is ticked; or that ticked one without
    /// which there would be none.
    [[nodiscard]] std::optional<ReconcileHint>
    matchingEntryHint(const ReconcileContent& content) const;
    [[nodiscard]] std::optional<ReconcileHint> hiddenTicksHint() const;

    UUID accountID_;
    Date statementDate_;
    Decimal statementBalance_;
    UUIDSet checked_;
};

} // namespace oakfen
