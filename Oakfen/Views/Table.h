#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Components/AmountRange.h"
#include "Oakfen/Views/Components/Components.h"

/// Tables without a toolkit: what stands in their cells and above their columns.
namespace oakfen {

/// What one place in a table shows and says.
struct Cell {
    std::string text;
    /// More text after the first, in the secondary tone.
    std::string detail = {};
    /// Where not both have room, the text is cut and the detail is not.
    bool keepsDetail = false;
    /// The name of an icon that stands instead of the text.
    std::string symbolName = {};
    std::string toolTip = {};
    /// What a screen reader says where it isn't the text; of an icon or a tick also its tooltip.
    std::string spoken = {};
    /// What a screen reader adds.
    std::string description = {};
    TextTone tone = TextTone::primary;
    std::optional<bool> tick = {};

    friend bool operator==(const Cell&, const Cell&) = default;
};

/// How the cells of a table write money and days.
struct CellContext {
    std::string currencyCode;
    Calendar calendar;
    /// What is dated later is still to come.
    Date endOfToday = Date::distantFuture();

    friend bool operator==(const CellContext&, const CellContext&) = default;
};

/// What stands above a column, and how much room it has.
struct ColumnHead {
    /// Names the column within its table; never shown.
    std::string_view id;
    std::string_view title = {};
    /// What is said instead of an empty title.
    std::string_view spoken = {};
    /// The usual width, in device-independent pixels.
    int width = 100;
    /// How narrow the column may become in a narrow window; nothing for one that keeps its width.
    std::optional<int> least = {};
    /// Takes the room that is left. One column of a table does.
    bool stretches = false;
    /// Typing into the table searches this column.
    bool isSearched = false;
    bool isSortable = false;
    bool isEditable = false;
    /// Often holds nothing at all, and is then the first to become narrower.
    bool mayBeEmpty = false;

    /// The title, or what is said instead.
    [[nodiscard]] std::string_view name() const { return title.empty() ? spoken : title; }

    friend bool operator==(const ColumnHead&, const ColumnHead&) = default;
};

/// What a row is among the others. Headings and totals are no entries that can be edited.
enum class RowKind { entry, section, total };

/// A table as it is at one moment: it never changes, and is there for as long as somebody holds it.
class TableContent {
public:
    TableContent() = default;
    TableContent(const TableContent&) = delete;
    TableContent& operator=(const TableContent&) = delete;
    virtual ~TableContent() = default;

    [[nodiscard]] virtual std::size_t columnCount() const = 0;
    [[nodiscard]] virtual const ColumnHead& head(std::size_t column) const = 0;
    /// Whether the column holds amounts or other figures, which stand at the right.
    [[nodiscard]] virtual bool isOfFigures(std::size_t column) const = 0;
    /// The texts of a column that are never cut, the widest ones among them; none for a column
    /// whose texts may end in dots.
    [[nodiscard]] virtual std::vector<std::string> wholeTexts(std::size_t column) const = 0;
    /// Whether no row holds anything there. Only asked of columns that may be empty; the others
    /// never are.
    [[nodiscard]] virtual bool isEmpty(std::size_t column) const = 0;

    [[nodiscard]] virtual std::size_t rowCount() const = 0;
    /// Which record the row shows.
    [[nodiscard]] virtual UUID id(std::size_t row) const = 0;
    [[nodiscard]] virtual RowKind kind(std::size_t row) const = 0;
    [[nodiscard]] virtual Cell cell(std::size_t row, std::size_t column) const = 0;
    /// The cell for another program: days as 2026-03-05, amounts as plain digits, and no text that
    /// would end the cell or be taken for a formula.
    [[nodiscard]] virtual std::string plainText(std::size_t row, std::size_t column) const = 0;
    /// What a field for the cell starts with, as the person would type it.
    [[nodiscard]] virtual std::string typedText(std::size_t row, std::size_t column) const = 0;

    /// Whether that table is drawn by the same columns, so that equal rows look the same in both.
    [[nodiscard]] virtual bool isAlike(const TableContent& other) const = 0;
    /// Whether both rows hold the same. Only for tables that are alike.
    [[nodiscard]] virtual bool isSameRow(std::size_t row, const TableContent& other,
                                         std::size_t otherRow) const = 0;
};

/// Whether all that stands above the columns is the same, and so is the room that they need.
[[nodiscard]] bool hasSameHeads(const TableContent& a, const TableContent& b);

/// Whether both are drawn alike, down to the last cell.
[[nodiscard]] bool isSameTable(const TableContent& a, const TableContent& b);

/// The earlier table where the next one is equal to it, so that it isn't drawn again; else the
/// next. There may be no earlier one.
template <typename Content>
[[nodiscard]] std::shared_ptr<const Content>
keepingEqual(const std::shared_ptr<const Content>& earlier, std::shared_ptr<const Content> next) {
    return earlier != nullptr && isSameTable(*earlier, *next) ? earlier : next;
}

/// Which column has the id; nothing where none has.
[[nodiscard]] std::optional<std::size_t> columnNamed(const TableContent& table,
                                                     std::string_view id);

/// The rows as lines of tab-separated text for a spreadsheet, in all columns.
[[nodiscard]] std::string clipboardText(const TableContent& table,
                                        std::span<const std::size_t> rows);

/// The whole table as a page of HTML for the printer, its column titles repeated on each sheet.
[[nodiscard]] std::string printedPage(const TableContent& table, std::string_view title);

/// The text on one line with one blank for each run of them, as banks pad their fields, and none at
/// its ends.
[[nodiscard]] std::string drawnText(std::string_view text);

// How a column's values become cells, and plain texts for other programs.
[[nodiscard]] Cell textCell(std::string_view text);
[[nodiscard]] Cell moneyCell(const Decimal& amount, bool leavesZeroBlank,
                             const CellContext& context);
[[nodiscard]] Cell figuresCell(const Decimal& value, int fractionDigits);
[[nodiscard]] Cell dayCell(Date date, bool namesMonth, const CellContext& context);
/// The texts of days that are the widest ones, if each digit is given the room of the widest one.
[[nodiscard]] std::vector<std::string> wholeDayTexts(bool namesMonth, const CellContext& context);
[[nodiscard]] Cell tickCell(bool isTicked);
[[nodiscard]] std::string plainCellText(std::string_view text);

} // namespace oakfen
