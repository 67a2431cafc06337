#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// The column that a list of entries is sorted by, named by its id.
struct TableOrder {
    std::string_view column = "date";
    bool ascending = false;

    friend bool operator==(const TableOrder&, const TableOrder&) = default;
};

/// The order after a click on that column's header: by it, or turned round. The same where the
/// column can't be sorted by.
template <typename Row>
[[nodiscard]] TableOrder afterClick(const TableOrder& order, const Columns<Row>& columns,
                                    std::string_view column) {
    const Column<Row>* found = columnNamed(columns, column);
    if (found == nullptr || !found->head.isSortable) {
        return order;
    }
    return {.column = found->head.id, .ascending = order.column != column || !order.ascending};
}

/// The orders that a view's list can have: its columns, and the directions. The view must outlive
/// them.
template <typename View>
[[nodiscard]] std::vector<MenuEntry> sortMenuOf(View& view) {
    const auto content = view.content();
    const TableContent& table = *content->table;
    const TableOrder& present = content->sort;
    std::vector<MenuEntry> entries;
    const auto add = [&](std::string_view title, const TableOrder& order, bool startsGroup) {
        entries.push_back({.title = std::string(title),
                           .perform = [&view, order] { view.setSort(order); },
                           .isChecked = present == order,
                           .startsGroup = startsGroup});
    };
    for (std::size_t column = 0; column < table.columnCount(); ++column) {
        const ColumnHead& head = table.head(column);
        if (head.isSortable) {
            add(head.name(), {head.id, present.ascending}, false);
        }
    }
    add("Ascending", {present.column, true}, true);
    add("Descending", {present.column, false}, false);
    return entries;
}

} // namespace oakfen
