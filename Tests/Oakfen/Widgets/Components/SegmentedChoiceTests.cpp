#include "Oakfen/Widgets/Components/SegmentedChoice.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {
namespace {

/// A choice between two fields, and its label.
class SegmentedChoiceTest : public ::testing::Test {
protected:
    SegmentedChoiceTest() {
        auto* column = new QVBoxLayout(&window);
        for (QWidget* each : {static_cast<QWidget*>(before), static_cast<QWidget*>(label),
                              static_cast<QWidget*>(choice), static_cast<QWidget*>(after)}) {
            column->addWidget(each);
        }
        label->setBuddy(choice);
        choice->choose(1);
        choice->chosen = [this] { ++notices; };
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        before->setFocus();
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// The word that has the keyboard.
    [[nodiscard]] static std::string word() {
        const auto* button = qobject_cast<const QPushButton*>(QApplication::focusWidget());
        return button != nullptr ? utf8(button->text()) : "none";
    }

    QWidget window;
    QLineEdit* before = new QLineEdit;
    QLabel* label = new QLabel(qt("&Type"));
    SegmentedChoice* choice =
        new SegmentedChoice(qt("Type"), {qt("Payment"), qt("Deposit"), qt("Transfer")});
    QLineEdit* after = new QLineEdit;
    int notices = 0;
};

TEST_F(SegmentedChoiceTest, LetsTabComeToTheChosenWordOnly) {
    press(Qt::Key_Tab);
    EXPECT_EQ(word(), "Deposit");
    press(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(word(), "Deposit");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before->hasFocus());
}

TEST_F(SegmentedChoiceTest, ChoosesTheNextWordByAnArrowAtOnce) {
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    EXPECT_EQ(choice->choice(), 2);
    EXPECT_EQ(word(), "Transfer");
    EXPECT_EQ(notices, 1);
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    EXPECT_EQ(choice->choice(), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(choice->choice(), 1);
    EXPECT_EQ(word(), "Deposit");
    EXPECT_EQ(notices, 4);
}

TEST_F(SegmentedChoiceTest, StopsAtTheEnds) {
    choice->choose(2);
    after->setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(choice->choice(), 2);
    EXPECT_EQ(word(), "Transfer");
    EXPECT_EQ(notices, 0);
}

TEST_F(SegmentedChoiceTest, LetsTabComeBackToWhatTheArrowsChose) {
    press(Qt::Key_Tab);
    press(Qt::Key_Left);
    press(Qt::Key_Tab);
    ASSERT_TRUE(after->hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(word(), "Payment");
}

TEST_F(SegmentedChoiceTest, IsReachedByTheLetterOfItsLabel) {
    press(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(word(), "Deposit");
    EXPECT_EQ(choice->choice(), 1);
}

TEST_F(SegmentedChoiceTest, IsHeardAsAGroupOfRadioButtons) {
    QAccessibleInterface* group = QAccessible::queryAccessibleInterface(choice);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->text(QAccessible::Name), qt("Type"));
    ASSERT_EQ(group->childCount(), 3);
    for (int each = 0; each < 3; ++each) {
        EXPECT_EQ(group->child(each)->role(), QAccessible::RadioButton);
        EXPECT_EQ(group->child(each)->state().checked != 0, each == 1);
    }
}

} // namespace
} // namespace oakfen
