#include "Oakfen/Widgets/Components/LedgerTable.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTest>
#include <QToolTip>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Tests/Oakfen/Views/SavingsTable.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;

/// Date 100, payee 200 (takes what is left, gives down to 80), category 150 (down to 50),
/// amount 90.
class LedgerTableWindow : public ::testing::Test {
protected:
    LedgerTableWindow() {
        for (int column = 0; column < model.columnCount(); ++column) {
            model.setItem(0, column, new QStandardItem(QStringLiteral("text")));
        }
        table.setModel(&model);
        // A key of its own for each test, since widths are kept.
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        table.setColumnWidths(QString::fromLatin1(test->name()), {100, 200, 150, 90}, 1,
                              {{1, 80}, {2, 50}});
        table.show();
    }

    void widen(int width) {
        table.resize(width, 200);
        QApplication::processEvents();
    }
    [[nodiscard]] QList<int> widths() const {
        QList<int> result;
        for (int column = 0; column < model.columnCount(); ++column) {
            result << table.columnWidth(column);
        }
        return result;
    }

    QStandardItemModel model{1, 4};
    LedgerTable table;
};

/// What a widget has painted since.
class PaintedRegion final : public QObject {
public:
    explicit PaintedRegion(QWidget& widget) { widget.installEventFilter(this); }

    QRegion region;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

TEST_F(LedgerTableWindow, PaintsTheRingOfTheCurrentRowAnewAsAWhole) {
    for (int row = 1; row < 3; ++row) {
        model.setItem(row, 2, new QStandardItem(QStringLiteral("text")));
    }
    widen(700);
    table.setCurrentIndex(model.index(0, 2));
    QApplication::processEvents();
    PaintedRegion painted(*table.viewport());
    table.selectionModel()->setCurrentIndex(model.index(1, 2), QItemSelectionModel::NoUpdate);
    QApplication::processEvents();
    for (const int row : {0, 1}) {
        const int middle = table.rowViewportPosition(row) + (table.rowHeight(row) / 2);
        EXPECT_TRUE(painted.region.contains(QPoint(2, middle))) << row;
        EXPECT_TRUE(painted.region.contains(QPoint(table.viewport()->width() - 3, middle))) << row;
    }
}

TEST_F(LedgerTableWindow, GivesOneColumnTheRoomThatIsLeft) {
    widen(700);
    EXPECT_EQ(widths(), QList<int>({100, 360, 150, 90}));
}

TEST_F(LedgerTableWindow, LetsTheYieldingColumnsShareWhatIsLacking) {
    widen(430);
    // 110 are lacking; of 220 to spare the second column has 120 and the third 100.
    EXPECT_EQ(widths(), QList<int>({100, 140, 100, 90}));
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
}

TEST_F(LedgerTableWindow, ScrollsOnlyWhenNothingCanYieldAnyMore) {
    widen(320);
    EXPECT_EQ(widths(), QList<int>({100, 80, 50, 90}));
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
    widen(300);
    EXPECT_EQ(widths(), QList<int>({100, 80, 50, 90}));
    EXPECT_TRUE(table.horizontalScrollBar()->isVisible());
}

TEST(LedgerTable, GivesFiguresTheRoomThatTheyNeedInANarrowWindowToo) {
    const LocaleForTest locale("en_CA");
    Columns<SavingsRow> columns{nameColumn(), amountColumn()};
    columns[0].head.least = 80;
    columns[1].head.width = 90;
    columns[1].head.least = 60;
    const auto figures = [&](std::string_view value) {
        return savingsTable(columns, {{.amount = amount(value)}});
    };
    TableModel model(figures("1"));
    LedgerTable table;
    table.setTable(model, QStringLiteral("GrowingFigures"));
    table.resize(160, 200);
    table.show();
    QApplication::processEvents();
    EXPECT_LT(table.columnWidth(1), 90);

    model.show(figures("-1234567890123.45"));
    const int room = table.columnWidth(1) - (2 * LedgerDelegate::margin);
    EXPECT_GE(room, figureWidth(table.font(), QStringLiteral("-$1,234,567,890,123.45")));
    table.horizontalHeader()->resizeSection(1, 40);
    EXPECT_EQ(table.columnWidth(1), room + (2 * LedgerDelegate::margin));

    model.show(figures("2"));
    EXPECT_LT(table.columnWidth(1), 90);
}

TEST_F(LedgerTableWindow, GoesBackToItsWidthsWhenThereIsRoomAgain) {
    widen(320);
    widen(540);
    EXPECT_EQ(widths(), QList<int>({100, 200, 150, 90}));
}

TEST_F(LedgerTableWindow, LeavesTheColumnThatIsDraggedAsItIs) {
    widen(430);
    table.horizontalHeader()->resizeSection(2, 130);
    EXPECT_EQ(table.columnWidth(2), 130);
    EXPECT_EQ(table.columnWidth(1), 110);
}

TEST_F(LedgerTableWindow, TellsTheWholeTextOfACellThatIsCut) {
    widen(430);
    const auto hover = [this](int column) {
        const QRect cell = table.visualRect(model.index(0, column));
        QHelpEvent event(QEvent::ToolTip, cell.center(),
                         table.viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(table.viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(hover(1), QString());
    model.item(0, 1)->setText(QStringLiteral("Harbour <b>Books</b> and Stationery, Limited"));
    EXPECT_EQ(hover(1),
              QStringLiteral("<qt>Harbour &lt;b&gt;Books&lt;/b&gt; and Stationery, Limited</qt>"));
    QToolTip::hideText();
}

TEST_F(LedgerTableWindow, TellsAnAmountThatHasNoRoomForItsDigits) {
    widen(430);
    model.item(0, 3)->setText(QStringLiteral("$9,876,543,210.00"));
    model.item(0, 3)->setData(true, LedgerDelegate::FiguresRole);
    const QRect cell = table.visualRect(model.index(0, 3));
    QHelpEvent event(QEvent::ToolTip, cell.center(), table.viewport()->mapToGlobal(cell.center()));
    QApplication::sendEvent(table.viewport(), &event);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("<qt>$9,876,543,210.00</qt>"));
    QToolTip::hideText();
}

TEST_F(LedgerTableWindow, MakesAColumnInWhichThereIsNothingNarrowerFirst) {
    model.setHeaderData(0, Qt::Horizontal, true, TableModel::EmptyRole);
    widen(540);
    EXPECT_EQ(widths(), QList<int>({100, 200, 150, 90}));
    widen(500);
    EXPECT_EQ(widths(), QList<int>({60, 200, 150, 90}));
    widen(430);
    // It has given 72 of 110; the rest comes from the two that yield.
    EXPECT_EQ(widths(), QList<int>({28, 180, 132, 90}));
    model.setHeaderData(0, Qt::Horizontal, false, TableModel::EmptyRole);
    EXPECT_EQ(widths(), QList<int>({100, 140, 100, 90}));
}

TEST_F(LedgerTableWindow, LeavesAnEmptyColumnTheWidthThatThePersonGaveIt) {
    model.setHeaderData(0, Qt::Horizontal, true, TableModel::EmptyRole);
    widen(540);
    table.horizontalHeader()->resizeSection(0, 70);
    widen(480);
    EXPECT_EQ(table.columnWidth(0), 70);
}

TEST_F(LedgerTableWindow, MovesTheEdgeOfTheColumnThatTakesWhatIsLeft) {
    widen(540);
    table.horizontalHeader()->resizeSection(1, 230);
    EXPECT_EQ(widths(), QList<int>({100, 230, 120, 90}));
    table.horizontalHeader()->resizeSection(1, 180);
    EXPECT_EQ(widths(), QList<int>({100, 180, 170, 90}));
    table.horizontalHeader()->resizeSection(1, 900);
    EXPECT_EQ(widths(), QList<int>({100, 300, 50, 90}));
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
    table.horizontalHeader()->resizeSection(1, 200);
    EXPECT_EQ(widths(), QList<int>({100, 200, 150, 90}));
}

TEST_F(LedgerTableWindow, TakesFromTheColumnsThatThePersonHasSizedLast) {
    widen(540);
    table.horizontalHeader()->resizeSection(2, 180);
    EXPECT_EQ(widths(), QList<int>({100, 170, 180, 90}));
    widen(480);
    EXPECT_EQ(widths(), QList<int>({100, 110, 180, 90}));
    widen(440);
    EXPECT_EQ(widths(), QList<int>({100, 80, 170, 90}));
}

TEST_F(LedgerTableWindow, RemembersTheEdgeOfTheColumnThatTakesWhatIsLeft) {
    const QString key = QStringLiteral("KeptEdge");
    {
        LedgerTable first;
        first.setModel(&model);
        first.setColumnWidths(key, {100, 200, 150, 90}, 1, {{1, 80}, {2, 50}});
        first.resize(540, 200);
        first.show();
        QApplication::processEvents();
        first.horizontalHeader()->resizeSection(1, 230);
    }
    LedgerTable second;
    second.setModel(&model);
    second.setColumnWidths(key, {100, 200, 150, 90}, 1, {{1, 80}, {2, 50}});
    second.resize(540, 200);
    second.show();
    QApplication::processEvents();
    EXPECT_EQ(second.columnWidth(1), 230);
    EXPECT_EQ(second.columnWidth(2), 120);
}

TEST_F(LedgerTableWindow, FitsAColumnToItsTextWithADoubleClick) {
    widen(900);
    model.item(0, 2)->setText(QStringLiteral("Harbour Books and Stationery, Limited"));
    QHeaderView* header = table.horizontalHeader();
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {},
                       QPoint(header->sectionViewportPosition(3) - 1, 5));
    const int text = table.fontMetrics().horizontalAdvance(model.item(0, 2)->text());
    EXPECT_EQ(table.columnWidth(2), text + (2 * LedgerDelegate::margin));
}

TEST_F(LedgerTableWindow, TellsTheWholeTextBeforeWhatTheModelAdds) {
    widen(430);
    model.item(0, 1)->setText(QStringLiteral("Harbour <b>Books</b> and Stationery, Limited"));
    model.item(0, 1)->setToolTip(QStringLiteral("<qt>a memo</qt>"));
    const QRect cell = table.visualRect(model.index(0, 1));
    QHelpEvent event(QEvent::ToolTip, cell.center(), table.viewport()->mapToGlobal(cell.center()));
    QApplication::sendEvent(table.viewport(), &event);
    EXPECT_EQ(QToolTip::text(),
              QStringLiteral("<qt>Harbour &lt;b&gt;Books&lt;/b&gt; and Stationery, Limited<br>"
                             "a memo</qt>"));
    QToolTip::hideText();
}

TEST_F(LedgerTableWindow, DrawsALineAboveTheRowThatBeginsSomethingElse) {
    for (int row = 1; row < 4; ++row) {
        model.setItem(row, 2, new QStandardItem(QStringLiteral("text")));
    }
    widen(700);
    const auto lineAbove = [this](int row) {
        return table.viewport()->grab().toImage().pixelColor(5, table.rowViewportPosition(row) - 2);
    };
    const QColor before = lineAbove(2);
    table.setDivider(2);
    EXPECT_NE(lineAbove(2), before);
    EXPECT_EQ(lineAbove(3), before);
    table.setDivider(std::nullopt);
    EXPECT_EQ(lineAbove(2), before);
}

} // namespace
} // namespace oakfen
