#include "Oakfen/Widgets/Components/TableModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Oakfen/Views/SavingsTable.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;
using Rows = std::vector<SavingsRow>;

/// A table of many rows in a window that has room for few.
class TableWindow : public ::testing::Test {
protected:
    TableWindow() {
        for (int number = 0; number < 60; ++number) {
            rows.push_back({.name = "Row " + std::to_string(number)});
        }
        show();
        table.setTable(model, QStringLiteral("TableWindow"));
        table.resize(420, 220);
        table.show();
        table.activateWindow();
        table.setFocus();
        QApplication::processEvents();
    }

    void show() { model.show(savingsTable(columns, rows)); }

    [[nodiscard]] std::string cell(int row, int column, int role = Qt::DisplayRole) const {
        return utf8(model.index(row, column).data(role).toString());
    }
    [[nodiscard]] std::string shownNames() const {
        std::string names;
        for (int row = 0; row < model.rowCount(); ++row) {
            names += cell(row, 0) + "|";
        }
        return names;
    }
    [[nodiscard]] std::string namesOfRows() const {
        std::string names;
        for (const SavingsRow& row : rows) {
            names += row.name + "|";
        }
        return names;
    }
    [[nodiscard]] UUIDSet selected() const {
        UUIDSet ids;
        for (const QModelIndex& each : table.selectionModel()->selectedRows()) {
            ids.insert(model.id(each.row()));
        }
        return ids;
    }
    void select(std::initializer_list<int> places) {
        for (const int row : places) {
            table.selectionModel()->select(model.index(row, 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
    }

    const LocaleForTest locale{"en_CA"};
    Columns<SavingsRow> columns{nameColumn(), amountColumn()};
    Rows rows;
    TableModel model{savingsTable(columns, {})};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    LedgerTable table;
};

TEST_F(TableWindow, ShowsWhatItsColumnsDeclare) {
    rows[0].amount = amount("-4.5");
    show();
    EXPECT_EQ(cell(0, 1), "-$4.50");
    EXPECT_EQ(cell(1, 1), "");
    EXPECT_TRUE(model.index(0, 1).data(LedgerDelegate::FiguresRole).toBool());
    EXPECT_FALSE(model.index(0, 0).data(LedgerDelegate::FiguresRole).toBool());
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(),
              QStringLiteral("Name"));
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(),
              QStringLiteral("Click to sort"));
    EXPECT_EQ(table.columnWidth(1), 100);
}

TEST_F(TableWindow, DrawsAColumnThatIsAddedInOnePlace) {
    Columns<SavingsRow> more = columns;
    more.push_back(sharesColumn());
    rows[0].shares = amount("2.5");
    TableModel wider(savingsTable(more, rows));
    LedgerTable shown;
    shown.setTable(wider, QStringLiteral("WiderTable"));
    shown.resize(600, 220);
    shown.show();
    QApplication::processEvents();
    EXPECT_EQ(utf8(wider.index(0, 2).data().toString()), "2.500");
    EXPECT_EQ(shown.columnWidth(2), 100);
    // Where the figure stands, not all is the colour of the ground.
    const QImage drawn = shown.viewport()->grab(shown.visualRect(wider.index(0, 2))).toImage();
    const QRgb ground = drawn.pixel(1, 1);
    bool hasInk = false;
    for (int x = 0; x < drawn.width(); ++x) {
        hasInk = hasInk || drawn.pixel(x, drawn.height() / 2) != ground;
    }
    EXPECT_TRUE(hasInk);
}

TEST_F(TableWindow, KeepsSelectionFocusAndPlaceWhereRowsComeAndGo) {
    table.setCurrentIndex(model.index(7, 1));
    select({5, 20});
    table.verticalScrollBar()->setValue(90);
    const UUIDSet before = selected();
    ASSERT_EQ(before.size(), 3U);
    rows.insert(rows.begin() + 6, SavingsRow{.name = "New"});
    rows.erase(rows.begin());
    rows.back().name = "Changed";
    show();
    EXPECT_EQ(shownNames(), namesOfRows());
    EXPECT_EQ(selected(), before);
    EXPECT_EQ(table.currentIndex(), model.index(7, 1));
    EXPECT_EQ(cell(7, 0), "Row 7");
    EXPECT_EQ(table.verticalScrollBar()->value(), 90);
    EXPECT_TRUE(table.hasFocus());
}

TEST_F(TableWindow, KeepsTheSelectionWithItsRecordsWhenItIsSorted) {
    table.setCurrentIndex(model.index(7, 1));
    select({5});
    const UUIDSet before = selected();
    std::ranges::reverse(rows);
    show();
    EXPECT_EQ(shownNames(), namesOfRows());
    EXPECT_EQ(selected(), before);
    EXPECT_EQ(table.currentIndex(), model.index(52, 1));
    EXPECT_EQ(table.columnWidth(1), 100);
}

TEST_F(TableWindow, TellsWhichRowsChangedAndOfNothingElse) {
    std::vector<std::pair<int, int>> changed;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &model,
                     [&](const QModelIndex& first, const QModelIndex& last) {
                         changed.emplace_back(first.row(), last.row());
                     });
    show();
    EXPECT_TRUE(changed.empty());
    rows[3].name = "Changed";
    show();
    EXPECT_EQ(changed, (std::vector<std::pair<int, int>>{{3, 3}}));
    EXPECT_EQ(cell(3, 0), "Changed");
}

TEST_F(TableWindow, FollowsAnySeriesOfChanges) {
    const Rows all = rows;
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        RandomLibrary source(seed);
        table.setCurrentIndex(model.index(static_cast<int>(source.below(2)), 0));
        for (std::size_t edits = source.below(20); edits > 0; --edits) {
            const auto at =
                rows.begin() + static_cast<std::ptrdiff_t>(source.below(rows.size() + 1));
            if (source.chance(3) || at == rows.end()) {
                rows.insert(at, {.name = "New"});
            } else if (source.chance(3)) {
                std::ranges::rotate(rows, at);
            } else {
                rows.erase(at);
            }
        }
        show();
        ASSERT_EQ(shownNames(), namesOfRows());
        ASSERT_EQ(table.verticalHeader()->count(), static_cast<int>(rows.size()));
    }
}

TEST_F(TableWindow, MakesRoomForFiguresThatGrow) {
    const int usual = table.columnWidth(1);
    rows[0].amount = amount("-1234567890123.45");
    show();
    EXPECT_GT(table.columnWidth(1), usual);
}

TEST_F(TableWindow, HandsOnWhatIsTypedIntoAnEditableCell) {
    std::vector<std::string> typed;
    model.edited = [&](const UUID& id, std::size_t column, const std::string& text) {
        typed.push_back(rows[1].id == id && column == 1 ? text : "?");
    };
    rows[1].amount = amount("12.5");
    show();
    table.setCurrentIndex(model.index(1, 1));
    table.edit(model.index(1, 1));
    auto* field = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(utf8(field->text()), AmountEntry(amount("12.5")).text());
    field->setText(QStringLiteral("40"));
    QTest::keyClick(field, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(typed, std::vector<std::string>{"40"});
    EXPECT_EQ(cell(1, 1), "$12.50");
    EXPECT_FALSE(model.index(1, 0).flags().testFlag(Qt::ItemIsEditable));
}

TEST_F(TableWindow, HandsOnNothingFromAnEditorThatWasOnlyOpened) {
    int edits = 0;
    model.edited = [&](const UUID&, std::size_t, const std::string&) { ++edits; };
    rows[1].amount = amount("0.005");
    show();
    table.setCurrentIndex(model.index(1, 1));
    table.edit(model.index(1, 1));
    auto* field = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    QTest::keyClick(field, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(edits, 0);
}

TEST_F(TableWindow, PassesByTheHeadingOfASectionAndEditsNoTotal) {
    rows[1].kind = RowKind::section;
    rows[3].kind = RowKind::total;
    show();
    table.setCurrentIndex(model.index(0, 0));
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(table.currentIndex().row(), 2);
    EXPECT_TRUE(model.index(1, 0).data(LedgerDelegate::StrongRole).toBool());
    EXPECT_TRUE(model.index(3, 0).data(LedgerDelegate::StrongRole).toBool());
    EXPECT_FALSE(model.index(2, 0).data(LedgerDelegate::StrongRole).toBool());
    EXPECT_FALSE(model.index(3, 1).flags().testFlag(Qt::ItemIsEditable));
}

} // namespace
} // namespace oakfen
