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

} // namespace
} // namespace oakfen
