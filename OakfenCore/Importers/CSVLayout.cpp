#include "OakfenCore/Importers/CSVLayout.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "OakfenCore/Importers/CSVScanner.h"
#include "OakfenCore/Importers/DateParser.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// The leftmost column with one of the names, or failing that, with one inside its name.
class ColumnFinder {
public:
    ColumnFinder(std::initializer_list<std::string_view> names) : names_(names) {}

    void look(std::string_view title, std::size_t column) {
        for (const std::string_view name : names_) {
            if (!exact_ && title == name) {
                exact_ = column;
            }
            if (!containing_ && title.find(name) != std::string_view::npos) {
                containing_ = column;
            }
        }
    }

    [[nodiscard]] std::optional<std::size_t> column() const {
        return exact_ ? exact_ : containing_;
    }

private:
    std::vector<std::string_view> names_;
    std::optional<std::size_t> exact_;
    std::optional<std::size_t> containing_;
};

/// In the order of `CSVRole`.
std::array<ColumnFinder, csvRoleCount> columnFinders() {
    return {
        ColumnFinder{"date", "posted", "transaction date"},
        ColumnFinder{"payee", "description", "name", "merchant", "details"},
        ColumnFinder{"amount", "value"},
        ColumnFinder{"debit", "withdrawal", "money out", "paid out"},
        ColumnFinder{"credit", "deposit", "money in", "paid in"},
        ColumnFinder{"category"},
        ColumnFinder{"memo", "notes", "note"},
        ColumnFinder{"check", "cheque", "num", "number"},
    };
}

CSVLayout layoutByWidth(std::size_t width) {
    CSVLayout layout;
    layout[CSVRole::date] = 0;
    layout[CSVRole::payee] = 1;
    if (width < 4) {
        layout[CSVRole::amount] = 2;
    } else {
        layout[CSVRole::debit] = 2;
        layout[CSVRole::credit] = 3;
    }
    return layout;
}

/// Reads on from the first title.
std::optional<CSVLayout> layoutByHeader(std::string_view firstTitle, CSVScanner& scanner) {
    std::array<ColumnFinder, csvRoleCount> finders = columnFinders();
    std::optional<std::string_view> cell = firstTitle;
    for (std::size_t column = 0; cell; ++column) {
        if (!cell->empty()) {
            const std::string title = lowercased(*cell);
            for (ColumnFinder& finder : finders) {
                finder.look(title, column);
            }
        }
        cell = scanner.nextCell();
    }

    CSVLayout layout;
    layout.hasHeader = true;
    std::transform(finders.begin(), finders.end(), layout.columns.begin(),
                   [](const ColumnFinder& finder) { return finder.column(); });
    if (!layout[CSVRole::payee]) {
        layout[CSVRole::payee] = layout[CSVRole::date] == 0U ? 1U : 0U;
    }
    const bool hasAmount =
        layout[CSVRole::amount] || layout[CSVRole::debit] || layout[CSVRole::credit];
    return layout[CSVRole::date] && hasAmount ? std::optional(layout) : std::nullopt;
}

} // namespace

std::optional<CSVLayout> csvLayout(std::string_view text, const Calendar& calendar) {
    CSVScanner scanner(text);
    if (!scanner.nextRow()) {
        return std::nullopt;
    }
    const std::string_view first = scanner.nextCell().value_or(std::string_view());
    if (!DateParser::parse(first, std::nullopt, calendar)) {
        return layoutByHeader(first, scanner);
    }
    std::size_t width = 1;
    while (scanner.nextCell()) {
        ++width;
    }
    return layoutByWidth(width);
}

} // namespace oakfen
