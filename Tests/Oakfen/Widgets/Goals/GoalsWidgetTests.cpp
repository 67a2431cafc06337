#include "Oakfen/Widgets/Goals/GoalsWidget.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Goals/GoalCardWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "Tests/Oakfen/Widgets/AccessibleTree.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::settle;

class GoalsWindow : public ::testing::Test {
protected:
    GoalsWindow() {
        widget.resize(1030, 700);
        widget.show();
        widget.activateWindow();
        settle();
    }

    SavingsGoal add(const std::string& name) {
        SavingsGoal goal{.id = UUID::random(),
                         .name = name,
                         .symbolName = "car",
                         .target = amount("1000"),
                         .saved = amount("250")};
        store(goal);
        return goal;
    }
    void store(const SavingsGoal& goal) {
        test.store->mutate("Goal", [&](Library& library) { upsert(library, goal); });
        settle();
    }
    [[nodiscard]] const GoalCardWidget& card(std::size_t place) const {
        return *widget.cards().at(place);
    }
    [[nodiscard]] QRect place(std::size_t card) const {
        return {widget.cards().at(card)->mapTo(&widget, QPoint()), widget.cards().at(card)->size()};
    }

    testing::LocaleForTest locale{"en_CA"};
    testing::TestEnvironment test;
    GoalsWidget widget{*test};
};

TEST_F(GoalsWindow, OffersAGoalWhileThereIsNone) {
    auto* empty = widget.findChild<EmptyStateWidget*>();
    ASSERT_NE(empty, nullptr);
    EXPECT_TRUE(empty->isVisible());
    EXPECT_EQ(empty->accessibleName(), QStringLiteral("No Savings Goals"));
    QTest::mouseClick(empty->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Goal{}});
    add("Car");
    EXPECT_FALSE(empty->isVisible());
    EXPECT_TRUE(card(0).isVisible());
    test.undoManager->undo();
    settle();
    EXPECT_TRUE(empty->isVisible());
}

TEST_F(GoalsWindow, MakesAGoalFromItsTool) {
    QTest::mouseClick(widget.findChild<QToolButton*>(), Qt::LeftButton);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Goal{}});
}

TEST_F(GoalsWindow, OpensTheSheetsOfACard) {
    add("House");
    const SavingsGoal car = add("Car");
    QTest::mouseClick(card(1).editButton(), Qt::LeftButton);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Goal{car.id}});
    card(1).contributeButton()->setFocus();
    QTest::keyClick(card(1).contributeButton(), Qt::Key_Space);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Contribute{car.id}});
}

TEST_F(GoalsWindow, FlowsInAsManyColumnsAsThereIsRoomFor) {
    for (const char* name : {"A", "B", "C", "D"}) {
        add(name);
    }
    EXPECT_EQ(place(0).top(), place(2).top());
    EXPECT_GT(place(3).top(), place(0).bottom());
    EXPECT_EQ(place(3).left(), place(0).left());
    EXPECT_EQ(place(0).width(), place(1).width());
    EXPECT_EQ(place(2).right(), widget.viewport()->width() - 16 - 1);
    widget.resize(730, 700);
    settle();
    EXPECT_EQ(place(0).top(), place(1).top());
    EXPECT_GT(place(2).top(), place(0).bottom());
    widget.resize(400, 700);
    settle();
    EXPECT_GT(place(1).top(), place(0).bottom());
    // All of them can be scrolled to.
    EXPECT_GE(widget.verticalScrollBar()->maximum() + widget.viewport()->height(),
              place(3).bottom());
}

TEST_F(GoalsWindow, CardsSideBySideAreEquallyHigh) {
    add("Without a day");
    SavingsGoal goal = add("With one");
    goal.targetDate = day(2027, 1, 1);
    store(goal);
    EXPECT_EQ(place(0).height(), place(1).height());
    EXPECT_EQ(card(0).contributeButton()->mapTo(&widget, QPoint()).y(),
              card(1).contributeButton()->mapTo(&widget, QPoint()).y());
}

TEST_F(GoalsWindow, IsWalkedThroughWithTabInTheOrderOfTheDocument) {
    add("A");
    add("B");
    std::vector<QWidget*> wanted{widget.findChild<QToolButton*>()};
    for (const GoalCardWidget* each : widget.cards()) {
        wanted.push_back(each->editButton());
        wanted.push_back(each->contributeButton());
    }
    EXPECT_EQ(testing::tabOrder(widget), wanted);
}

TEST_F(GoalsWindow, AnEditLeavesCardsAndKeyboardInPlace) {
    add("A");
    SavingsGoal second = add("B");
    const GoalCardWidget* before = widget.cards().at(1);
    before->contributeButton()->setFocus();
    second.saved = amount("999");
    store(second);
    EXPECT_EQ(widget.cards().at(1), before);
    EXPECT_TRUE(before->contributeButton()->hasFocus());
    EXPECT_EQ(before->card().saved.text, "$999.00");
}

TEST_F(GoalsWindow, ACardIsHeardAsOneSentence) {
    SavingsGoal goal = add("Trip");
    goal.targetDate = day(2026, 6, 20);
    store(goal);
    EXPECT_EQ(utf8(card(0).accessibleName()), "Trip, $250.00 of $1,000.00, 25%, Target Jun 2026, "
                                              "Save $250.00 a month to stay on track.");
    EXPECT_EQ(card(0).editButton()->accessibleName(), QStringLiteral("Edit Trip"));
    EXPECT_EQ(card(0).contributeButton()->accessibleName(), QStringLiteral("Contribute to Trip"));
}

TEST_F(GoalsWindow, ALongNameEndsInDotsAndFiguresDoNot) {
    SavingsGoal goal = add(std::string(200, 'W'));
    goal.target = amount("98765432109876");
    goal.saved = amount("12345678901234.56");
    store(goal);
    EXPECT_LE(place(0).right(), widget.viewport()->width());
    int figures = 0;
    for (const QWidget* each : card(0).findChildren<QWidget*>()) {
        if (const auto* figure = dynamic_cast<const MoneyLabel*>(each)) {
            EXPECT_GE(figure->width(), figure->sizeHint().width()) << figure->money().text;
            ++figures;
        }
    }
    EXPECT_EQ(figures, 3);
}

} // namespace
} // namespace oakfen
