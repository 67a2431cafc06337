#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// The sheet that matches a register with a bank's statement: the person ticks what the statement
/// shows until nothing is left of the difference.
class ReconcileView {
public:
    ReconcileView(AppEnvironment& environment, const UUID& accountID);

    /// Entries after this day are not shown.
    Date statementDate;
    /// The statement's ending balance; at first, what the cleared entries come to.
    Decimal statementBalance;
    /// The ticked entries; at first, those marked as cleared. An entry that a change of the date
    /// hides stays ticked.
    [[nodiscard]] const UUIDSet& checked() const { return checked_; }

    /// "Reconcile Everyday".
    [[nodiscard]] static std::string heading(const Account& account);
    [[nodiscard]] static std::string_view instructions();

    /// The entries up to the statement's date that aren't reconciled, in ledger order. Valid until
    /// the document or the date changes.
    [[nodiscard]] const std::vector<const Transaction*>& rows() const;

    /// The balance of the last reconciliation.
    [[nodiscard]] Decimal reconciled() const;
    /// What is reconciled and the ticked rows together. Worked out once after each change.
    [[nodiscard]] Decimal clearedTotal() const;
    /// What the statement has and the ticked rows don't.
    [[nodiscard]] Decimal difference() const;

    [[nodiscard]] bool isChecked(const UUID& id) const { return checked_.contains(id); }
    /// Ticks the entry, or takes its tick away.
    void setChecked(const UUID& id, bool isChecked);
    /// Ticks exactly the rows that are shown.
    void markAll();

    /// Why what remains can't be entered as an adjustment; empty when it can.
    [[nodiscard]] std::string_view obstacle() const;
    [[nodiscard]] bool canFinish() const { return obstacle().empty(); }
    /// "Finish", or that it would enter an adjustment.
    [[nodiscard]] std::string_view finishTitle() const;
    [[nodiscard]] std::string_view finishHelp() const;
    /// Reconciles the ticked entries; a difference that remains becomes an adjustment.
    void finish();

private:
    AppEnvironment& environment_;
    UUID accountID_;
    UUIDSet checked_;
    // The rows of one index up to one day, made once for them.
    mutable std::shared_ptr<const LibraryIndex> rowsIndex_;
    mutable Date rowsEnd_;
    mutable std::vector<const Transaction*> rows_;
    /// The sum of the ticked ones of these rows, once it was asked for.
    mutable std::optional<Decimal> checkedSum_;
};

} // namespace oakfen
