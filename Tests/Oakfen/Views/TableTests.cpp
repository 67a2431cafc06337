#include <gtest/gtest.h>

#include "Oakfen/Views/TableSort.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Oakfen/Views/SavingsTable.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;

/// The names of the rows after sorting.
std::string sorted(const Table<SavingsRow>& table, const SavingsColumn& column, bool ascending) {
    std::vector<const SavingsRow*> rows = table.rows();
    TableSorter<SavingsRow>().sort(rows, column, ascending);
    std::string names;
    for (const SavingsRow* row : rows) {
        names += row->name;
    }
    return names;
}

TEST(Table, ShowsAValueOfEachKind) {
    const LocaleForTest locale("en_CA");
    const Columns<SavingsRow> columns{nameColumn(), amountColumn(), sharesColumn(), dayColumn(),
                                      chosenColumn()};
    const auto table = savingsTable(columns, {{.name = "Boat\r\nfund",
                                               .amount = amount("-1234.5"),
                                               .shares = amount("2.5"),
                                               .day = day(2026, 3, 5),
                                               .isChosen = true}});
    EXPECT_EQ(table->cell(0, 0), (Cell{.text = "Boat fund"}));
    EXPECT_EQ(table->cell(0, 1), (Cell{.text = "-$1,234.50", .tone = TextTone::negative}));
    EXPECT_EQ(table->cell(0, 2), (Cell{.text = "2.500"}));
    EXPECT_EQ(table->cell(0, 3), (Cell{.text = numericDateText(day(2026, 3, 5), Calendar::utc())}));
    EXPECT_EQ(table->cell(0, 4), (Cell{.spoken = "Ticked", .tick = true}));
    EXPECT_FALSE(table->isOfFigures(0));
    EXPECT_TRUE(table->isOfFigures(1));
    EXPECT_TRUE(table->isOfFigures(2));
}

TEST(Table, NamesTheMonthWhereItsColumnSaysSo) {
    const LocaleForTest locale("en_CA");
    SavingsColumn column = dayColumn();
    std::get<SavingsColumn::Day>(column.value).namesMonth = true;
    const Columns<SavingsRow> columns{column};
    const auto table = savingsTable(columns, {{.day = day(2026, 3, 5)}});
    EXPECT_EQ(table->cell(0, 0).text, "Mar 5, 2026");
    EXPECT_EQ(table->plainText(0, 0), "2026-03-05");
    // Of each month, since some names are longer than others.
    EXPECT_EQ(table->wholeTexts(0).size(), 12U);
}

TEST(Table, MarksTheRowsOfAQualityWithAWord) {
    const Columns<SavingsRow> columns{
        {.head = {.id = "chosen", .spoken = "Mark", .isSortable = true},
         .value =
             SavingsColumn::Mark{"Chosen", [](const SavingsRow& row) { return row.isChosen; }}}};
    const auto table = savingsTable(columns, {{.name = "a", .isChosen = true}, {.name = "b"}});
    EXPECT_EQ(table->cell(0, 0), (Cell{.text = "Chosen"}));
    EXPECT_EQ(table->cell(1, 0), Cell{});
    EXPECT_EQ(table->plainText(0, 0), "Chosen");
    EXPECT_EQ(table->wholeTexts(0), std::vector<std::string>{"Chosen"});
    EXPECT_EQ(sorted(*table, columns[0], true), "ba");
    EXPECT_TRUE(savingsTable(columns, {{.name = "b"}})->wholeTexts(0).empty());
}

TEST(Table, LeavesAZeroBlankWhereItsColumnSaysSo) {
    const Columns<SavingsRow> columns{amountColumn(), sharesColumn()};
    const auto table = savingsTable(columns, {{.name = "a"}});
    EXPECT_EQ(table->cell(0, 0).text, "");
    EXPECT_EQ(table->plainText(0, 0), "");
    EXPECT_EQ(table->plainText(0, 1), "0");
}

TEST(Table, StartsAFieldWithWhatThePersonWouldType) {
    const Columns<SavingsRow> columns{nameColumn(), amountColumn(), sharesColumn()};
    const auto table = savingsTable(
        columns,
        {{.name = "=1 and\tmore", .amount = amount("-1234.5"), .shares = amount("1.234")}});
    EXPECT_EQ(table->typedText(0, 0), "=1 and\tmore");
    EXPECT_NE(table->plainText(0, 0), table->typedText(0, 0));
    // Each can be read back by a field, in every locale.
    for (const auto& [column, value] : {std::pair(1, "-1234.5"), std::pair(2, "1.234")}) {
        AmountEntry entry(AmountKind::number);
        entry.edit(table->typedText(0, static_cast<std::size_t>(column)));
        EXPECT_EQ(entry.explanation(), "");
        EXPECT_EQ(entry.value(), amount(value));
    }
}

/// An addition to the columns of a table: how long a name is, in another tone when it is long.
SavingsColumn lengthColumn() {
    return {.head = {.id = "length", .title = "Length", .isSortable = true},
            .value = SavingsColumn::Figures{[](const SavingsRow& row) {
                return Decimal(static_cast<std::int64_t>(row.name.size()));
            }},
            .dress = [](Cell& cell, const SavingsRow& row, const CellContext& /*context*/) {
                cell.tone = row.name.size() > 2 ? TextTone::warning : TextTone::primary;
            }};
}

TEST(Table, TakesAColumnAddedInOnePlaceEverywhere) {
    const LocaleForTest locale("en_CA");
    Columns<SavingsRow> columns{nameColumn()};
    columns.push_back(lengthColumn());
    const auto table =
        savingsTable(columns, {{.name = "bbb"}, {.name = "dd"}, {.name = "aaaa"}, {.name = "c"}});
    EXPECT_EQ(table->head(1).title, "Length");
    EXPECT_EQ(table->cell(0, 1), (Cell{.text = "3", .tone = TextTone::warning}));
    EXPECT_EQ(table->wholeTexts(1), (std::vector<std::string>{"0", "4"}));
    EXPECT_EQ(sorted(*table, columns[1], true), "cddbbbaaaa");
    EXPECT_EQ(clipboardText(*table, std::vector<std::size_t>{1, 2}), "dd\t2\naaaa\t4");
    EXPECT_NE(printedPage(*table, "Names").find("<th align=\"right\">Length</th>"),
              std::string::npos);
    EXPECT_NE(printedPage(*table, "Names").find("<tr><td>dd</td><td align=\"right\">2</td></tr>"),
              std::string::npos);
}

TEST(Table, SortsByNothingThatIsNotSortable) {
    const Columns<SavingsRow> columns{nameColumn(), chosenColumn()};
    const auto table = savingsTable(columns, {{.name = "b", .isChosen = true}, {.name = "a"}});
    EXPECT_EQ(sorted(*table, columns[0], true), "ab");
    EXPECT_EQ(sorted(*table, columns[1], true), "ba");
}

TEST(Table, GivesItsFiguresTheRoomOfTheWidestOnesOfAllRows) {
    const LocaleForTest locale("en_CA");
    const Columns<SavingsRow> columns{nameColumn(), amountColumn(), dayColumn()};
    const auto all = std::make_shared<const std::vector<SavingsRow>>(std::vector<SavingsRow>{
        {.amount = amount("-20")}, {.amount = amount("5")}, {.amount = amount("1300")}});
    const Table<SavingsRow> table(columns, {&all->at(1)}, all, reachesOf<SavingsRow>(columns, *all),
                                  {"CAD", Calendar::utc()});
    EXPECT_EQ(table.rowCount(), 1U);
    EXPECT_TRUE(table.wholeTexts(0).empty());
    EXPECT_EQ(table.wholeTexts(1), (std::vector<std::string>{"-$20.00", "$1,300.00"}));
    EXPECT_EQ(table.wholeTexts(2).size(), 1U);
}

TEST(Table, CopiesPlainFormsAndNoTextThatEndsItsCellOrBecomesAFormula) {
    const Columns<SavingsRow> columns{chosenColumn(), nameColumn(), amountColumn(), sharesColumn(),
                                      dayColumn()};
    const auto table = savingsTable(columns, {{.name = "=Corner\tShop\r\nLtd",
                                               .amount = amount("-1234.50"),
                                               .shares = amount("0.1234"),
                                               .day = day(2026, 3, 5)}});
    EXPECT_EQ(clipboardText(*table, std::vector<std::size_t>{0}),
              "Not ticked\t'=Corner Shop Ltd\t-1234.5\t0.1234\t2026-03-05");
    EXPECT_EQ(clipboardText(*table, {}), "");
}

TEST(Table, PrintsTextsAsTheyStandAndTotalsInBold) {
    const Columns<SavingsRow> columns{chosenColumn(), nameColumn()};
    const auto table = savingsTable(
        columns, {{.name = "<b>A & B</b>"}, {.name = "Total", .kind = RowKind::total}});
    EXPECT_EQ(printedPage(*table, "R&D"),
              "<h2>R&amp;D</h2>\n"
              "<table width=\"100%\">\n"
              "<thead><tr><th align=\"left\">Chosen</th><th align=\"left\">Name</th></tr></thead>\n"
              "<tr><td>Not ticked</td><td>&lt;b&gt;A &amp; B&lt;/b&gt;</td></tr>\n"
              "<tr><td><b>Not ticked</b></td><td><b>Total</b></td></tr>\n"
              "</table>\n");
}

TEST(Table, FindsAColumnByItsID) {
    const Columns<SavingsRow> columns{nameColumn(), amountColumn()};
    const auto table = savingsTable(columns, {});
    EXPECT_EQ(columnNamed(*table, "amount"), 1U);
    EXPECT_FALSE(columnNamed(*table, "date"));
}

} // namespace
} // namespace oakfen
