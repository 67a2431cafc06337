#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Oakfen/FigureLines.h"
#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// A line among those that make up a figure.
struct FigureRow {
    /// The split's; the entry's where that isn't split.
    UUID id;
    UUID entryID;
    Date date;
    /// These two the ledger holds.
    std::string_view payee;
    std::string_view accountName;
    std::string categoryName;
    /// As the figure counts it.
    Decimal amount;
    /// For a split: what the whole entry came to.
    std::optional<Decimal> whole = {};

    friend bool operator==(const FigureRow&, const FigureRow&) = default;
};

/// The lines that make up the figure, by account. The index must outlive them.
[[nodiscard]] std::vector<FigureRow> rowsOf(const FigureLines& figure, const LibraryIndex& index);

/// Date, payee, category and amount; the account in the category's place where all lines are of one
/// category.
[[nodiscard]] const Columns<FigureRow>& figureColumns(bool areOfOneCategory);

} // namespace oakfen
