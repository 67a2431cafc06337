#include "Oakfen/Widgets/Components/DateField.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QTest>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Testing/FixedClock.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::day;
using testing::LocaleForTest;

namespace {

/// A field on March 15th, 2026, nine o'clock, with the focus, in a window with one more field.
class DateFieldWidget : public ::testing::Test {
protected:
    DateFieldWidget() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(field);
        column->addWidget(other);
        field->setValue(day(2026, 3, 15, 9));
        window.show();
        window.activateWindow();
        QApplication::processEvents();
        field->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(field, key, modifiers);
    }
    void type(const char* text) { QTest::keyClicks(field, QString::fromUtf8(text)); }

    QWidget window;
    FixedClock clock{day(2026, 3, 20, 17)};
    DateField* field = new DateField(QStringLiteral("Date"), clock);
    QLineEdit* other = new QLineEdit;
};

} // namespace

TEST_F(DateFieldWidget, ShowsTheDayAndSelectsItWhenEntered) {
    EXPECT_EQ(field->text(), QStringLiteral("03/15/2026"));
    EXPECT_EQ(field->selectedText(), field->text());
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Date"));
}

TEST_F(DateFieldWidget, IsOneStopOfTheTabKey) {
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
    QTest::keyClick(other, Qt::Key_Backtab);
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(DateFieldWidget, TakesATypedDayAndShowsItInFullAfterwards) {
    int changes = 0;
    field->edited = [&changes] { ++changes; };
    type("4/5");
    EXPECT_EQ(field->value(), day(2026, 4, 5, 9));
    EXPECT_EQ(changes, 3);
    other->setFocus();
    EXPECT_EQ(field->text(), QStringLiteral("04/05/2026"));
}

TEST_F(DateFieldWidget, MovesByDaysAndMonthsWithTheKeyboard) {
    press(Qt::Key_Up);
    EXPECT_EQ(field->value(), day(2026, 3, 16, 9));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(field->value(), day(2026, 3, 14, 9));
    press(Qt::Key_PageUp);
    EXPECT_EQ(field->value(), day(2026, 4, 14, 9));
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    EXPECT_EQ(field->value(), day(2026, 2, 14, 9));
    EXPECT_EQ(field->text(), QStringLiteral("02/14/2026"));
}

TEST_F(DateFieldWidget, MovesByPlusAndMinusBeforeAnythingIsTyped) {
    type("++");
    EXPECT_EQ(field->value(), day(2026, 3, 17, 9));
    type("---");
    EXPECT_EQ(field->value(), day(2026, 3, 14, 9));
    type("2026-01-02");
    EXPECT_EQ(field->text(), QStringLiteral("2026-01-02"));
    EXPECT_EQ(field->value(), day(2026, 1, 2, 9));
}

TEST_F(DateFieldWidget, TakesWordsForDaysAndShowsTheDayAfterwards) {
    type("t");
    EXPECT_EQ(field->value(), day(2026, 3, 20, 9));
    EXPECT_EQ(field->text(), QStringLiteral("t"));
    other->setFocus();
    EXPECT_EQ(field->text(), QStringLiteral("03/20/2026"));
    field->setFocus(Qt::TabFocusReason);
    type("yesterday");
    other->setFocus();
    EXPECT_EQ(field->text(), QStringLiteral("03/19/2026"));
}

TEST_F(DateFieldWidget, TakesANumberOfDaysAfterOneSign) {
    type("+7");
    EXPECT_EQ(field->text(), QStringLiteral("+7"));
    EXPECT_EQ(field->value(), day(2026, 3, 22, 9));
    type("0");
    EXPECT_EQ(field->value(), day(2026, 5, 24, 9));
    other->setFocus();
    EXPECT_EQ(field->text(), QStringLiteral("05/24/2026"));
    field->setFocus(Qt::TabFocusReason);
    type("-3");
    EXPECT_EQ(field->value(), day(2026, 5, 21, 9));
}

TEST_F(DateFieldWidget, TakesANumberOfDaysHoweverItsDigitsAndSignsAreShifted) {
    press(Qt::Key_Shift);
    press(Qt::Key_Plus, Qt::ShiftModifier);
    press(Qt::Key_Shift);
    press(Qt::Key_7, Qt::ShiftModifier);
    EXPECT_EQ(field->text(), QStringLiteral("+7"));
}

TEST_F(DateFieldWidget, TakesADayOfTheMonthAfterSeveralSignsAndAfterLeaving) {
    type("++7");
    EXPECT_EQ(field->text(), QStringLiteral("7"));
    EXPECT_EQ(field->value(), day(2026, 3, 7, 9));
    field->setValue(day(2026, 3, 15, 9));
    field->selectAll();
    type("+");
    other->setFocus();
    field->setFocus(Qt::TabFocusReason);
    type("7");
    EXPECT_EQ(field->text(), QStringLiteral("7"));
}

TEST_F(DateFieldWidget, TellsOfEachMove) {
    int changes = 0;
    field->edited = [&changes] { ++changes; };
    press(Qt::Key_Up);
    EXPECT_EQ(changes, 1);
}

TEST_F(DateFieldWidget, SaysWhatItIsForAndHowItIsUsedWhateverItShows) {
    field->setPurpose(QStringLiteral("The day of the entry"));
    field->setValue(day(2026, 4, 1));
    EXPECT_TRUE(field->toolTip().startsWith(QStringLiteral("The day of the entry. Up and down")));
    EXPECT_EQ(field->accessibleDescription(), field->toolTip());
}

TEST_F(DateFieldWidget, MarksATextThatIsNoDateAndKeepsTheDay) {
    type("2/30");
    EXPECT_FALSE(field->isReadable());
    EXPECT_TRUE(field->property("invalid").toBool());
    EXPECT_EQ(field->value(), day(2026, 3, 15, 9));
    EXPECT_EQ(field->toolTip(), plainToolTip(QStringLiteral(
                                    "“2/30” isn’t a date. Enter one, for example 03/15/2026.")));
    press(Qt::Key_Up);
    EXPECT_TRUE(field->isReadable());
    EXPECT_EQ(field->value(), day(2026, 3, 16, 9));
}

TEST_F(DateFieldWidget, OpensACalendarAndTakesTheChosenDay) {
    press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(field->calendarSheet(), nullptr);
    ASSERT_TRUE(field->calendarSheet()->isVisible());
    EXPECT_EQ(field->calendarSheet()->selectedDate(), QDate(2026, 3, 15));
    QWidget* days = field->calendarSheet()->focusProxy() != nullptr
                        ? field->calendarSheet()->focusProxy()
                        : field->calendarSheet();
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_FALSE(field->calendarSheet()->isVisible());
    EXPECT_EQ(field->value(), day(2026, 3, 16, 9));
    EXPECT_EQ(field->text(), QStringLiteral("03/16/2026"));
}

TEST_F(DateFieldWidget, LeavesTheDayWhenTheCalendarIsEscaped) {
    press(Qt::Key_F4);
    QCalendarWidget* sheet = field->calendarSheet();
    ASSERT_TRUE(sheet->isVisible());
    QWidget* days = sheet->focusProxy() != nullptr ? sheet->focusProxy() : sheet;
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Escape);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(field->value(), day(2026, 3, 15, 9));
}

TEST_F(DateFieldWidget, OpensACalendarOfTheLocaleThatItsDatesAreIn) {
    const LocaleForTest locale({.money = "en_CA", .dates = "de_DE", .sorting = "en_CA"});
    press(Qt::Key_F4);
    EXPECT_EQ(field->calendarSheet()->firstDayOfWeek(), Qt::Monday);
    EXPECT_EQ(field->calendarSheet()->locale().standaloneMonthName(3), QString::fromUtf8("März"));
}

TEST_F(DateFieldWidget, ShowsTheFirstAndTheLastYear) {
    field->setValue(oakfen::Date::distantPast());
    EXPECT_EQ(field->text(), QStringLiteral("01/01/1"));
    field->setValue(oakfen::Date::distantFuture());
    EXPECT_EQ(field->text(), QStringLiteral("01/01/4001"));
    field->openCalendar();
    EXPECT_EQ(field->calendarSheet()->selectedDate(), QDate(4001, 1, 1));
}

} // namespace oakfen
