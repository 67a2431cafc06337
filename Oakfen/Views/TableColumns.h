#pragma once

#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "Oakfen/Views/Components/AmountEntry.h"
#include "Oakfen/Views/Table.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

/// One column of a table: the value that each row holds there. What is shown, said, copied and
/// printed, how the column is sorted and how much room it needs, all follow from that value.
template <typename Row>
struct Column {
    /// A text of the row. Where it `countsDigits`, figures in it sort as numbers.
    struct Text {
        std::string_view (*of)(const Row&);
        bool countsDigits = false;
    };
    /// A text that is put together for the cell; it can't be sorted by.
    struct Composed {
        std::string (*of)(const Row&);
    };
    struct Money {
        Decimal (*of)(const Row&);
        bool leavesZeroBlank = false;
    };
    /// A number that is no money: a count, shares, a percentage.
    struct Figures {
        Decimal (*of)(const Row&);
        int fractionDigits = 0;
    };
    struct Day {
        Date (*of)(const Row&);
        /// Writes the month as a word, where a day and a month that changed places must be seen.
        bool namesMonth = false;
    };
    /// A word at the rows that have some quality; it takes no more room than the word needs.
    struct Mark {
        std::string_view word;
        bool (*of)(const Row&);
    };
    struct Tick {
        bool (*of)(const Row&);
    };

    ColumnHead head;
    std::variant<Text, Composed, Money, Figures, Day, Mark, Tick> value;
    /// Gives the cell what its value doesn't say: a tone, a detail, an icon, a tooltip.
    void (*dress)(Cell& cell, const Row& row, const CellContext& context) = nullptr;
};

/// The columns of one kind of table; they live as long as the program.
template <typename Row>
using Columns = std::vector<Column<Row>>;

/// The column with that id, or null.
template <typename Row>
[[nodiscard]] const Column<Row>* columnNamed(const Columns<Row>& columns, std::string_view id) {
    const auto found =
        std::ranges::find(columns, id, [](const Column<Row>& each) { return each.head.id; });
    return found == columns.end() ? nullptr : &*found;
}

/// Calls the one of these functions that takes the value.
template <typename... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

/// Whether the row holds nothing in the column; only texts can be nothing.
template <typename Row>
[[nodiscard]] bool holdsNothing(const Column<Row>& column, const Row& row) {
    if (const auto* text = std::get_if<typename Column<Row>::Text>(&column.value)) {
        return text->of(row).empty();
    }
    if (const auto* text = std::get_if<typename Column<Row>::Composed>(&column.value)) {
        return text->of(row).empty();
    }
    return false;
}

/// What the rows of a table hold in a column.
struct ColumnReach {
    /// How far its figures reach.
    AmountRange range = {};
    /// No row holds anything there; only told of columns that may be empty.
    bool isEmpty = false;

    friend bool operator==(const ColumnReach&, const ColumnReach&) = default;
};

/// What these rows, which are walked through once, hold in each column.
template <typename Row, typename Rows>
[[nodiscard]] std::vector<ColumnReach> reachesOf(const Columns<Row>& columns, const Rows& rows) {
    std::vector<ColumnReach> reaches(columns.size());
    std::vector<std::pair<AmountRange*, Decimal (*)(const Row&)>> figures;
    std::vector<std::size_t> empty;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const auto& value = columns[column].value;
        if (const auto* money = std::get_if<typename Column<Row>::Money>(&value)) {
            figures.push_back({&reaches[column].range, money->of});
        } else if (const auto* numbers = std::get_if<typename Column<Row>::Figures>(&value)) {
            figures.push_back({&reaches[column].range, numbers->of});
        } else if (columns[column].head.mayBeEmpty) {
            empty.push_back(column);
        }
    }
    for (const Row& row : rows) {
        for (const auto& [range, of] : figures) {
            range->include(of(row));
        }
        std::erase_if(empty, [&](std::size_t each) { return !holdsNothing(columns[each], row); });
    }
    for (const std::size_t each : empty) {
        reaches[each].isEmpty = true;
    }
    return reaches;
}

/// A table of rows of one type, which have an `id` and, where some are no entries, a `kind`.
template <typename Row>
class Table final : public TableContent {
public:
    /// Shows some rows of those that `owner` keeps alive. `reaches` are those of all its rows, so
    /// that the columns of figures don't change their widths with the choice of rows.
    Table(const Columns<Row>& columns, std::vector<const Row*> rows,
          std::shared_ptr<const void> owner, std::vector<ColumnReach> reaches, CellContext context)
        : columns_(columns), rows_(std::move(rows)), owner_(std::move(owner)),
          reaches_(std::move(reaches)), context_(std::move(context)) {
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            if (columns_[column].head.mayBeEmpty && !reaches_[column].isEmpty) {
                reaches_[column].isEmpty = std::ranges::all_of(
                    rows_, [&](const Row* row) { return holdsNothing(columns_[column], *row); });
            }
        }
    }

    /// Shows all of these rows; what they point to, `owner` keeps alive.
    Table(const Columns<Row>& columns, std::vector<Row> rows, std::shared_ptr<const void> owner,
          CellContext context)
        : columns_(columns), kept_(std::move(rows)), owner_(std::move(owner)),
          reaches_(reachesOf<Row>(columns, kept_)), context_(std::move(context)) {
        rows_.reserve(kept_.size());
        for (const Row& row : kept_) {
            rows_.push_back(&row);
        }
    }

    [[nodiscard]] const std::vector<const Row*>& rows() const { return rows_; }

    [[nodiscard]] std::size_t columnCount() const override { return columns_.size(); }
    [[nodiscard]] const ColumnHead& head(std::size_t column) const override {
        return columns_[column].head;
    }
    [[nodiscard]] bool isOfFigures(std::size_t column) const override {
        return holds<typename Column<Row>::Money>(column) ||
               holds<typename Column<Row>::Figures>(column);
    }
    [[nodiscard]] std::vector<std::string> wholeTexts(std::size_t column) const override;
    [[nodiscard]] bool isEmpty(std::size_t column) const override {
        return reaches_[column].isEmpty;
    }

    [[nodiscard]] std::size_t rowCount() const override { return rows_.size(); }
    [[nodiscard]] UUID id(std::size_t row) const override { return rows_[row]->id; }
    [[nodiscard]] RowKind kind(std::size_t row) const override {
        if constexpr (requires { rows_[row]->kind; }) {
            return rows_[row]->kind;
        } else {
            return RowKind::entry;
        }
    }
    [[nodiscard]] Cell cell(std::size_t row, std::size_t column) const override;
    [[nodiscard]] std::string plainText(std::size_t row, std::size_t column) const override;
    [[nodiscard]] std::string typedText(std::size_t row, std::size_t column) const override;

    [[nodiscard]] bool isAlike(const TableContent& other) const override {
        const auto* table = dynamic_cast<const Table*>(&other);
        return table != nullptr && &table->columns_ == &columns_ && table->context_ == context_;
    }
    [[nodiscard]] bool isSameRow(std::size_t row, const TableContent& other,
                                 std::size_t otherRow) const override {
        const Row* theirs = static_cast<const Table&>(other).rows_[otherRow];
        return rows_[row] == theirs || *rows_[row] == *theirs;
    }

private:
    template <typename Value>
    [[nodiscard]] bool holds(std::size_t column) const {
        return std::holds_alternative<Value>(columns_[column].value);
    }
    [[nodiscard]] bool isAnySet(const typename Column<Row>::Mark& mark) const {
        return std::ranges::any_of(rows_, [&](const Row* row) { return mark.of(*row); });
    }
    [[nodiscard]] static Cell markCell(const typename Column<Row>::Mark& mark, const Row& row) {
        return {.text = std::string(mark.of(row) ? mark.word : std::string_view())};
    }
    [[nodiscard]] Cell undressed(const Row& row, const Column<Row>& column) const;

    const Columns<Row>& columns_;
    std::vector<Row> kept_;
    std::vector<const Row*> rows_;
    std::shared_ptr<const void> owner_;
    std::vector<ColumnReach> reaches_;
    CellContext context_;
};

template <typename Row>
std::vector<std::string> Table<Row>::wholeTexts(std::size_t column) const {
    const AmountRange& range = reaches_[column].range;
    const auto ends = [&](auto&& cellOf) {
        return std::vector{cellOf(range.least).text, cellOf(range.greatest).text};
    };
    return std::visit(Overloaded{[&](const typename Column<Row>::Money&) {
                                     return ends([&](const Decimal& amount) {
                                         return moneyCell(amount, false, context_);
                                     });
                                 },
                                 [&](const typename Column<Row>::Figures& figures) {
                                     return ends([&](const Decimal& value) {
                                         return figuresCell(value, figures.fractionDigits);
                                     });
                                 },
                                 [&](const typename Column<Row>::Day& day) {
                                     return wholeDayTexts(day.namesMonth, context_);
                                 },
                                 [&](const typename Column<Row>::Mark& mark) {
                                     return isAnySet(mark) ? std::vector{std::string(mark.word)}
                                                           : std::vector<std::string>();
                                 },
                                 [](const auto&) { return std::vector<std::string>(); }},
                      columns_[column].value);
}

template <typename Row>
Cell Table<Row>::undressed(const Row& row, const Column<Row>& column) const {
    return std::visit(
        Overloaded{[&](const typename Column<Row>::Money& money) {
                       return moneyCell(money.of(row), money.leavesZeroBlank, context_);
                   },
                   [&](const typename Column<Row>::Figures& figures) {
                       return figuresCell(figures.of(row), figures.fractionDigits);
                   },
                   [&](const typename Column<Row>::Day& day) {
                       return dayCell(day.of(row), day.namesMonth, context_);
                   },
                   [&](const typename Column<Row>::Mark& mark) { return markCell(mark, row); },
                   [&](const typename Column<Row>::Tick& tick) { return tickCell(tick.of(row)); },
                   [&](const auto& text) { return textCell(text.of(row)); }},
        column.value);
}

template <typename Row>
Cell Table<Row>::cell(std::size_t row, std::size_t column) const {
    Cell result = undressed(*rows_[row], columns_[column]);
    if (columns_[column].dress != nullptr) {
        columns_[column].dress(result, *rows_[row], context_);
    }
    return result;
}

template <typename Row>
std::string Table<Row>::typedText(std::size_t row, std::size_t column) const {
    const Row& each = *rows_[row];
    return std::visit(
        Overloaded{
            [&](const typename Column<Row>::Money& money) {
                return AmountEntry(money.of(each)).text();
            },
            [&](const typename Column<Row>::Figures& figures) {
                return numberText(figures.of(each), figures.fractionDigits);
            },
            [&](const typename Column<Row>::Text& text) { return std::string(text.of(each)); },
            [&](const typename Column<Row>::Composed& text) { return text.of(each); },
            [&](const auto&) { return cell(row, column).text; }},
        columns_[column].value);
}

template <typename Row>
std::string Table<Row>::plainText(std::size_t row, std::size_t column) const {
    const Row& each = *rows_[row];
    return std::visit(
        Overloaded{
            [&](const typename Column<Row>::Money& money) {
                const Decimal amount = money.of(each);
                return money.leavesZeroBlank && amount.isZero() ? std::string()
                                                                : Exporter::plain(amount);
            },
            [&](const typename Column<Row>::Figures& figures) {
                return figures.of(each).toString();
            },
            [&](const typename Column<Row>::Day& day) {
                return Exporter::isoDate(day.of(each), context_.calendar);
            },
            [&](const typename Column<Row>::Mark& mark) { return markCell(mark, each).text; },
            [&](const typename Column<Row>::Tick&) { return cell(row, column).spoken; },
            [&](const auto& text) { return plainCellText(text.of(each)); }},
        columns_[column].value);
}

} // namespace oakfen
