#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/EntryList.h"
#include "Oakfen/Views/Register/FindContent.h"
#include "Oakfen/Views/Register/FindRows.h"
#include "Oakfen/Views/Screen.h"
#include "Oakfen/Views/TableSort.h"

namespace oakfen {

/// The search through the entries of all accounts, closed ones too, newest first. What it finds can
/// be worked on as in the register, many entries of many accounts at once.
class FindView final : public Screen<FindContent>, public EntryList {
public:
    /// Begins with the term and keeps it up to date, so that whoever opens the view again goes on
    /// with it. The term must outlive the view.
    FindView(AppEnvironment& environment, std::string& term);

    void setSearchText(std::string text);
    void setSort(const TableOrder& sort);
    void sortBy(std::string_view column) override;
    void select(UUIDSet ids) override;
    [[nodiscard]] std::string copiedText() const override;
    [[nodiscard]] std::vector<MenuEntry> sortMenu() override;
    /// What can be done with the selected entries, with what can't be done with them.
    [[nodiscard]] std::vector<MenuEntry> selectionMenu() { return rowMenu(content()->selection); }

    /// Shows the register of the entry's account, with the entry selected and in sight.
    void showInRegister(const UUID& id);

protected:
    [[nodiscard]] FindContent derive(const FindContent* earlier) const override;
    void adopt(const FindContent& content) override { selection_ = content.selection; }
    void deleted(const UUIDSet& ids) override;
    [[nodiscard]] std::vector<MenuEntry> rowMenu(const SharedIDs& ids) override;

private:
    using Screen::environment_;

    /// What a table was made of.
    struct Choice {
        std::shared_ptr<const LibraryIndex> index;
        std::string searchText;
        TableOrder sort;

        friend bool operator==(const Choice&, const Choice&) = default;
    };
    using SharedTable = std::shared_ptr<const Table<FoundEntry>>;

    [[nodiscard]] SharedTable tableAfter(const SharedTable& earlier) const;
    [[nodiscard]] static RegisterFooter footer(const Table<FoundEntry>& table,
                                               const UUIDSet& selection);

    std::string& term_;
    SharedSelection selection_ = std::make_shared<const UUIDSet>();
    TableOrder sort_;
    mutable FindRows rows_;
    // What the present table was made of, and what all rows hold in its columns.
    mutable Choice shownChoice_;
    mutable std::vector<ColumnReach> reaches_;
    mutable TableSorter<FoundEntry> sorter_;
};

} // namespace oakfen
