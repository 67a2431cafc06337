#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/AmountRange.h"
#include "Oakfen/Views/Components.h"
#include "Oakfen/Views/EmptyState.h"
#include "Oakfen/Views/MenuEntry.h"
#include "Oakfen/Views/RegisterFilter.h"
#include "Oakfen/Views/RegisterSort.h"

namespace oakfen {

/// The figures under a register.
struct RegisterFooter {
    struct Figure {
        std::string label;
        Decimal amount;
        friend bool operator==(const Figure&, const Figure&) = default;
    };
    std::vector<Figure> figures;
    /// "3 selected" with their sum, while something is selected.
    std::optional<Figure> selection = {};

    friend bool operator==(const RegisterFooter&, const RegisterFooter&) = default;
};

/// Of all entries in an account.
struct RegisterAmounts {
    AmountRange entries;
    AmountRange balances;

    friend bool operator==(const RegisterAmounts&, const RegisterAmounts&) = default;
};

/// The everyday screen of an account: its entries with their running balance, and what can be done
/// with many of them at once. Lives as long as the person stays in the account.
class RegisterView {
public:
    RegisterView(AppEnvironment& environment, const UUID& accountID);

    // What the person has chosen on the screen.
    UUIDSet selection;
    RegisterSort sort;
    RegisterFilter filter = RegisterFilter::all;
    std::string searchText;
    /// Entries that wait for the answer whether to delete them.
    UUIDSet pendingDelete;

    [[nodiscard]] const UUID& accountID() const { return accountID_; }
    /// The account as it is now; null once it was deleted.
    [[nodiscard]] const Account* account() const;
    [[nodiscard]] std::string title() const;
    [[nodiscard]] std::string subtitle() const;
    [[nodiscard]] std::string_view columnTitle(RegisterColumn column) const;
    /// The same, but never empty: the column of the states has no title above it.
    [[nodiscard]] std::string_view columnName(RegisterColumn column) const;
    [[nodiscard]] static bool isSortable(RegisterColumn column);

    /// All of the account's rows in ledger order.
    [[nodiscard]] const std::vector<RegisterRow>& rows() const;
    /// The span of what stands in all of these rows.
    [[nodiscard]] const RegisterAmounts& amounts() const;
    /// The rows to show, in their order. They stay valid until the document changes.
    [[nodiscard]] std::vector<const RegisterRow*> filteredRows() const;
    /// Whether a filter or a search may hide rows.
    [[nodiscard]] bool isNarrowed() const;
    /// What to show when there are no such rows.
    [[nodiscard]] EmptyState emptyState() const;
    [[nodiscard]] RegisterFooter footer() const;

    /// A click on a column's header: sorts by it, or turns the direction round.
    void sortBy(RegisterColumn column);
    /// Takes from the selection what is not among the rows that are shown, so that no action
    /// touches an entry that the person doesn't see.
    void keepSelectionVisible(const std::vector<const RegisterRow*>& shown);
    /// Selects the row of an entry that was saved just now, or of its leg in this account; which
    /// row, if it is shown. One that the filter or the search hides is noted.
    std::optional<UUID> reveal(const UUID& id);
    /// Says that saved entries are hidden by the filter and the search that still hold; else
    /// nothing.
    [[nodiscard]] std::optional<std::string> hiddenNotice() const;
    /// Forgets them once the person has chosen another filter or search.
    void forgetHiddenIfChanged();
    /// Ends filter and search, and selects what the notice is about; which row came last.
    std::optional<UUID> showHidden();

    /// The selected ones of these rows as lines of tab-separated text for a spreadsheet, in all
    /// columns: days as 2026-03-05, amounts as plain digits.
    [[nodiscard]] std::string copiedText(const std::vector<const RegisterRow*>& shown) const;

    /// A click on the state's mark: uncleared becomes cleared and back; reconciled stays.
    void toggleCleared(const UUID& id);
    void markAs(ClearedState state, const UUIDSet& ids);
    void setCategory(const UUID& categoryID, const UUIDSet& ids);
    /// Enters a copy dated now; a transfer's copy is a new transfer.
    void duplicate(const UUID& id);
    /// Shows the other account of a transfer.
    void goToTransfer(const UUID& id);

    /// What can be done with these entries. The view must outlive it.
    [[nodiscard]] std::vector<MenuEntry> contextMenu(const UUIDSet& ids);

    /// Asks whether to delete the entries; does it once confirmed.
    void requestDelete(const UUIDSet& ids);
    /// The question about `pendingDelete`.
    [[nodiscard]] ConfirmationRequest deleteConfirmation() const;
    void confirmDelete();
    void cancelDelete() { pendingDelete.clear(); }

    // The toolbar.
    void newTransaction();
    void editTransaction(const UUID& id);
    void reconcile();
    void editAccount();
    void importTransactions();

private:
    /// Entries that were saved while this filter and search hid them.
    struct HiddenEntries {
        RegisterFilter filter = RegisterFilter::all;
        std::string searchText;
        std::vector<UUID> ids;
    };

    /// The entries that a menu is about. Its lines share them, since they may be a hundred
    /// thousand.
    using SharedIDs = std::shared_ptr<const UUIDSet>;

    [[nodiscard]] const RegisterRow* row(const UUID& id) const;
    /// Which rows filter and search let be seen now.
    [[nodiscard]] RegisterRowTest rowTest() const;
    [[nodiscard]] std::vector<MenuEntry> menuForOne(const UUID& id);
    [[nodiscard]] std::vector<MenuEntry> markMenu(const SharedIDs& ids);
    [[nodiscard]] std::vector<MenuEntry> categoryMenu(const SharedIDs& ids);
    /// Those of the hidden entries that still are.
    [[nodiscard]] std::vector<UUID> stillHidden() const;

    AppEnvironment& environment_;
    UUID accountID_;
    HiddenEntries hidden_;
    // The rows of one index, made once for it.
    mutable std::shared_ptr<const LibraryIndex> rowsIndex_;
    mutable std::vector<RegisterRow> rows_;
    mutable RegisterAmounts amounts_;
    mutable RegisterSorter sorter_;
    // Ends with the screen, so that a late answer to a question finds out.
    std::shared_ptr<int> lifetime_ = std::make_shared<int>();
};

} // namespace oakfen
