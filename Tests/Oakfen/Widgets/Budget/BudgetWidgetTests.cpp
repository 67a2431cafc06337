#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QWheelEvent>

#include "Oakfen/FigureLines.h"
#include "Oakfen/Widgets/Components/MetricButton.h"
#include "Tests/Oakfen/Widgets/Budget/BudgetWindowFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeCategory;
using testing::settle;

class BudgetWidgetTest : public testing::BudgetWindow {
protected:
    BudgetWidgetTest() {
        lines =
            test->appState->linesWanted.observe([this](const FigureLines& each) { wanted = each; });
    }

    [[nodiscard]] QPushButton* named(const char* name) const {
        for (QPushButton* each : screen->findChildren<QPushButton*>()) {
            if (each->accessibleName() == QString::fromUtf8(name)) {
                return each;
            }
        }
        return nullptr;
    }
    void addCategories(int count) {
        test->store->mutate("Many", [&](Library& library) {
            for (int each = 0; each < count; ++each) {
                const Category category = makeCategory("Many " + std::to_string(each));
                upsert(library, category);
                library.budget[category.id] = Decimal(each + 1);
            }
        });
        // Once for each layout inside another.
        for (int layout = 0; layout < 5; ++layout) {
            settle();
        }
    }

    std::optional<FigureLines> wanted;
    Subscription lines;
};

TEST_F(BudgetWidgetTest, ShowsBothTablesInFullHeight) {
    addCategories(60);
    EXPECT_EQ(table()->model()->rowCount(), 63);
    EXPECT_EQ(table()->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(table()->horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(screen->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(screen->income()->table()->model()->rowCount(), 1);
}

TEST_F(BudgetWidgetTest, LeavesTheWheelOverATableToThePage) {
    addCategories(60);
    const QPointF place(50, 50);
    QWheelEvent turn(place, table()->viewport()->mapToGlobal(place), {}, QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(table()->viewport(), &turn);
    EXPECT_FALSE(turn.isAccepted());
}

TEST_F(BudgetWidgetTest, KeepsTheLineInSightThatTheKeyboardIsAt) {
    addCategories(60);
    const auto isSeen = [this](const QRect& place) {
        const QRect seen(screen->viewport()->mapToGlobal(QPoint()), screen->viewport()->size());
        return seen.contains(
            QRect(table()->viewport()->mapToGlobal(place.topLeft()), place.size()));
    };
    table()->setFocus();
    press(Qt::Key_End);
    EXPECT_TRUE(isSeen(table()->visualRect(table()->currentIndex())));
    press(Qt::Key_Home);
    press(Qt::Key_F2);
    for (int step = 0; step < 40; ++step) {
        press(Qt::Key_Down);
    }
    EXPECT_TRUE(isSeen(field()->geometry()));
}

TEST_F(BudgetWidgetTest, GivesTheColumnsOfBothTablesTheSameWidths) {
    enter(pay, day(2026, 3, 3), "123456789.01");
    for (int each = 0; each < 5; ++each) {
        EXPECT_EQ(table()->columnWidth(each), screen->income()->table()->columnWidth(each));
    }
}

TEST_F(BudgetWidgetTest, SaysSoWhereAMonthHasNothing) {
    test->store->mutate("Clear", [](Library& library) { library.budget.clear(); });
    screen->view().shift(-3);
    settle();
    int shownLabels = 0;
    for (const QLabel* each : screen->findChildren<QLabel*>()) {
        shownLabels +=
            each->isVisible() && each->text() == QStringLiteral("No activity this month.");
    }
    EXPECT_EQ(shownLabels, 2);
    EXPECT_EQ(table()->focusPolicy(), Qt::NoFocus);
    screen->view().showThisMonth();
    settle();
    EXPECT_EQ(table()->model()->rowCount(), 2);
    EXPECT_EQ(table()->focusPolicy(), Qt::StrongFocus);
}

TEST_F(BudgetWidgetTest, ShowsEveryCategoryOnRequest) {
    test->store->mutate("Add", [](Library& library) { upsert(library, makeCategory("Zoo")); });
    settle();
    EXPECT_EQ(table()->model()->rowCount(), 3);
    auto* box = screen->findChild<QCheckBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), QStringLiteral("Show All Categories"));
    box->click();
    settle();
    EXPECT_EQ(table()->model()->rowCount(), 4);
    box->click();
    settle();
    EXPECT_EQ(table()->model()->rowCount(), 3);
}

TEST_F(BudgetWidgetTest, GoesThroughTheMonthsByButtonsAndKeys) {
    QPushButton* thisMonth = button(QStringLiteral("This Month"));
    ASSERT_NE(thisMonth, nullptr);
    EXPECT_FALSE(thisMonth->isEnabled());
    named("Previous month")->click();
    EXPECT_EQ(screen->view().month(), day(2026, 2, 1, 0));
    EXPECT_TRUE(thisMonth->isEnabled());
    named("Next month")->click();
    named("Next month")->click();
    EXPECT_EQ(screen->view().month(), day(2026, 4, 1, 0));
    thisMonth->setFocus();
    thisMonth->click();
    EXPECT_EQ(screen->view().month(), day(2026, 3, 1, 0));
    EXPECT_FALSE(thisMonth->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), named("Next month"));
    table()->setFocus();
    press(Qt::Key_PageUp, Qt::ControlModifier);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(screen->view().month(), day(2026, 1, 1, 0));
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(screen->view().month(), day(2026, 2, 1, 0));
    EXPECT_TRUE(table()->hasFocus());
}

TEST_F(BudgetWidgetTest, KeepsItsButtonsInPlaceFromMonthToMonth) {
    const QPoint before = named("Next month")->pos();
    screen->view().shift(2);
    settle();
    EXPECT_EQ(named("Next month")->pos(), before);
    screen->view().shift(4);
    settle();
    EXPECT_EQ(named("Next month")->pos(), before);
}

TEST_F(BudgetWidgetTest, ShowsTheEntriesBehindALine) {
    clickCell(0, "actual");
    ASSERT_TRUE(wanted);
    EXPECT_EQ(wanted->title, "Food");
    EXPECT_EQ(sumOf(*wanted, test->index()), amount("40"));
}

TEST_F(BudgetWidgetTest, ShowsTheEntriesBehindALineByAKey) {
    table()->setFocus();
    table()->goTo(2);
    press(Qt::Key_Space);
    ASSERT_TRUE(wanted);
    EXPECT_EQ(wanted->title, "Travel");
}

TEST_F(BudgetWidgetTest, ShowsNoEntriesWhereThereAreNone) {
    clickCell(1, "actual");
    EXPECT_FALSE(wanted);
}

TEST_F(BudgetWidgetTest, ShowsTheEntriesBehindATotal) {
    const auto metrics = screen->findChildren<MetricButton*>();
    ASSERT_EQ(metrics.size(), 2);
    EXPECT_FALSE(metrics[0]->isEnabled());
    metrics[1]->click();
    ASSERT_TRUE(wanted);
    EXPECT_EQ(wanted->title, "Spending");
    EXPECT_EQ(sumOf(*wanted, test->index()), amount("65"));
}

TEST_F(BudgetWidgetTest, OffersWhatCanBeDoneWithALine) {
    Q_EMIT table()->customContextMenuRequested(
        table()->visualRect(table()->model()->index(0, 0)).center());
    settle();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    menu->actions()[1]->trigger();
    menu->close();
    settle();
    EXPECT_EQ(edited(), "Food");
}

TEST_F(BudgetWidgetTest, FillsInTheBudgetFromItsMenu) {
    enter(travel, day(2026, 2, 5), "-300");
    QMenu* menu = screen->autofillMenu();
    Q_EMIT menu->aboutToShow();
    ASSERT_EQ(menu->actions().size(), 4);
    menu->actions()[0]->trigger();
    EXPECT_EQ(planned(travel), amount("100"));
    Q_EMIT menu->aboutToShow();
    menu->actions()[3]->trigger();
    EXPECT_TRUE(test->library().budget.empty());
}

TEST_F(BudgetWidgetTest, TabFollowsTheOrderOfReading) {
    enter(pay, day(2026, 3, 3), "5");
    screen->view().shift(0);
    screen->findChild<QToolButton*>()->setFocus();
    std::vector<std::string> places;
    while (screen->isAncestorOf(QApplication::focusWidget()) && places.size() < 20) {
        const auto* focus = QApplication::focusWidget();
        const auto* button = qobject_cast<const QAbstractButton*>(focus);
        places.push_back(utf8(focus->accessibleName().isEmpty() && button != nullptr
                                  ? button->text()
                                  : focus->accessibleName().section(QLatin1Char(','), 0, 0)));
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(places,
              (std::vector<std::string>{"Auto-Fill", "Previous month", "Next month", "Actual",
                                        "Actual", "Show All Categories", "Spending", "Income"}));
    // Between the cards and the tables, flush with them on the right.
    const auto placeOf = [this](const QWidget* widget) {
        return QRect(widget->mapTo(screen->widget(), QPoint()), widget->size());
    };
    const QRect cards = placeOf(screen->findChild<MetricButton*>()->parentWidget()->parentWidget());
    const QRect box = placeOf(screen->findChild<QCheckBox*>());
    EXPECT_GT(box.top(), cards.bottom());
    EXPECT_LT(box.bottom(), placeOf(screen->spending()).top());
    EXPECT_EQ(box.right(), cards.right());
}

TEST_F(BudgetWidgetTest, ShowsAllOfItsFiguresInTheSmallestWindow) {
    enter(pay, day(2026, 3, 4), "1234567.89");
    const auto* totals = screen->findChild<MetricButton*>()->parentWidget()->parentWidget();
    const auto cards = totals->findChildren<QWidget*>(QStringLiteral("Card"));
    ASSERT_EQ(cards.size(), 3);
    for (const QSize size : {QSize(1280, 820), QSize(980, 620), QSize(1280, 820)}) {
        window->resize(size);
        for (int layout = 0; layout < 5; ++layout) {
            settle();
        }
        const bool isWide = size.width() > 1000;
        EXPECT_EQ(cards[2]->y() == cards[0]->y(), isWide);
        for (const QWidget* card : cards) {
            EXPECT_TRUE(totals->rect().contains(card->geometry()));
            EXPECT_GE(card->width(), card->minimumSizeHint().width());
        }
        EXPECT_EQ(totals->height(), cards[2]->geometry().bottom() + 1);
        EXPECT_EQ(screen->horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(table()->horizontalScrollBar()->maximum(), 0);
    }
}

} // namespace
} // namespace oakfen
