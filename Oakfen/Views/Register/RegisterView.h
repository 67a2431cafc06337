#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/EntryList.h"
#include "Oakfen/Views/Register/RegisterContent.h"
#include "Oakfen/Views/Register/RegisterRows.h"
#include "Oakfen/Views/Screen.h"
#include "Oakfen/Views/TableSort.h"

namespace oakfen {

/// The everyday screen of an account: its entries with their running balance, and what can be done
/// with many of them at once. Lives as long as the person stays in the account. An entry that is
/// saved meanwhile, or comes back by undo, is selected and brought into sight.
class RegisterView final : public Screen<RegisterContent>, public EntryList {
public:
    RegisterView(AppEnvironment& environment, const UUID& accountID);

    // What the person chooses on the screen.
    void setFilter(RegisterFilter filter);
    void setSearchText(std::string text);
    void setSort(const TableOrder& sort);
    void sortBy(std::string_view column) override;
    /// The columns to sort by, and the directions.
    [[nodiscard]] std::vector<MenuEntry> sortMenu() override;
    void select(UUIDSet ids) override;
    /// What can be done with the selected entries, with what can't be done with them.
    [[nodiscard]] std::vector<MenuEntry> selectionMenu() { return rowMenu(content()->selection); }

    /// Selects the row of an entry that was saved just now, or of its leg in this account, and
    /// reveals it. One that the filter or the search hides is noted.
    void reveal(const UUID& id);
    /// Selects the row of an entry of this account and brings it into sight; ends filter and search
    /// where they hide it.
    void show(const UUID& id);
    /// Ends filter and search, selects what the notice is about and reveals what came last.
    void showHidden();

    [[nodiscard]] std::string copiedText() const override;

    // The toolbar.
    void newTransaction();
    void reconcile();
    void editAccount();
    void importTransactions();

protected:
    [[nodiscard]] RegisterContent derive(const RegisterContent* earlier) const override;
    void adopt(const RegisterContent& content) override { selection_ = content.selection; }
    void deleted(const UUIDSet& ids) override;
    void followLibrary() override;

private:
    using Screen::environment_;

    /// What a table was made of.
    struct Choice {
        std::shared_ptr<const LibraryIndex> index;
        RegisterFilter filter = RegisterFilter::all;
        std::string searchText;
        TableOrder sort;

        friend bool operator==(const Choice&, const Choice&) = default;
    };
    using SharedTable = std::shared_ptr<const Table<RegisterRow>>;

    /// The account as it is now; null once it was deleted.
    [[nodiscard]] const Account* account() const;
    [[nodiscard]] const Columns<RegisterRow>& columns() const;
    /// All of the account's rows in ledger order.
    [[nodiscard]] const RegisterRows::State& rows() const;
    [[nodiscard]] SharedTable tableAfter(const SharedTable& earlier) const;
    /// Those that filter and search let be seen, in the order of the sort.
    [[nodiscard]] std::vector<const RegisterRow*>
    filteredRows(const SharedArray<RegisterRow>& all) const;
    [[nodiscard]] std::optional<std::size_t> rowPastToday(const Table<RegisterRow>& table) const;
    [[nodiscard]] RegisterFooter footer(const Table<RegisterRow>& table,
                                        const UUIDSet& selection) const;
    /// Which rows filter and search let be seen now.
    [[nodiscard]] RegisterRowTest rowTest() const;
    /// Those of the hidden entries that still are.
    [[nodiscard]] std::vector<UUID> stillHidden() const;
    [[nodiscard]] std::optional<std::string> hiddenNotice() const;
    /// The row of an entry of this account; null where it is of another.
    [[nodiscard]] const RegisterRow* rowOf(const UUID& id) const;
    /// Ends filter and search.
    void showAll();
    void selectAndReveal(UUIDSet ids, const UUID& last);
    /// Selects and reveals the entries that a step of undo or redo has brought back or changed.
    void revealWhatCameBack(const LibraryIndex& earlier);

    UUID accountID_;
    SharedSelection selection_ = std::make_shared<const UUIDSet>();
    TableOrder sort_;
    RegisterFilter filter_ = RegisterFilter::all;
    std::string searchText_;
    // Entries that were saved while this filter and search hid them.
    std::vector<UUID> hidden_;
    std::optional<RevealedEntry> revealed_;
    mutable RegisterRows rows_;
    // What the present table was made of, and what all rows hold in its columns.
    mutable Choice shownChoice_;
    mutable std::vector<ColumnReach> reaches_;
    mutable TableSorter<RegisterRow> sorter_;
    Subscription transactionSaved_;
    Subscription entryWanted_;
};

} // namespace oakfen
