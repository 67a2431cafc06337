#include "Oakfen/Views/Lines/LinesView.h"

#include <algorithm>
#include <utility>

namespace oakfen {

namespace {

/// The rows of a table, which keep alive what they point to.
struct Lines {
    std::shared_ptr<const LibraryIndex> index;
    std::vector<FigureRow> rows;
};

bool areOfOneCategory(const std::vector<FigureRow>& rows) {
    return std::ranges::all_of(
        rows, [&](const FigureRow& row) { return row.categoryName == rows.front().categoryName; });
}

} // namespace

std::optional<EmptyState> LinesContent::emptyState() const {
    if (table->rowCount() > 0) {
        return std::nullopt;
    }
    return EmptyState{.title = "No Entries",
                      .symbolName = "list.bullet.rectangle",
                      .text = "Nothing was entered here in this period."};
}

LinesView::LinesView(AppEnvironment& environment, FigureLines figure)
    : Screen(environment), figure_(std::move(figure)) {}

void LinesView::setSort(const TableOrder& order) {
    sort_ = order;
    stateChanged();
}

void LinesView::sortBy(std::string_view column) {
    // Both sets of columns are sorted by alike.
    const bool isOfAccounts = columnNamed(*content()->table, "account").has_value();
    setSort(afterClick(sort_, figureColumns(isOfAccounts), column));
}

std::vector<MenuEntry> LinesView::sortMenu() {
    return sortMenuOf(*this);
}

void LinesView::editEntry(std::size_t row) {
    const auto shown = content();
    if (row < shown->table->rowCount()) {
        environment_.appState.setSheet(
            ActiveSheet{ActiveSheet::EditTransaction{shown->table->rows()[row]->entryID}});
    }
}

std::vector<MenuEntry> LinesView::rowMenu(std::size_t row) {
    const auto shown = content();
    if (row >= shown->table->rowCount()) {
        return {};
    }
    const UUID entryID = shown->table->rows()[row]->entryID;
    return {{.title = "Edit",
             .symbolName = "pencil",
             .shortcut = "Return",
             .leavesKeyToFocus = true,
             .perform =
                 [&state = environment_.appState, entryID] {
                     state.setSheet(ActiveSheet{ActiveSheet::EditTransaction{entryID}});
                 }},
            {.title = "Show in Register",
             .symbolName = "list.bullet.rectangle",
             .shortcut = "Ctrl+Return",
             .leavesKeyToFocus = true,
             .perform = whileAlive([this, entryID] { showInRegister(entryID); })}};
}

void LinesView::showInRegister(const UUID& entryID) {
    if (const Transaction* entry = environment_.store.index().transaction(entryID)) {
        // The panel ends as soon as another screen is shown.
        AppState& state = environment_.appState;
        const UUID wanted = entry->id;
        state.setSelection(SidebarItem::account(entry->accountID));
        state.entryWanted.notify(wanted);
    }
}

std::string LinesView::copiedText(std::span<const std::size_t> rows) const {
    return clipboardText(*content()->table, rows);
}

LinesContent LinesView::derive(const LinesContent* earlier) const {
    auto lines = std::make_shared<Lines>();
    lines->index = environment_.store.sharedIndex();
    lines->rows = rowsOf(figure_, *lines->index);
    const bool isOfOneCategory = areOfOneCategory(lines->rows);
    const Columns<FigureRow>& columns = figureColumns(isOfOneCategory);

    std::vector<const FigureRow*> order;
    order.reserve(lines->rows.size());
    for (const FigureRow& row : lines->rows) {
        order.push_back(&row);
    }
    // Once all lines are of one category there is no column of categories to sort by.
    const bool isSortable = columnNamed(columns, sort_.column) != nullptr;
    const TableOrder sort = isSortable ? sort_ : TableOrder();
    // Lines come by account; those of one day stay so.
    sorter_.sort(order, *columnNamed(columns, sort.column), sort.ascending);
    const Decimal total = sum(lines->rows, [](const FigureRow& row) { return row.amount; });
    const std::size_t count = order.size();
    auto reaches = reachesOf<FigureRow>(columns, lines->rows);
    auto table = std::make_shared<const Table<FigureRow>>(
        columns, std::move(order), std::move(lines), std::move(reaches), cellContext());
    return {.sort = sort,
            .table = keepingEqual(earlier != nullptr ? earlier->table : nullptr, std::move(table)),
            .count = countText(count) + (count == 1 ? " entry" : " entries"),
            .total = moneyText(total, environment_.currencyCode())};
}

} // namespace oakfen
