#include "Oakfen/Widgets/Charts/ChartWidget.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleTableInterface>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Charts/ChartTooltipFrame.h"
#include "Oakfen/Widgets/Charts/HorizontalBarsWidget.h"
#include "Oakfen/Widgets/Charts/PlotChartWidget.h"
#include "Oakfen/Widgets/Charts/RingChartWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Views/Charts/ChartSamples.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;

/// Bars that lead on, after a field that has the keyboard.
class ChartWidgetTest : public ::testing::Test {
protected:
    ChartWidgetTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(field);
        column->addWidget(chart);
        chart->setChart(content);
        chart->activated = [this](const ChartPoint& point) { activations.push_back(point); };
        window.resize(600, 300);
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        field->setFocus();
    }

    static PlotChart contentThatLeadsOn() {
        PlotChart result = barChart({Decimal(100), Decimal(200), Decimal(300)});
        result.leadsOn = true;
        return result;
    }

    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    [[nodiscard]] QPoint middleOf(const ChartPoint& point) const {
        return chart->placeOf(point).center().toPoint();
    }
    [[nodiscard]] ChartTooltipFrame* tooltip() const {
        return window.findChild<ChartTooltipFrame*>();
    }
    [[nodiscard]] QAccessibleInterface* accessible() const {
        return QAccessible::queryAccessibleInterface(chart);
    }

    LocaleForTest locale{"en_CA"};
    QWidget window;
    QLineEdit* field = new QLineEdit;
    PlotChartWidget* chart = new PlotChartWidget(100);
    PlotChart content = contentThatLeadsOn();
    std::vector<ChartPoint> activations;
};

TEST_F(ChartWidgetTest, tabLeadsToTheChartAndShowsTheFirstValue) {
    EXPECT_EQ(chart->shownPoint(), std::nullopt);
    press(Qt::Key_Tab);
    EXPECT_TRUE(chart->hasFocus());
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{0, 0}));
    ASSERT_NE(tooltip(), nullptr);
    EXPECT_TRUE(tooltip()->isVisible());
    EXPECT_EQ(tooltip()->tooltip().title, "Jan 2026");
}

TEST_F(ChartWidgetTest, arrowKeysGoAlongPlacesAndThroughSeries) {
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{1, 0}));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{1, 2}));
    press(Qt::Key_End);
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{2, 2}));
    press(Qt::Key_Up);
    press(Qt::Key_Home);
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{0, 1}));
    press(Qt::Key_Left);
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{0, 1}));
}

TEST_F(ChartWidgetTest, upAndDownAreLeftToThePageWhereThereIsOneSeries) {
    struct KeyCounter : QObject {
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            keys += event->type() == QEvent::KeyPress ? 1 : 0;
            return false;
        }
        int keys = 0;
    } passed;
    window.installEventFilter(&passed);
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    EXPECT_EQ(passed.keys, 0);
    chart->setChart(lineChart({Decimal(1), Decimal(2)}));
    press(Qt::Key_Down);
    EXPECT_EQ(passed.keys, 1);
}

TEST_F(ChartWidgetTest, returnActivatesTheValueOfTheKeyboard) {
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    EXPECT_EQ(activations, (std::vector<ChartPoint>{{1, 0}}));
}

TEST_F(ChartWidgetTest, aClickActivatesTheBarUnderThePointer) {
    QTest::mouseClick(chart, Qt::LeftButton, {}, middleOf({2, 1}));
    EXPECT_EQ(activations, (std::vector<ChartPoint>{{2, 1}}));
    EXPECT_EQ(chart->keyboardPoint(), (ChartPoint{2, 1}));
}

TEST_F(ChartWidgetTest, aPressThatIsLetGoElsewhereActivatesNothing) {
    QTest::mousePress(chart, Qt::LeftButton, {}, middleOf({2, 1}));
    QTest::mouseRelease(chart, Qt::LeftButton, {}, middleOf({0, 0}));
    EXPECT_TRUE(activations.empty());
}

TEST_F(ChartWidgetTest, nothingIsActivatedWhereTheChartDoesNotLeadOn) {
    content.leadsOn = false;
    chart->setChart(content);
    QTest::mouseClick(chart, Qt::LeftButton, {}, middleOf({2, 1}));
    press(Qt::Key_Return);
    EXPECT_TRUE(activations.empty());
}

TEST_F(ChartWidgetTest, thePointerShowsTheFiguresOfItsPlaceUntilItLeaves) {
    QTest::mouseMove(chart, middleOf({1, 1}));
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{1, 1}));
    ASSERT_NE(tooltip(), nullptr);
    EXPECT_TRUE(tooltip()->isVisible());
    EXPECT_EQ(tooltip()->tooltip(), chartTooltip(content, 1));
    EXPECT_EQ(chart->cursor().shape(), Qt::PointingHandCursor);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(chart, &leave);
    EXPECT_EQ(chart->shownPoint(), std::nullopt);
    EXPECT_FALSE(tooltip()->isVisible());
}

TEST_F(ChartWidgetTest, escapePutsTheTooltipAwayAndAnArrowKeyBringsItBack) {
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    press(Qt::Key_Escape);
    EXPECT_FALSE(tooltip()->isVisible());
    press(Qt::Key_Right);
    EXPECT_TRUE(tooltip()->isVisible());
    EXPECT_EQ(chart->shownPoint(), (ChartPoint{1, 0}));
}

TEST_F(ChartWidgetTest, theTooltipGoesWithTheKeyboardAndWithTheChart) {
    press(Qt::Key_Tab);
    field->setFocus();
    EXPECT_FALSE(tooltip()->isVisible());
    chart->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(tooltip()->isVisible());
    chart->hide();
    EXPECT_FALSE(tooltip()->isVisibleTo(&window));
}

TEST_F(ChartWidgetTest, aShorterContentKeepsTheKeyboardInside) {
    press(Qt::Key_Tab);
    press(Qt::Key_End);
    PlotChart shorter = barChart({Decimal(5)});
    chart->setChart(shorter);
    EXPECT_EQ(chart->keyboardPoint(), (ChartPoint{0, 0}));
    chart->setChart(barChart({}));
    EXPECT_EQ(chart->shownPoint(), std::nullopt);
    EXPECT_EQ(chart->focusPolicy(), Qt::NoFocus);
}

TEST_F(ChartWidgetTest, screenReadersFindATableOfTheValues) {
    const auto* all = accessible();
    ASSERT_NE(all, nullptr);
    EXPECT_EQ(all->role(), QAccessible::Table);
    EXPECT_EQ(utf8(all->text(QAccessible::Name)), "Income & Expense");
    EXPECT_EQ(utf8(all->text(QAccessible::Description)),
              "Income, Expenses and Net, Jan 2026 to Mar 2026.");
    auto* table = accessible()->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->columnCount(), 3);
    EXPECT_EQ(utf8(table->rowDescription(1)), "Feb 2026");
    EXPECT_EQ(utf8(table->columnDescription(1)), "Expenses");
    EXPECT_EQ(all->childCount(), 9);
    auto* cell = table->cellAt(1, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(utf8(cell->text(QAccessible::Name)), "Feb 2026, Expenses: $100.00");
    EXPECT_EQ(utf8(cell->text(QAccessible::Value)), "$100.00");
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(all->indexOfChild(cell), 4);
    EXPECT_EQ(table->cellAt(3, 0), nullptr);
    const QPoint middle = cell->rect().center();
    EXPECT_EQ(all->childAt(middle.x(), middle.y()), cell);
}

TEST_F(ChartWidgetTest, screenReadersCanActivateAValue) {
    auto* actions = accessible()->tableInterface()->cellAt(2, 1)->actionInterface();
    ASSERT_NE(actions, nullptr);
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(activations, (std::vector<ChartPoint>{{2, 1}}));
}

TEST_F(ChartWidgetTest, screenReadersFollowTheKeyboardAndTheContent) {
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    ASSERT_NE(accessible()->focusChild(), nullptr);
    EXPECT_EQ(utf8(accessible()->focusChild()->text(QAccessible::Name)),
              "Feb 2026, Income: $200.00");
    EXPECT_TRUE(accessible()->focusChild()->state().focused);
    chart->setChart(lineChart({Decimal(7), Decimal(8)}));
    auto* table = accessible()->tableInterface();
    EXPECT_EQ(accessible()->childCount(), 2);
    EXPECT_EQ(utf8(table->cellAt(1, 0)->text(QAccessible::Name)), "Feb 2026: $8.00");
    EXPECT_EQ(table->cellAt(1, 0)->actionInterface(), nullptr);
}

TEST_F(ChartWidgetTest, equalContentIsNotDrawnAgain) {
    struct PaintCounter : QObject {
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int paints = 0;
    } counter;
    QCoreApplication::processEvents();
    chart->installEventFilter(&counter);
    chart->setChart(content);
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.paints, 0);
    chart->setChart(barChart({Decimal(5)}));
    QCoreApplication::processEvents();
    EXPECT_GT(counter.paints, 0);
}

TEST_F(ChartWidgetTest, aChartMayGoWhileItsTooltipIsShown) {
    press(Qt::Key_Tab);
    ASSERT_TRUE(tooltip()->isVisible());
    delete chart;
    EXPECT_EQ(tooltip(), nullptr);
}

TEST(RingChartWidgetTest, upAndDownGoThroughTheSectors) {
    RingChartWidget ring(150);
    ring.setChart(ringChart({Decimal(3), Decimal(2), Decimal(1)}));
    ring.resize(450, 150);
    ring.show();
    QApplication::setActiveWindow(&ring);
    // The first key shows where one is.
    QTest::keyClick(&ring, Qt::Key_Home);
    QTest::keyClick(&ring, Qt::Key_Down);
    EXPECT_EQ(ring.shownPoint(), (ChartPoint{1, 0}));
    QTest::keyClick(&ring, Qt::Key_Up);
    EXPECT_EQ(ring.shownPoint(), (ChartPoint{0, 0}));
}

TEST(RingChartWidgetTest, aLineOfTheLegendMeansItsSector) {
    RingChartWidget ring(150);
    RingChart content = ringChart({Decimal(3), Decimal(2)});
    content.leadsOn = true;
    ring.setChart(content);
    ring.resize(450, 150);
    ring.show();
    std::vector<ChartPoint> activations;
    ring.activated = [&activations](const ChartPoint& point) { activations.push_back(point); };
    const ChartRect& row = ring.ringLayout().rows[1].whole;
    QTest::mouseClick(&ring, Qt::LeftButton, {},
                      QPointF(row.x + row.width / 2, row.y + row.height / 2).toPoint());
    EXPECT_EQ(activations, (std::vector<ChartPoint>{{1, 0}}));
}

TEST(RingChartWidgetTest, aNarrowRingIsHigherByItsLegend) {
    RingChartWidget ring(150);
    ring.setChart(ringChart({Decimal(3), Decimal(2)}));
    EXPECT_EQ(ring.heightForWidth(450), 150);
    EXPECT_GT(ring.heightForWidth(160), 200);
}

TEST(HorizontalBarsWidgetTest, upAndDownGoThroughTheBarsAndReturnActivates) {
    HorizontalBarsWidget bars;
    HorizontalBarChart content = horizontalBarChart({Decimal(3), Decimal(2)});
    content.leadsOn = true;
    bars.setChart(content);
    bars.resize(450, 60);
    bars.show();
    QApplication::setActiveWindow(&bars);
    std::vector<ChartPoint> activations;
    bars.activated = [&activations](const ChartPoint& point) { activations.push_back(point); };
    QTest::keyClick(&bars, Qt::Key_Home);
    QTest::keyClick(&bars, Qt::Key_Down);
    QTest::keyClick(&bars, Qt::Key_Return);
    EXPECT_EQ(activations, (std::vector<ChartPoint>{{1, 0}}));
}

} // namespace
} // namespace oakfen
