#include "Oakfen/Views/EntryList.h"

namespace oakfen {

SharedSelection shownOf(const SharedSelection& selected, const TableContent& table) {
    if (selected->empty()) {
        return selected;
    }
    // Mostly all of it is; a set of thousands isn't made again for nothing.
    const std::vector<std::size_t> rows = rowsOf(*selected, table);
    if (rows.size() == selected->size()) {
        return selected;
    }
    auto shown = std::make_shared<UUIDSet>();
    for (const std::size_t row : rows) {
        shown->insert(table.id(row));
    }
    return shown->size() == selected->size() ? selected : shown;
}

std::vector<std::size_t> rowsOf(const UUIDSet& selected, const TableContent& table) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        if (selected.contains(table.id(row))) {
            rows.push_back(row);
        }
    }
    return rows;
}

UUIDSet without(UUIDSet selected, const UUIDSet& ids) {
    std::erase_if(selected, [&](const UUID& id) { return ids.contains(id); });
    return selected;
}

} // namespace oakfen
