#include "Oakfen/Views/Table.h"

#include <algorithm>

#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

std::string htmlText(std::string_view text) {
    std::string html;
    for (const char each : text) {
        switch (each) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        default:
            html += each;
        }
    }
    return html;
}

/// An icon or a tick is printed as the word that is said for it.
std::string printedCell(const Cell& cell) {
    std::string html = htmlText(cell.text.empty() ? cell.spoken : cell.text);
    if (!cell.detail.empty()) {
        html += " <small>" + htmlText(cell.detail) + "</small>";
    }
    return html;
}

std::string printedRow(const TableContent& table, std::size_t row) {
    std::string html = "<tr>";
    for (std::size_t column = 0; column < table.columnCount(); ++column) {
        const std::string text = printedCell(table.cell(row, column));
        html += table.isOfFigures(column) ? "<td align=\"right\">" : "<td>";
        html += table.kind(row) == RowKind::entry ? text : "<b>" + text + "</b>";
        html += "</td>";
    }
    return html + "</tr>\n";
}

} // namespace

bool hasSameHeads(const TableContent& a, const TableContent& b) {
    if (a.columnCount() != b.columnCount()) {
        return false;
    }
    for (std::size_t column = 0; column < a.columnCount(); ++column) {
        if (!(a.head(column) == b.head(column)) || a.wholeTexts(column) != b.wholeTexts(column) ||
            a.isEmpty(column) != b.isEmpty(column)) {
            return false;
        }
    }
    return true;
}

bool isSameTable(const TableContent& a, const TableContent& b) {
    if (a.rowCount() != b.rowCount() || !a.isAlike(b) || !hasSameHeads(a, b)) {
        return false;
    }
    for (std::size_t row = 0; row < a.rowCount(); ++row) {
        if (!a.isSameRow(row, b, row)) {
            return false;
        }
    }
    return true;
}

std::optional<std::size_t> columnNamed(const TableContent& table, std::string_view id) {
    for (std::size_t column = 0; column < table.columnCount(); ++column) {
        if (table.head(column).id == id) {
            return column;
        }
    }
    return std::nullopt;
}

std::string clipboardText(const TableContent& table, std::span<const std::size_t> rows) {
    std::vector<std::string> lines;
    lines.reserve(rows.size());
    for (const std::size_t row : rows) {
        std::vector<std::string> cells;
        for (std::size_t column = 0; column < table.columnCount(); ++column) {
            cells.push_back(table.plainText(row, column));
        }
        lines.push_back(joined(cells, "\t"));
    }
    return joined(lines, "\n");
}

std::string printedPage(const TableContent& table, std::string_view title) {
    std::string html = "<h2>" + htmlText(title) + "</h2>\n<table width=\"100%\">\n<thead><tr>";
    for (std::size_t column = 0; column < table.columnCount(); ++column) {
        html += table.isOfFigures(column) ? "<th align=\"right\">" : "<th align=\"left\">";
        html += htmlText(table.head(column).name()) + "</th>";
    }
    html += "</tr></thead>\n";
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        html += printedRow(table, row);
    }
    return html + "</table>\n";
}

std::string drawnText(std::string_view text) {
    std::string result;
    bool isFirst = true;
    bool followsBlank = false;
    const std::string line = singleLine(text);
    forEachCharacter(line, [&](std::string_view character) {
        if (trimmingWhitespaces(character).empty()) {
            followsBlank = true;
            return;
        }
        if (followsBlank && !isFirst) {
            result += ' ';
        }
        result += character;
        isFirst = false;
        followsBlank = false;
    });
    return result;
}

Cell textCell(std::string_view text) {
    return {.text = drawnText(text)};
}

Cell moneyCell(const Decimal& amount, bool leavesZeroBlank, const CellContext& context) {
    if (leavesZeroBlank && amount.isZero()) {
        return {};
    }
    MoneyText money = moneyText(amount, context.currencyCode);
    return {.text = std::move(money.text), .tone = money.tone};
}

Cell figuresCell(const Decimal& value, int fractionDigits) {
    return {.text = numberText(value, fractionDigits)};
}

Cell dayCell(Date date, bool namesMonth, const CellContext& context) {
    return {.text = namesMonth ? abbreviatedDateText(date, context.calendar)
                               : numericDateText(date, context.calendar)};
}

std::vector<std::string> wholeDayTexts(bool namesMonth, const CellContext& context) {
    constexpr int months = 12;
    std::vector<std::string> texts;
    for (int month = 1; month <= (namesMonth ? months : 1); ++month) {
        const Date day =
            context.calendar.date({.year = 2028, .month = month, .day = 28, .hour = 12});
        texts.push_back(dayCell(day, namesMonth, context).text);
    }
    return texts;
}

Cell tickCell(bool isTicked) {
    return {.spoken = isTicked ? "Ticked" : "Not ticked", .tick = isTicked};
}

std::string plainCellText(std::string_view text) {
    std::string cell = singleLine(text);
    std::ranges::replace(cell, '\t', ' ');
    return Exporter::guarded(cell);
}

} // namespace oakfen
