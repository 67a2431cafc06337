#include "Oakfen/Widgets/Components/RowActionButton.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWindow>

#include "Tests/Oakfen/Widgets/Settle.h"

namespace oakfen {
namespace {

using testing::settle;

/// Two rows' buttons; a click on the upper one moves the lower one into its place.
class RowActions : public ::testing::Test {
protected:
    RowActions() {
        window.resize(200, 100);
        upper->setGeometry(0, 0, 100, 30);
        lower->setGeometry(0, 40, 100, 30);
        QObject::connect(upper, &QPushButton::clicked, upper, [this] {
            ++upperClicks;
            upper->hide();
            lower->move(0, 0);
        });
        QObject::connect(lower, &QPushButton::clicked, lower, [this] { ++lowerClicks; });
        window.show();
        window.activateWindow();
        settle();
    }

    /// A click on that button by the clock of the events.
    static void click(RowActionButton& button, quint64 time, QPoint at = {10, 10}) {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isPress = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, at, button.mapToGlobal(at), Qt::LeftButton,
                              isPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            event.setTimestamp(time);
            QCoreApplication::sendEvent(&button, &event);
        }
    }

    QWidget window;
    RowActionButton* upper = new RowActionButton(QStringLiteral("Enter"), {}, &window);
    RowActionButton* lower = new RowActionButton(QStringLiteral("Enter"), {}, &window);
    int upperClicks = 0;
    int lowerClicks = 0;
    /// Later than the events of any other test.
    quint64 now = 1'000'000'000'000;
};

TEST_F(RowActions, ADoubleClickActsOnOneRow) {
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, {10, 10});
    settle();
    EXPECT_EQ(upperClicks, 1);
    EXPECT_EQ(lower->pos(), QPoint(0, 0));
    EXPECT_EQ(lowerClicks, 0);
}

TEST_F(RowActions, AThirdQuickPressDoesNothingEither) {
    click(*upper, now);
    click(*lower, now + 100);
    EXPECT_EQ(lowerClicks, 0);
}

TEST_F(RowActions, ALaterClickInThePlaceActsOnTheNextRow) {
    click(*upper, now + 10'000);
    click(*lower, now + 10'000 + static_cast<quint64>(QApplication::doubleClickInterval()));
    EXPECT_EQ(lowerClicks, 1);
}

TEST_F(RowActions, AQuickClickElsewhereActs) {
    click(*upper, now + 20'000);
    click(*lower, now + 20'100, {60, 10});
    EXPECT_EQ(lowerClicks, 1);
}

TEST_F(RowActions, TheKeyboardIsNeverHeldBack) {
    QTest::mouseClick(upper, Qt::LeftButton, {}, {10, 10});
    QTest::keyClick(lower, Qt::Key_Space);
    QTest::keyClick(lower, Qt::Key_Space);
    EXPECT_EQ(lowerClicks, 2);
}

} // namespace
} // namespace oakfen
