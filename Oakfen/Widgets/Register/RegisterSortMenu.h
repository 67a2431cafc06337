#pragma once

#include <string>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Register/RegisterTable.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"

namespace oakfen {

/// Fills the menu of the titles above a list of entries with its orders. The view must outlive it.
template <typename View>
void fillSortMenu(QMenu& menu, View& view) {
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
    fillMenu(menu, entries);
}

} // namespace oakfen
