#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/EntryActions.h"
#include "Oakfen/Views/Table.h"

namespace oakfen {

/// A view that lists entries, as the table that draws them sees it.
class EntryList : public EntryActions {
public:
    /// A click on a column's header: sorts by it, or turns the direction round.
    virtual void sortBy(std::string_view column) = 0;
    /// The columns to sort by, and the directions.
    [[nodiscard]] virtual std::vector<MenuEntry> sortMenu() = 0;
    /// Selects these of the rows that are shown.
    virtual void select(UUIDSet ids) = 0;
    /// The selected rows as lines of tab-separated text for a spreadsheet, in all columns.
    [[nodiscard]] virtual std::string copiedText() const = 0;

protected:
    using EntryActions::EntryActions;
};

/// A selection that contents share, since it may be of a hundred thousand entries.
using SharedSelection = std::shared_ptr<const UUIDSet>;

/// Those of the selected entries that the table shows; the same selection where it shows them all.
[[nodiscard]] SharedSelection shownOf(const SharedSelection& selected, const TableContent& table);

/// The rows of the selected entries, in the order of the table.
[[nodiscard]] std::vector<std::size_t> rowsOf(const UUIDSet& selected, const TableContent& table);

/// What stays selected without these.
[[nodiscard]] UUIDSet without(UUIDSet selected, const UUIDSet& ids);

} // namespace oakfen
