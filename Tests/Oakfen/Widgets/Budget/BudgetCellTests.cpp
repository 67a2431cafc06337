#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolTip>

#include "Tests/Oakfen/Widgets/Budget/BudgetWindowFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::settle;

/// An amount in the first table, whose lines are Food, Rent and Travel.
class BudgetCell : public testing::BudgetWindow {};

TEST_F(BudgetCell, IsEditedOnceItIsClicked) {
    EXPECT_FALSE(field()->isVisible());
    clickCell(1, "budget");
    EXPECT_EQ(edited(), "Rent");
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_EQ(field()->value(), amount("900"));
    EXPECT_EQ(field()->selectedText(), field()->text());
}

TEST_F(BudgetCell, IsEditedByAKeyAndByADigit) {
    table()->setFocus();
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return}) {
        table()->goTo(1);
        press(key);
        EXPECT_EQ(edited(), "Rent");
        EXPECT_EQ(field()->selectedText(), field()->text());
        press(Qt::Key_Escape);
    }
    table()->goTo(2);
    type(QStringLiteral("7"));
    EXPECT_EQ(edited(), "Travel");
    EXPECT_EQ(field()->text(), QStringLiteral("7"));
    type(QStringLiteral("*2"));
    press(Qt::Key_Return);
    EXPECT_EQ(planned(travel), amount("14"));
}

TEST_F(BudgetCell, FindsALineByItsNameWhileNothingIsEdited) {
    table()->setFocus();
    type(QStringLiteral("tr"));
    EXPECT_EQ(table()->currentIndex().row(), 2);
    EXPECT_EQ(edited(), "");
}

TEST_F(BudgetCell, IsEnteredByReturnWhichGoesDown) {
    clickCell(0, "budget");
    type(QStringLiteral("120"));
    press(Qt::Key_Return);
    EXPECT_EQ(planned(food), amount("120"));
    EXPECT_EQ(edited(), "Rent");
    EXPECT_EQ(field()->value(), amount("900"));
    EXPECT_EQ(field()->selectedText(), field()->text());
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "Food");
    EXPECT_EQ(test->undoManager->undoActionName(), "Change Budget");
    test->undoManager->undo();
    EXPECT_EQ(planned(food), amount("100"));
    EXPECT_FALSE(test->undoManager->canUndo());
}

TEST_F(BudgetCell, PlansNothingWhereNothingStands) {
    clickCell(0, "budget");
    press(Qt::Key_Backspace);
    EXPECT_FALSE(field()->property("invalid").toBool());
    press(Qt::Key_Return);
    EXPECT_EQ(planned(food), std::nullopt);
    test->undoManager->undo();
    EXPECT_EQ(planned(food), amount("100"));
}

TEST_F(BudgetCell, LeavesUndoToTheDocumentUntilSomethingIsTyped) {
    clickCell(0, "budget");
    type(QStringLiteral("120"));
    press(Qt::Key_Return);
    ASSERT_EQ(planned(food), amount("120"));
    QKeyEvent asks(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    asks.ignore();
    QApplication::sendEvent(field(), &asks);
    EXPECT_FALSE(asks.isAccepted());
    type(QStringLiteral("7"));
    QApplication::sendEvent(field(), &asks);
    EXPECT_TRUE(asks.isAccepted());
}

TEST_F(BudgetCell, IsLeftByReturnAtTheEnd) {
    clickCell(2, "budget");
    type(QStringLiteral("30"));
    press(Qt::Key_Return);
    EXPECT_EQ(planned(travel), amount("30"));
    EXPECT_EQ(edited(), "");
    EXPECT_TRUE(table()->hasFocus());
    EXPECT_EQ(table()->currentIndex().row(), 2);
}

TEST_F(BudgetCell, IsPassedByReturnAndArrowsWhereTwoCategoriesShareAnID) {
    test->store->mutate("Repeat", [this](Library& library) {
        Category again = rent;
        again.name = "Rent Again";
        library.categories.push_back(again);
    });
    settle();
    ASSERT_EQ(table()->model()->rowCount(), 4);
    clickCell(0, "budget");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down}) {
        press(key);
        EXPECT_EQ(edited(), "Rent");
        press(key);
        EXPECT_EQ(edited(), "Travel");
        press(Qt::Key_Up);
        EXPECT_EQ(edited(), "Rent");
        press(Qt::Key_Up);
        EXPECT_EQ(edited(), "Food");
    }
}

TEST_F(BudgetCell, IsEnteredByArrowsWhichMove) {
    clickCell(1, "budget");
    type(QStringLiteral("901"));
    press(Qt::Key_Up);
    EXPECT_EQ(planned(rent), amount("901"));
    EXPECT_EQ(edited(), "Food");
    press(Qt::Key_Up);
    EXPECT_EQ(edited(), "Food");
    type(QStringLiteral("101"));
    press(Qt::Key_Down);
    EXPECT_EQ(planned(food), amount("101"));
    EXPECT_EQ(edited(), "Rent");
}

TEST_F(BudgetCell, IsLeftByTabForTheNextOneInBothTablesAndThenForWhatComesAfter) {
    clickCell(1, "budget");
    press(Qt::Key_Tab);
    EXPECT_EQ(edited(), "Travel");
    press(Qt::Key_Tab);
    EXPECT_EQ(edited(), "Pay");
    EXPECT_TRUE(screen->income()->field()->hasFocus());
    type(QStringLiteral("2500"));
    press(Qt::Key_Tab);
    EXPECT_EQ(planned(pay), amount("2500"));
    EXPECT_EQ(edited(), "");
    EXPECT_FALSE(screen->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(BudgetCell, IsLeftByShiftTabForTheOneBefore) {
    ASSERT_TRUE(screen->income()->editEnd(true));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "Travel");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "Rent");
}

TEST_F(BudgetCell, IsTakenBackByEscape) {
    clickCell(1, "budget");
    type(QStringLiteral("12"));
    press(Qt::Key_Escape);
    EXPECT_EQ(planned(rent), amount("900"));
    EXPECT_EQ(edited(), "");
    EXPECT_TRUE(table()->hasFocus());
    EXPECT_EQ(table()->targetRow(), 1);
    clickCell(1, "budget");
    EXPECT_EQ(field()->value(), amount("900"));
}

TEST_F(BudgetCell, IsEnteredWhenTheKeyboardLeaves) {
    clickCell(1, "budget");
    type(QStringLiteral("950"));
    sidebar()->setFocus();
    settle();
    EXPECT_EQ(planned(rent), amount("950"));
    EXPECT_EQ(edited(), "");
}

TEST_F(BudgetCell, IsEnteredWhenAnotherOneIsClicked) {
    clickCell(0, "budget");
    type(QStringLiteral("95"));
    clickCell(2, "budget");
    EXPECT_EQ(planned(food), amount("95"));
    EXPECT_EQ(edited(), "Travel");
}

TEST_F(BudgetCell, IsEnteredWhenTheScreenChanges) {
    clickCell(0, "budget");
    type(QStringLiteral("95"));
    select(SidebarItem{});
    EXPECT_EQ(planned(food), amount("95"));
}

TEST_F(BudgetCell, IsEnteredBeforeACommandActs) {
    clickCell(0, "budget");
    type(QStringLiteral("95"));
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(planned(food), amount("95"));
    EXPECT_EQ(quitRequests, 1);
    EXPECT_EQ(edited(), "Food");
    type(QStringLiteral("0"));
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(planned(food), amount("950"));
    EXPECT_EQ(screen->view().month(), day(2026, 4, 1, 0));
}

TEST_F(BudgetCell, IsEnteredWhenTheWindowIsLeft) {
    clickCell(0, "budget");
    type(QStringLiteral("95"));
    QFocusEvent left(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(field(), &left);
    EXPECT_EQ(planned(food), amount("95"));
    EXPECT_EQ(edited(), "Food");
}

TEST_F(BudgetCell, TakesNoStepWhereNothingWasTyped) {
    clickCell(0, "budget");
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    sidebar()->setFocus();
    EXPECT_FALSE(test->undoManager->canUndo());
}

TEST_F(BudgetCell, KeepsATextThatCannotBeRead) {
    clickCell(0, "budget");
    type(QStringLiteral("12x"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Tab}) {
        press(key);
        EXPECT_EQ(edited(), "Food");
        EXPECT_EQ(field()->text(), QStringLiteral("12x"));
        EXPECT_TRUE(field()->property("invalid").toBool());
    }
    sidebar()->setFocus();
    settle();
    EXPECT_EQ(edited(), "Food");
    EXPECT_EQ(field()->text(), QStringLiteral("12x"));
    EXPECT_TRUE(field()->isVisible());
    EXPECT_EQ(planned(food), amount("100"));
    clickCell(2, "budget");
    EXPECT_EQ(edited(), "Food");
    EXPECT_TRUE(field()->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_EQ(edited(), "");
    clickCell(0, "budget");
    EXPECT_TRUE(field()->isReadable());
    EXPECT_EQ(field()->value(), amount("100"));
}

TEST_F(BudgetCell, KeepsATextThatCannotBeReadWhileItsLineIsNotShown) {
    enter(pay, day(2026, 2, 2), "1");
    test->store->mutate("Clear", [this](Library& library) { library.budget.erase(rent.id); });
    settle();
    clickCell(1, "budget");
    ASSERT_EQ(edited(), "Travel");
    type(QStringLiteral("12x"));
    screen->view().shift(-1);
    settle();
    EXPECT_FALSE(field()->isVisible());
    screen->view().shift(1);
    settle();
    EXPECT_EQ(edited(), "Travel");
    EXPECT_EQ(field()->text(), QStringLiteral("12x"));
}

TEST_F(BudgetCell, GoesOnWithTheRightLineWhenAnEmptyOneGoes) {
    clickCell(1, "budget");
    type(QStringLiteral("-5"));
    press(Qt::Key_Return);
    EXPECT_EQ(planned(rent), std::nullopt);
    EXPECT_EQ(table()->model()->rowCount(), 2);
    EXPECT_EQ(edited(), "Travel");
    EXPECT_EQ(field()->value(), Decimal());
    EXPECT_EQ(field()->geometry().center().y(),
              table()->visualRect(table()->model()->index(1, 0)).center().y());
}

TEST_F(BudgetCell, IsEmptiedByDelete) {
    table()->setFocus();
    table()->goTo(0);
    press(Qt::Key_Delete);
    EXPECT_EQ(planned(food), std::nullopt);
    test->undoManager->undo();
    EXPECT_EQ(planned(food), amount("100"));
}

TEST_F(BudgetCell, FollowsAnEditFromElsewhereUntilSomethingIsTyped) {
    clickCell(0, "budget");
    const auto change = [this](const char* text) {
        test->store->mutate("Edit",
                            [&](Library& library) { library.budget[food.id] = amount(text); });
        settle();
    };
    change("111");
    EXPECT_EQ(field()->value(), amount("111"));
    type(QStringLiteral("5"));
    change("112");
    EXPECT_EQ(field()->text(), QStringLiteral("5"));
}

TEST_F(BudgetCell, MovesNothingWhenEditingBeginsAndEnds) {
    const auto places = [this] {
        std::vector<QRect> result{table()->geometry()};
        for (int row = 0; row < 3; ++row) {
            for (int each = 0; each < 5; ++each) {
                result.push_back(table()->visualRect(table()->model()->index(row, each)));
            }
        }
        return result;
    };
    const auto before = places();
    const int scrolled = screen->verticalScrollBar()->value();
    clickCell(0, "budget");
    EXPECT_EQ(places(), before);
    EXPECT_TRUE(table()->visualRect(table()->model()->index(0, 1)).contains(field()->geometry()));
    press(Qt::Key_Escape);
    EXPECT_EQ(places(), before);
    EXPECT_EQ(screen->verticalScrollBar()->value(), scrolled);
}

TEST_F(BudgetCell, TellsTheWholeNameWhereEditingCutsItDown) {
    window->resize(980, 620);
    test->store->mutate("Rename", [this](Library& library) {
        rent.name = "Cottage by the Lake";
        upsert(library, rent);
    });
    for (int layout = 0; layout < 5; ++layout) {
        settle();
    }
    const auto tip = [this] {
        const QPoint point =
            table()->visualRect(table()->model()->index(0, column("category"))).center();
        QHelpEvent event(QEvent::ToolTip, point, table()->viewport()->mapToGlobal(point));
        QApplication::sendEvent(table()->viewport(), &event);
        const QString text = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        return text;
    };
    EXPECT_EQ(tip(), QString());
    clickCell(0, "budget");
    ASSERT_EQ(edited(), "Cottage by the Lake");
    EXPECT_TRUE(tip().contains(QStringLiteral("Cottage by the Lake")));
}

TEST_F(BudgetCell, TellsWhatWasSpentBefore) {
    clickCell(0, "budget");
    const std::vector<BudgetHint> hints = screen->view().hints(food.id);
    for (const BudgetHint& hint : hints) {
        EXPECT_TRUE(field()->toolTip().contains(qt(hint.caption + " " + hint.figure)));
        EXPECT_TRUE(field()->accessibleDescription().contains(qt(hint.figure)));
    }
    EXPECT_EQ(field()->accessibleName(), QStringLiteral("Budget of Food"));
}

} // namespace
} // namespace oakfen
