#include "Oakfen/Widgets/Bills/BillsWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "Oakfen/Widgets/Bills/DayHeading.h"
#include "Oakfen/Widgets/Bills/ReminderGrid.h"
#include "Oakfen/Widgets/Bills/SwitchButton.h"
#include "Oakfen/Widgets/Bills/UpcomingList.h"
#include "Oakfen/Widgets/Bills/WhatIfList.h"
#include "Oakfen/Widgets/Charts/PlotChartWidget.h"
#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::settle;
using Action = OccurrenceRow::Action;

class BillsScreen : public ::testing::Test {
protected:
    BillsScreen() {
        test.store->mutate("Add", [this](Library& library) { library.accounts = {everyday}; });
        test.undoManager->removeAllActions();
    }

    ScheduledTransaction add(std::string payee, std::string_view money, Date due,
                             Frequency frequency = Frequency::monthly) {
        ScheduledTransaction reminder{.id = UUID::random(),
                                      .payee = std::move(payee),
                                      .accountID = everyday.id,
                                      .amount = amount(money),
                                      .frequency = frequency,
                                      .nextDate = due};
        test.store->mutate("Add", [&](Library& library) { library.scheduled.push_back(reminder); });
        return reminder;
    }
    void open() {
        widget = std::make_unique<BillsWidget>(*test);
        widget->resize(1030, 790);
        widget->show();
        widget->activateWindow();
        settle();
    }
    [[nodiscard]] const std::vector<OccurrenceRow*>& rows() const {
        return widget->findChild<UpcomingList*>()->rows();
    }
    [[nodiscard]] QPushButton* button(std::size_t row, Action action) const {
        return rows().at(row)->button(action);
    }
    template <typename Widget>
    [[nodiscard]] Widget* named(const char* name) const {
        for (Widget* each : widget->findChildren<Widget*>()) {
            if (each->accessibleName() == QString::fromUtf8(name) && each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static std::string focusName() {
        const QWidget* at = QApplication::focusWidget();
        return at != nullptr ? at->accessibleName().toStdString() : "nowhere";
    }

    LocaleForTest locale{"en_CA"};
    testing::TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    std::unique_ptr<BillsWidget> widget;
};

TEST_F(BillsScreen, TellsEachOccurrenceInOneSentence) {
    add("Rent", "-100", day(2026, 3, 20));
    open();
    widget->view().setHorizonDays(60);
    ASSERT_EQ(rows().size(), 2U);
    EXPECT_EQ(rows()[0]->accessibleName(),
              QStringLiteral("Bill, Rent, Everyday · Uncategorized · Monthly, -$100.00"));
    EXPECT_EQ(
        rows()[1]->accessibleName(),
        QStringLiteral("Bill, Rent, Everyday · Uncategorized · Monthly, -$100.00, Scheduled"));
    EXPECT_NE(button(0, Action::enter), nullptr);
    EXPECT_EQ(button(1, Action::enter), nullptr);
}

TEST_F(BillsScreen, SaysOfAnOverdueDayInWordsThatItIsPast) {
    add("Rent", "-100", day(2026, 3, 12), Frequency::once);
    open();
    EXPECT_EQ(widget->findChild<DayHeading*>()->accessibleName(),
              QStringLiteral("Thursday, March 12, 3 days overdue"));
}

TEST_F(BillsScreen, EnteringGoesOnToTheNextRow) {
    add("A", "-1", day(2026, 3, 16), Frequency::once);
    add("B", "-1", day(2026, 3, 17));
    add("C", "-1", day(2026, 3, 18), Frequency::once);
    open();
    button(0, Action::enter)->setFocus();
    QTest::keyClick(button(0, Action::enter), Qt::Key_Space);
    settle();
    EXPECT_EQ(focusName(), "Enter B");
    EXPECT_EQ(test.library().transactions.size(), 1U);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Skip B");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    settle();
    EXPECT_EQ(focusName(), "Skip C");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    settle();
    EXPECT_EQ(rows().size(), 0U);
    EXPECT_EQ(focusName(), "New Reminder");
    EXPECT_EQ(test.library().transactions.size(), 1U);
}

TEST_F(BillsScreen, ComesByTabToTheButtonsAsTheyAreRead) {
    add("B", "-1", day(2026, 3, 17), Frequency::once);
    open();
    add("A", "-1", day(2026, 3, 16), Frequency::once);
    settle();
    widget->findChild<QToolButton*>()->setFocus();
    std::vector<std::string> places;
    for (int steps = 0; steps < 30; ++steps) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        places.push_back(focusName());
        if (focusName() == "Edit B") {
            break;
        }
    }
    std::string order;
    for (const std::string& each : places) {
        order += each + "|";
    }
    EXPECT_NE(order.find("Enter A|Skip A|Enter B|Skip B|Edit A|Edit B|"), std::string::npos)
        << order;
    EXPECT_LT(order.find("Account"), order.find("Enter A")) << order;
}

TEST_F(BillsScreen, KeepsTheWidgetsOfRowsThatStay) {
    add("A", "-1", day(2026, 3, 16), Frequency::once);
    add("B", "-1", day(2026, 3, 17), Frequency::once);
    open();
    OccurrenceRow* second = rows()[1];
    button(1, Action::skip)->setFocus();
    add("C", "-1", day(2026, 3, 15), Frequency::once);
    settle();
    EXPECT_EQ(rows()[2], second);
    EXPECT_EQ(focusName(), "Skip B");
    EXPECT_GT(second->y(), rows()[1]->y());
}

TEST_F(BillsScreen, OffersTheMenuOfAnOccurrence) {
    const ScheduledTransaction rent = add("Rent", "-100", day(2026, 3, 20));
    open();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(button(0, Action::enter), &request);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    menu->actions().at(1)->trigger();
    menu->close();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::EnterReminder{rent.id}));
}

TEST_F(BillsScreen, OpensAReminderFromTheListOfAll) {
    const ScheduledTransaction rent = add("Rent", "-100", day(2027, 3, 20));
    open();
    auto* grid = widget->findChild<ReminderGrid*>();
    ASSERT_EQ(grid->rows().size(), 1U);
    EXPECT_EQ(grid->rows()[0]->accessibleName(),
              QStringLiteral("Rent, Everyday, Monthly, next due 03/20/2027, -$100.00"));
    grid->rows()[0]->editButton()->click();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::Scheduled{.id = rent.id}));
}

TEST_F(BillsScreen, SaysWhatToDoWhereNothingIsDue) {
    open();
    EXPECT_NE(named<EmptyStateWidget>("No Upcoming Bills"), nullptr);
    EXPECT_FALSE(widget->findChild<ReminderGrid*>()->isVisible());
    add("Rent", "-100", day(2026, 3, 20));
    settle();
    EXPECT_EQ(named<EmptyStateWidget>("No Upcoming Bills"), nullptr);
    EXPECT_TRUE(widget->findChild<ReminderGrid*>()->isVisible());
}

TEST_F(BillsScreen, ChangesTheHorizonWithTheWordsAboveTheList) {
    add("Rent", "-100", day(2026, 3, 20));
    open();
    for (QPushButton* each : widget->findChildren<QPushButton*>()) {
        if (each->text() == QStringLiteral("90 Days")) {
            each->click();
        }
    }
    settle();
    EXPECT_EQ(rows().size(), 3U);
    EXPECT_EQ(widget->findChild<PlotChartWidget*>()->chart().places.size(), 91U);
}

TEST_F(BillsScreen, TriesAnEntryOutBesideThePlan) {
    const Library before = test.library();
    open();
    EXPECT_FALSE(widget->findChild<WhatIfList*>()->isVisible());
    widget->findChild<SwitchButton*>()->click();
    settle();
    EXPECT_TRUE(widget->findChild<WhatIfList*>()->isVisible());
    named<QPushButton>("Add Entry")->click();
    settle();
    EXPECT_EQ(focusName(), "Name");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Sofa"));
    auto* field = named<AmountField>("Amount");
    ASSERT_NE(field, nullptr);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("-700"));
    const auto& chart = widget->findChild<PlotChartWidget*>()->chart();
    ASSERT_EQ(chart.lines.size(), 2U);
    EXPECT_EQ(chart.lines[1].series.values[0].text, "-$700.00");
    QTest::keyClick(field, Qt::Key_Return);
    settle();
    EXPECT_EQ(focusName(), "Sofa, Mar 15, Once, -$700.00");
    named<QToolButton>("Remove Sofa")->click();
    settle();
    EXPECT_EQ(focusName(), "Add Entry");
    EXPECT_EQ(test.library(), before);
}

TEST_F(BillsScreen, FitsIntoTheSmallestWindowWithoutScrollingSideways) {
    add("A very long payee that has no room in so narrow a place, whatever one does with it",
        "-12345678.90", day(2026, 3, 16));
    open();
    widget->findChild<SwitchButton*>()->click();
    widget->resize(730, 590);
    settle();
    EXPECT_LE(widget->widget()->minimumSizeHint().width(), widget->viewport()->width());
}

TEST_F(BillsScreen, ShowsFortyWeeklyRemindersAtOnce) {
    test.store->mutate("Add", [this](Library& library) {
        for (int each = 0; each < 40; ++each) {
            library.scheduled.push_back({.id = UUID::random(),
                                         .payee = "Payee " + std::to_string(each),
                                         .accountID = everyday.id,
                                         .amount = amount("-12.50"),
                                         .frequency = Frequency::weekly,
                                         .nextDate = day(2026, 3, 15 + (each % 7))});
        }
    });
    open();
    EXPECT_EQ(rows().size(), 178U);
    EXPECT_EQ(named<QPushButton>("Show 1 More"), nullptr);
    const OccurrenceRow* second = rows()[1];
    widget->view().enter(rows().front()->content().reminderID);
    settle();
    EXPECT_EQ(rows().front(), second);
    EXPECT_EQ(rows().size(), 177U);
}

TEST_F(BillsScreen, ShowsTheRestOfManyRowsWhenAsked) {
    add("Gym", "-1", day(2016, 3, 16), Frequency::weekly);
    open();
    ASSERT_EQ(rows().size(), 200U);
    auto* more = named<QPushButton>("Show 200 More");
    ASSERT_NE(more, nullptr);
    QTest::mouseClick(more, Qt::LeftButton);
    settle();
    EXPECT_EQ(rows().size(), 400U);
    EXPECT_EQ(more->text(), QStringLiteral("Show 100 More"));
    more->setFocus();
    QTest::keyClick(more, Qt::Key_Space);
    settle();
    EXPECT_EQ(rows().size(), 500U);
    EXPECT_FALSE(more->isVisible());
    EXPECT_EQ(focusName(), "Skip Gym");
    for (std::size_t row = 1; row < rows().size(); ++row) {
        ASSERT_GT(rows()[row]->y(), rows()[row - 1]->y());
    }
}

TEST_F(BillsScreen, GoesOnByKeyboardToTheFirstOfTheRowsThatCameOnRequest) {
    add("Gym", "-1", day(2016, 3, 16), Frequency::weekly);
    add("Rent", "-1", day(2026, 3, 18), Frequency::once);
    open();
    for (int presses = 0; presses < 2; ++presses) {
        auto* more = named<QPushButton>("Show 200 More") != nullptr
                         ? named<QPushButton>("Show 200 More")
                         : named<QPushButton>("Show 101 More");
        ASSERT_NE(more, nullptr);
        more->setFocus();
        QTest::keyClick(more, Qt::Key_Space);
        settle();
    }
    EXPECT_EQ(focusName(), "Enter Rent");
    EXPECT_TRUE(QTest::qWaitFor([] {
        return !QApplication::focusWidget()->visibleRegion().isEmpty();
    })) << "is in sight";
}

TEST_F(BillsScreen, ComesByTabToTheRestAfterTheRows) {
    add("Gym", "-1", day(2016, 3, 16), Frequency::weekly);
    open();
    button(0, Action::skip)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Show 200 More");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focusName(), "Edit Gym");
}

TEST_F(BillsScreen, KeepsTheLinesInReadingOrderForScreenReaders) {
    add("B", "-1", day(2026, 3, 17));
    add("C", "-1", day(2026, 3, 18));
    open();
    add("A", "-1", day(2026, 3, 16));
    settle();
    widget->view().enter(rows()[1]->content().reminderID);
    widget->view().setHorizonDays(60);
    settle();
    int below = -1;
    for (const QObject* child : widget->findChild<UpcomingList*>()->children()) {
        const auto* line = qobject_cast<const QWidget*>(child);
        ASSERT_NE(line, nullptr);
        EXPECT_GT(line->y(), below);
        below = line->y();
    }
}

TEST_F(BillsScreen, ShowsARowForEachOfTwoRemindersWithOneID) {
    const ScheduledTransaction rent = add("Rent", "-1", day(2026, 3, 16), Frequency::once);
    open();
    ScheduledTransaction twin = rent;
    twin.payee = "Twin";
    test.store->mutate("Add", [&](Library& library) { library.scheduled.push_back(twin); });
    settle();
    ASSERT_EQ(rows().size(), 2U);
    EXPECT_NE(rows()[0], rows()[1]);
    EXPECT_NE(named<QPushButton>("Enter Rent"), nullptr);
    EXPECT_NE(named<QPushButton>("Enter Twin"), nullptr);
}

TEST_F(BillsScreen, EnteringAndSkippingAreTakenBackOneByOne) {
    add("A", "-1", day(2026, 3, 16), Frequency::once);
    add("B", "-1", day(2026, 3, 17));
    open();
    const Library before = test.library();
    test.undoManager->removeAllActions();
    button(0, Action::enter)->click();
    settle();
    EXPECT_EQ(test.undoManager->undoActionName(), "Enter A");
    const Library entered = test.library();
    button(0, Action::skip)->click();
    settle();
    EXPECT_EQ(test.undoManager->undoActionName(), "Skip B");
    test.undoManager->undo();
    settle();
    EXPECT_EQ(test.library(), entered);
    EXPECT_EQ(button(0, Action::enter)->accessibleName(), QStringLiteral("Enter B"));
    test.undoManager->undo();
    settle();
    EXPECT_EQ(test.library(), before);
    EXPECT_EQ(button(0, Action::enter)->accessibleName(), QStringLiteral("Enter A"));
}

TEST_F(BillsScreen, ADoubleClickEntersOneReminder) {
    add("A", "-1", day(2026, 3, 16), Frequency::once);
    add("B", "-1", day(2026, 3, 16), Frequency::once);
    open();
    const QPoint place = button(0, Action::enter)->mapTo(widget.get(), QPoint(5, 5));
    QTest::mouseDClick(widget->windowHandle(), Qt::LeftButton, {}, place);
    settle();
    ASSERT_EQ(test.library().transactions.size(), 1U);
    EXPECT_EQ(test.library().transactions.front().payee, "A");
    EXPECT_EQ(rows().size(), 1U);
}

TEST_F(BillsScreen, SaysWhatTheButtonForANewReminderIsFor) {
    open();
    EXPECT_EQ(named<QToolButton>("New Reminder")->toolTip(),
              QStringLiteral("Schedule a bill, paycheque or transfer"));
}

} // namespace
} // namespace oakfen
