#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Register/RegisterTable.h"

namespace oakfen {

/// The orders that a view's list can have: its columns, and the directions. The view must outlive
/// them.
template <typename View>
[[nodiscard]] std::vector<MenuEntry> sortMenuOf(View& view) {
    const auto content = view.content();
    const TableContent& table = *content->table;
    const RegisterSort& present = content->sort;
    std::vector<MenuEntry> entries;
    const auto add = [&](std::string_view title, const RegisterSort& sort, bool startsGroup) {
        entries.push_back({.title = std::string(title),
                           .perform = [&view, sort] { view.setSort(sort); },
                           .isChecked = present == sort,
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
