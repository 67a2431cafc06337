#include "Oakfen/Widgets/Dashboard/DashboardWidget.h"

#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "Oakfen/Widgets/Charts/PlotChartWidget.h"
#include "Oakfen/Widgets/Charts/RingChartWidget.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/MetricButton.h"
#include "Oakfen/Widgets/Components/StepButton.h"
#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Dashboard/DashboardGrid.h"
#include "Oakfen/Widgets/Dashboard/RowButton.h"
#include "Oakfen/Widgets/Lines/LinesPanel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeCategory;
using testing::makeTransaction;
using testing::settle;

/// The start screen of a small household in the window.
class DashboardWidgetTest : public testing::WindowTest {
protected:
    DashboardWidgetTest() {
        everyday = addAccount("Everyday");
        edit([this](Library& library) {
            library.categories = {food, fun};
            library.budget[food.id] = amount("100");
            add(library, "Market", "-120", food.id);
            add(library, "Cinema", "-30", fun.id);
            add(library, "Somebody", "-5", std::nullopt);
            for (int each = 1; each <= 3; ++each) {
                library.scheduled.push_back({.id = UUID::random(),
                                             .payee = "Bill " + std::to_string(each),
                                             .accountID = everyday.id,
                                             .amount = amount("-10"),
                                             .nextDate = day(2026, 3, 15 + each)});
            }
        });
        window->activateWindow();
        settle();
    }

    template <typename Change>
    void edit(Change change) {
        test->store->mutate("Edit", change);
        settle();
    }
    void add(Library& library, const std::string& payee, std::string_view text,
             std::optional<UUID> categoryID) const {
        Transaction entry = makeTransaction(everyday.id, day(2026, 3, 2), payee, text);
        entry.categoryID = categoryID;
        library.transactions.push_back(entry);
    }
    [[nodiscard]] DashboardWidget* dashboard() const { return shown<DashboardWidget>(); }
    [[nodiscard]] Card* card(const char* title) const {
        for (Card* each : dashboard()->findChildren<Card*>()) {
            if (each->accessibleName() == QString::fromUtf8(title)) {
                return each;
            }
        }
        return nullptr;
    }
    /// The rows of a card that lead somewhere, as they are spoken.
    [[nodiscard]] QList<RowButton*> rows(const char* title) const {
        QList<RowButton*> rows;
        for (RowButton* each : card(title)->findChildren<RowButton*>()) {
            if (each->isVisible()) {
                rows.append(each);
            }
        }
        return rows;
    }
    [[nodiscard]] QList<QPushButton*> enterButtons() const {
        QList<QPushButton*> buttons;
        for (QPushButton* each : card("Upcoming Bills & Income")->findChildren<QPushButton*>()) {
            if (each->text() == QStringLiteral("Enter") && each->isVisible()) {
                buttons.append(each);
            }
        }
        return buttons;
    }
    static void click(QWidget* widget) {
        QTest::mouseClick(widget, Qt::LeftButton);
        settle();
    }

    testing::LocaleForTest locale{"en_CA"};
    Account everyday;
    Category food = makeCategory("Food");
    Category fun = makeCategory("Fun");
};

TEST_F(DashboardWidgetTest, EntersABillByItsButtonAndTakesThatBack) {
    ASSERT_EQ(enterButtons().size(), 3);
    QPushButton* first = enterButtons()[0];
    EXPECT_EQ(first->toolTip(), QStringLiteral("Record this payment in the register"));
    EXPECT_EQ(first->accessibleName(), QStringLiteral("Enter Bill 1"));
    const Library before = test->library();
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Space);
    settle();
    EXPECT_EQ(test->library().transactions.size(), before.transactions.size() + 1);
    // The keyboard goes on with the bill that is the next now.
    EXPECT_EQ(QApplication::focusWidget(), first);
    EXPECT_EQ(first->accessibleName(), QStringLiteral("Enter Bill 2"));
    test->undoManager->undo();
    settle();
    EXPECT_EQ(test->library(), before);
    EXPECT_EQ(enterButtons().size(), 3);
}

TEST_F(DashboardWidgetTest, ShowsItsCardsInTheirOrderWithTheirNotes) {
    QStringList titles;
    for (const Card* each : dashboard()->findChildren<Card*>()) {
        titles.append(each->accessibleName());
    }
    EXPECT_EQ(titles.join(QLatin1Char('|')),
              QStringLiteral("Net Worth|Cash Flow|Spending by Category|Upcoming Bills & Income|"
                             "Budget|Alerts|Recent Transactions"));
    const auto texts = [this](const char* title) {
        QStringList result;
        for (const QLabel* each : card(title)->findChildren<QLabel*>()) {
            result.append(each->isVisible() ? each->text() : QString());
        }
        return result;
    };
    EXPECT_TRUE(texts("Net Worth").contains(QStringLiteral("12 months")));
    EXPECT_TRUE(texts("Cash Flow").contains(QStringLiteral("This month")));
    EXPECT_TRUE(texts("Alerts").contains(QStringLiteral("2")));
    EXPECT_TRUE(texts("Budget").contains(QStringLiteral("left")));
    const auto widgets = card("Net Worth")->findChildren<QWidget*>();
    EXPECT_TRUE(std::ranges::any_of(widgets, [](const QWidget* each) {
        return each->toolTip() == QStringLiteral("Change since last month end");
    }));
    edit([](Library& library) {
        library.scheduled = {};
        library.budget.clear();
        library.transactions = {};
    });
    EXPECT_TRUE(
        texts("Spending by Category").contains(QStringLiteral("No spending yet this month.")));
    EXPECT_TRUE(texts("Upcoming Bills & Income")
                    .contains(QStringLiteral("Nothing due in the next two weeks.")));
    EXPECT_TRUE(texts("Budget").contains(
        QStringLiteral("Set monthly targets in Budget to track spending.")));
    EXPECT_TRUE(texts("Alerts").contains(QStringLiteral("Everything looks good.")));
    EXPECT_TRUE(texts("Recent Transactions").contains(QStringLiteral("No transactions yet.")));
}

TEST_F(DashboardWidgetTest, UpAndDownLeadToTheSameButtonOfTheOtherRows) {
    const QList<QPushButton*> buttons = enterButtons();
    buttons[0]->setFocus();
    QTest::keyClick(buttons[0], Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), buttons[1]);
    QTest::keyClick(buttons[1], Qt::Key_Down);
    QTest::keyClick(buttons[2], Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), buttons[2]);
    QTest::keyClick(buttons[2], Qt::Key_Up);
    EXPECT_EQ(QApplication::focusWidget(), buttons[1]);
}

TEST_F(DashboardWidgetTest, LeadsToTheScreensBehindItsCards) {
    const std::vector<std::pair<QString, SidebarItem::Kind>> links{
        {QStringLiteral("Reports"), SidebarItem::Kind::reports},
        {QStringLiteral("See All"), SidebarItem::Kind::bills},
        {QStringLiteral("Open Budget"), SidebarItem::Kind::budget}};
    for (const auto& [title, kind] : links) {
        select(SidebarItem{});
        ASSERT_NE(button(title), nullptr) << utf8(title);
        click(button(title));
        EXPECT_EQ(test->appState->selection(), SidebarItem{kind}) << utf8(title);
    }
}

TEST_F(DashboardWidgetTest, AnAlertWithoutATargetLeadsNowhere) {
    const QList<RowButton*> alerts = rows("Alerts");
    ASSERT_EQ(alerts.size(), 2);
    EXPECT_EQ(alerts[0]->accessibleName(), QStringLiteral("Over budget: Food."));
    EXPECT_EQ(alerts[1]->accessibleName(), QStringLiteral("1 transaction needs a category."));
    EXPECT_EQ(alerts[1]->focusPolicy(), Qt::NoFocus);
    // The sign that a line leads on.
    const auto signs = [](const QWidget* alert) {
        return std::ranges::count_if(alert->findChildren<SymbolLabel*>(),
                                     [](const SymbolLabel* each) { return each->isVisible(); });
    };
    EXPECT_EQ(signs(alerts[0]), 2);
    EXPECT_EQ(signs(alerts[1]), 1);
    EXPECT_TRUE(alerts[0]->toolTip().contains(QStringLiteral("Over budget: Food.")));
    click(alerts[1]);
    EXPECT_EQ(test->appState->selection(), SidebarItem{});
    click(alerts[0]);
    EXPECT_EQ(test->appState->selection(), SidebarItem{SidebarItem::Kind::budget});
}

TEST_F(DashboardWidgetTest, ARecentEntryOpensInItsEditorByReturn) {
    const QList<RowButton*> recent = rows("Recent Transactions");
    ASSERT_EQ(recent.size(), 3);
    EXPECT_EQ(recent[0]->accessibleName(), QStringLiteral("Market, Mar 2 · Food, -$120.00"));
    recent[0]->setFocus();
    QTest::keyClick(recent[0], Qt::Key_Return);
    settle();
    EXPECT_EQ(test->appState->sheet(),
              ActiveSheet{ActiveSheet::EditTransaction{test->library().transactions[0].id}});
}

TEST_F(DashboardWidgetTest, ShowsTheEntriesBehindABudgetARingAndABar) {
    click(rows("Budget")[1]);
    ASSERT_NE(shown<LinesPanel>(), nullptr);
    EXPECT_EQ(shown<LinesPanel>()->view().content()->total.text, "$120.00");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(shown<LinesPanel>(), nullptr);

    dashboard()->findChild<RingChartWidget*>()->activate({.place = 1});
    settle();
    ASSERT_NE(shown<LinesPanel>(), nullptr);
    EXPECT_EQ(shown<LinesPanel>()->view().content()->total.text, "$30.00");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    settle();

    card("Cash Flow")->findChild<PlotChartWidget*>()->activate({.place = 2, .series = 1});
    settle();
    ASSERT_NE(shown<LinesPanel>(), nullptr);
    EXPECT_EQ(shown<LinesPanel>()->view().content()->total.text, "$155.00");
}

TEST_F(DashboardWidgetTest, ShowsWhatTheFiguresOfTheMonthAreMadeOf) {
    const auto figures = card("Cash Flow")->findChildren<MetricButton*>();
    ASSERT_EQ(figures.size(), 2);
    EXPECT_EQ(figures[1]->accessibleName(), QStringLiteral("Spending, $155.00"));
    figures[1]->setFocus();
    QTest::keyClick(figures[1], Qt::Key_Space);
    settle();
    ASSERT_NE(shown<LinesPanel>(), nullptr);
    EXPECT_EQ(shown<LinesPanel>()->view().content()->total.text, "$155.00");
}

TEST_F(DashboardWidgetTest, LeadsTabThroughTheCardsInTheirOrder) {
    QStringList order;
    const QList<Card*> cards = dashboard()->findChildren<Card*>();
    dashboard()->setFocus(Qt::OtherFocusReason);
    for (QWidget* place = QApplication::focusWidget(); dashboard()->isAncestorOf(place);
         place = QApplication::focusWidget()) {
        for (const Card* each : cards) {
            if (each->isAncestorOf(place) &&
                (order.isEmpty() || order.last() != each->accessibleName())) {
                order.append(each->accessibleName());
            }
        }
        QTest::keyClick(place, Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(QLatin1Char('|')),
              QStringLiteral("Net Worth|Cash Flow|Spending by Category|Upcoming Bills & Income|"
                             "Budget|Alerts|Recent Transactions"));
}

TEST_F(DashboardWidgetTest, BringsIntoSightWhatTheKeyboardComesTo) {
    window->resize(980, 650);
    settle();
    dashboard()->verticalScrollBar()->setValue(dashboard()->verticalScrollBar()->maximum());
    auto* chart = card("Net Worth")->findChild<PlotChartWidget*>();
    ASSERT_TRUE(chart->visibleRegion().isEmpty());
    sidebar()->setFocus();
    chart->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(chart->visibleRegion().boundingRect(), chart->rect());
}

TEST_F(DashboardWidgetTest, ComesUpWithoutATooltipOverItsCharts) {
    select(SidebarItem{SidebarItem::Kind::reports});
    sidebar()->setFocus();
    select(SidebarItem{});
    dashboard()->setFocus(Qt::OtherFocusReason);
    auto* chart = card("Net Worth")->findChild<PlotChartWidget*>();
    EXPECT_EQ(QApplication::focusWidget(), chart);
    EXPECT_FALSE(chart->shownPoint());
    QTest::keyClick(chart, Qt::Key_Right);
    EXPECT_TRUE(chart->shownPoint());
}

TEST_F(DashboardWidgetTest, DrawsNoChartOfAMonthWithoutMoney) {
    EXPECT_TRUE(card("Cash Flow")->findChild<PlotChartWidget*>()->isVisible());
    edit([](Library& library) { library.transactions = {}; });
    EXPECT_FALSE(card("Cash Flow")->findChild<PlotChartWidget*>()->isVisible());
}

TEST_F(DashboardWidgetTest, KeepsTheRowsOfCardsThatAnEditLeavesAlone) {
    const QList<RowButton*> before = rows("Budget");
    before[1]->setFocus();
    edit([](Library& library) { library.scheduled = {}; });
    EXPECT_EQ(rows("Budget"), before);
    EXPECT_EQ(QApplication::focusWidget(), before[1]);
    EXPECT_TRUE(enterButtons().isEmpty());
}

TEST_F(DashboardWidgetTest, FlowsFromOneColumnToThree) {
    EXPECT_EQ(DashboardGrid::columnCount(815), 1);
    EXPECT_EQ(DashboardGrid::columnCount(816), 2);
    EXPECT_EQ(DashboardGrid::columnCount(1231), 2);
    EXPECT_EQ(DashboardGrid::columnCount(1232), 3);
    EXPECT_EQ(DashboardGrid::columnCount(4000), 3);
    for (const int width : {980, 1280, 1720}) {
        window->resize(width, 900);
        settle();
        const QWidget* netWorth = card("Net Worth");
        const QWidget* cashFlow = card("Cash Flow");
        const bool isBeside = cashFlow->y() == netWorth->y();
        EXPECT_EQ(isBeside, width > 980);
        EXPECT_EQ(netWorth->width(), cashFlow->width());
        // What stands side by side ends together.
        const QWidget* alerts = card("Alerts");
        const QWidget* budget = card("Budget");
        EXPECT_EQ(alerts->geometry().bottom() == budget->geometry().bottom(), width > 980);
        EXPECT_EQ(dashboard()->horizontalScrollBar()->maximum(), 0) << width;
    }
}

TEST(DashboardOfNoAccounts, ShowsHowToBeginAndThenTheCards) {
    testing::TestEnvironment test;
    DashboardWidget dashboard(*test);
    dashboard.resize(1000, 700);
    dashboard.show();
    settle();
    ASSERT_NE(dashboard.findChild<EmptyStateWidget*>(), nullptr);
    EXPECT_TRUE(dashboard.findChildren<Card*>().isEmpty());
    test.store->mutate("New Account", [](Library& library) {
        library.accounts.push_back(testing::makeAccount("Everyday"));
    });
    settle();
    EXPECT_FALSE(dashboard.findChild<EmptyStateWidget*>()->isVisible());
    EXPECT_EQ(dashboard.findChildren<Card*>().size(), 7);
    EXPECT_EQ(dashboard.findChildren<StepButton*>().size(), 3);
    for (const StepButton* step : dashboard.findChildren<StepButton*>()) {
        EXPECT_TRUE(step->isVisible());
    }
    test.undoManager->undo();
    settle();
    EXPECT_TRUE(dashboard.findChild<EmptyStateWidget*>()->isVisible());
    for (const StepButton* step : dashboard.findChildren<StepButton*>()) {
        EXPECT_FALSE(step->isVisible());
    }
}

TEST(DashboardOfNoEntries, BeginsWithTheFirstStepsAndKeepsTheKeyboardThere) {
    testing::TestEnvironment test;
    test.store->mutate("New Account", [](Library& library) {
        library.accounts.push_back(testing::makeAccount("Everyday"));
    });
    DashboardWidget dashboard(*test);
    dashboard.resize(1000, 700);
    dashboard.show();
    dashboard.activateWindow();
    settle();
    dashboard.setFocus(Qt::OtherFocusReason);
    QWidget* first = QApplication::focusWidget();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->accessibleName(), QStringLiteral("Import a Statement"));
    QTest::keyClick(first, Qt::Key_Tab);
    QWidget* second = QApplication::focusWidget();
    EXPECT_EQ(second->accessibleName(), QStringLiteral("Go to Everyday"));
    test.clock.set(day(2026, 3, 15, 17));
    test.environment->dayChange.check();
    settle();
    EXPECT_EQ(QApplication::focusWidget(), second);
    test.store->mutate("Enter", [&](Library& library) {
        library.transactions.push_back(
            makeTransaction(library.accounts[0].id, day(2026, 3, 1), "Shop", "-1"));
    });
    settle();
    EXPECT_FALSE(second->isVisible());
}

} // namespace
} // namespace oakfen
