#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Components/EmptyState.h"
#include "Oakfen/Views/Lines/LinesTable.h"
#include "Oakfen/Views/Screen.h"
#include "Oakfen/Views/TableOrder.h"
#include "Oakfen/Views/TableSort.h"

namespace oakfen {

/// What makes up a figure, as the panel shows it.
struct LinesContent {
    TableOrder sort = {};
    std::shared_ptr<const Table<FigureRow>> table = {};
    /// "29 entries"; each share of a split is one.
    std::string count = {};
    /// What the lines add up to: the figure.
    MoneyText total = {};

    /// What stands in the place of a table without rows; nothing while there are some.
    [[nodiscard]] std::optional<EmptyState> emptyState() const;

    friend bool operator==(const LinesContent&, const LinesContent&) = default;
};

/// The lines that make up a figure, the newest first. They follow each edit.
class LinesView final : public Screen<LinesContent> {
public:
    LinesView(AppEnvironment& environment, FigureLines figure);

    /// What the figure is, and its kind and period.
    [[nodiscard]] const FigureLines& figure() const { return figure_; }

    void setSort(const TableOrder& order);
    /// A click on a column's header: sorts by it, or turns the direction round.
    void sortBy(std::string_view column);
    [[nodiscard]] std::vector<MenuEntry> sortMenu();
    /// Opens the entry that the row is a line of in its editor.
    void editEntry(std::size_t row);
    /// What can be done with the row.
    [[nodiscard]] std::vector<MenuEntry> rowMenu(std::size_t row);
    /// These rows as lines of tab-separated text for a spreadsheet.
    [[nodiscard]] std::string copiedText(std::span<const std::size_t> rows) const;

protected:
    [[nodiscard]] LinesContent derive(const LinesContent* earlier) const override;

private:
    void showInRegister(const UUID& entryID);

    FigureLines figure_;
    TableOrder sort_;
    mutable TableSorter<FigureRow> sorter_;
};

} // namespace oakfen
