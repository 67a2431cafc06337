#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Components/EmptyState.h"
#include "Oakfen/Views/Register/RegisterFilter.h"
#include "Oakfen/Views/Register/RegisterTable.h"
#include "Oakfen/Views/TableOrder.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

/// The figures under a register.
struct RegisterFooter {
    struct Figure {
        std::string label;
        Decimal amount;
        friend bool operator==(const Figure&, const Figure&) = default;
    };
    std::vector<Figure> figures;
    /// "3 selected" with their sum, while something is selected.
    std::optional<Figure> selection = {};

    friend bool operator==(const RegisterFooter&, const RegisterFooter&) = default;
};

/// "3 selected" with the sum of their amounts; nothing while nothing is selected.
template <typename Row, typename AmountOf>
[[nodiscard]] std::optional<RegisterFooter::Figure>
selectedFigure(const Table<Row>& table, const UUIDSet& selection, AmountOf&& amountOf) {
    if (selection.empty()) {
        return std::nullopt;
    }
    const Decimal total = sum(table.rows(), [&](const Row* row) {
        return selection.contains(row->id) ? amountOf(*row) : Decimal();
    });
    return RegisterFooter::Figure{countText(selection.size()) + " selected", total};
}

/// An entry to be brought into sight, and how many were before it: the same entry may be due again.
struct RevealedEntry {
    UUID id;
    int number = 0;

    friend bool operator==(const RevealedEntry&, const RevealedEntry&) = default;
};

/// What stands in the place of a table in which the search found nothing, with what may help.
[[nodiscard]] EmptyState noResults(std::string_view searchText, std::string_view advice);

/// What a register shows.
struct RegisterContent {
    std::string title = {};
    std::string subtitle = {};
    RegisterFilter filter = RegisterFilter::all;
    std::string searchText = {};
    TableOrder sort = {};
    /// The rows that filter and search let be seen, in the order of the sort. Its columns span the
    /// figures of all rows, so that their widths don't change with the choice.
    std::shared_ptr<const Table<RegisterRow>> table = {};
    /// While the rows are sorted by date: the first row on the other side of today, with what is to
    /// come either above it or from it on. Nothing when all rows lie on one side.
    std::optional<std::size_t> rowPastToday = {};
    /// Always among the rows that are shown, so that no action touches an entry that the person
    /// doesn't see.
    std::shared_ptr<const UUIDSet> selection = {};
    RegisterFooter footer = {};
    /// Says that saved entries are hidden by the filter and the search that still hold.
    std::optional<std::string> hiddenNotice = {};
    /// What was saved or brought back last.
    std::optional<RevealedEntry> revealed = {};

    /// Whether a filter or a search may hide rows.
    [[nodiscard]] bool isNarrowed() const {
        return !searchText.empty() || filter != RegisterFilter::all;
    }
    /// What stands in the place of a table without rows; nothing while there are some.
    [[nodiscard]] std::optional<EmptyState> emptyState() const;

    friend bool operator==(const RegisterContent&, const RegisterContent&) = default;
};

} // namespace oakfen
