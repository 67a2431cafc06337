#include "OakfenCore/Importers/CSVReader.h"

#include <algorithm>
#include <array>

#include "OakfenCore/Importers/AmountParser.h"
#include "OakfenCore/Importers/CSVLayout.h"
#include "OakfenCore/Importers/CSVScanner.h"
#include "OakfenCore/Importers/Characters.h"
#include "OakfenCore/Importers/DateParser.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// The cells of one row that have a role.
class RowCells {
public:
    explicit RowCells(const CSVLayout& layout) : layout_(layout) {
        for (const auto& column : layout.columns) {
            width_ = std::max(width_, column ? *column + 1 : 0);
        }
    }

    /// Takes the cells of the scanner's row; one that the row lacks is empty.
    void read(CSVScanner& scanner) {
        for (std::string& cell : cells_) {
            cell.clear();
        }
        for (std::size_t column = 0; column < width_; ++column) {
            const std::optional<std::string_view> cell = scanner.nextCell();
            if (!cell) {
                return;
            }
            for (std::size_t role = 0; role < csvRoleCount; ++role) {
                if (layout_.columns[role] == column) {
                    cells_[role].assign(*cell);
                }
            }
        }
    }

    [[nodiscard]] const std::string& operator[](CSVRole role) const {
        return cells_[static_cast<std::size_t>(role)];
    }

private:
    const CSVLayout& layout_;
    std::size_t width_ = 0;
    std::array<std::string, csvRoleCount> cells_;
};

std::optional<std::string_view> bestFormat(std::string_view text, const CSVLayout& layout) {
    DateParser::BestFormatFinder finder;
    CSVScanner scanner(text);
    if (layout.hasHeader) {
        scanner.nextRow();
    }
    while (!finder.isExhausted() && scanner.nextRow()) {
        std::optional<std::string_view> cell = scanner.nextCell();
        for (std::size_t column = 0; cell && column < layout[CSVRole::date]; ++column) {
            cell = scanner.nextCell();
        }
        finder.look(cell.value_or(std::string_view()));
    }
    return finder.format();
}

/// The signed amount: that of the amount column if it can be read, else what the debit and credit
/// columns come to, whose own signs say nothing.
std::optional<Decimal> amount(const RowCells& cells) {
    if (const auto value = AmountParser::parse(cells[CSVRole::amount])) {
        return value;
    }
    const Decimal debit =
        AmountParser::parse(cells[CSVRole::debit]).value_or(Decimal()).magnitude();
    const Decimal credit =
        AmountParser::parse(cells[CSVRole::credit]).value_or(Decimal()).magnitude();
    if (debit.isZero() && credit.isZero()) {
        return std::nullopt;
    }
    return credit - debit;
}

} // namespace

std::vector<ImportedTransaction> readCSV(std::string_view data, const Calendar& calendar) {
    // Banks put a byte order mark in front, and some between parts that they join.
    const std::string text = replacingAll(data, "\uFEFF", "");
    const std::optional<CSVLayout> layout = csvLayout(text, calendar);
    if (!layout) {
        return {};
    }
    const std::optional<std::string_view> format = bestFormat(text, *layout);

    std::vector<ImportedTransaction> lines;
    RowCells cells(*layout);
    CSVScanner scanner(text);
    if (layout->hasHeader) {
        scanner.nextRow();
    }
    while (scanner.nextRow()) {
        cells.read(scanner);
        const std::optional<Date> date = DateParser::parse(cells[CSVRole::date], format, calendar);
        const std::optional<Decimal> value = date ? amount(cells) : std::nullopt;
        if (!value) {
            continue;
        }
        const std::string& category = cells[CSVRole::category];
        lines.push_back({
            .id = UUID::random(),
            .date = *date,
            .payee = cells[CSVRole::payee],
            .amount = *value,
            .memo = cells[CSVRole::memo],
            .checkNumber = cells[CSVRole::checkNumber],
            .categoryName = category.empty() ? std::nullopt : std::optional(category),
        });
    }
    return lines;
}

std::vector<std::vector<std::string>> StatementImporter::csvRows(std::string_view text) {
    std::vector<std::vector<std::string>> rows;
    CSVScanner scanner(text);
    while (scanner.nextRow()) {
        std::vector<std::string>& row = rows.emplace_back();
        while (const auto cell = scanner.nextCell()) {
            row.emplace_back(*cell);
        }
    }
    return rows;
}

} // namespace oakfen
