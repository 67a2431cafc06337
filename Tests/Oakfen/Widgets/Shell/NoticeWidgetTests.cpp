#include "Oakfen/Widgets/Shell/NoticeWidget.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

class NoticeWidgetTest : public testing::WindowTest {
protected:
    void show(Notice notice) {
        test->appState->showNotice(std::move(notice));
        testing::settle();
    }
    [[nodiscard]] NoticeWidget* widget() const { return window->findChild<NoticeWidget*>(); }
    [[nodiscard]] QString text() const { return widget()->findChild<QLabel*>()->text(); }
    [[nodiscard]] bool goesByItself() const { return widget()->findChild<QTimer*>()->isActive(); }
};

TEST_F(NoticeWidgetTest, IsNotThereWithoutANotice) {
    EXPECT_FALSE(widget()->isVisible());
}

TEST_F(NoticeWidgetTest, ShowsItsTextAndGoesByItself) {
    show({.text = "Written again."});
    EXPECT_TRUE(widget()->isVisible());
    EXPECT_EQ(text(), QStringLiteral("Written again."));
    EXPECT_EQ(widget()->accessibleName(), QStringLiteral("Written again."));
    EXPECT_TRUE(goesByItself());
    EXPECT_EQ(button(QString()), nullptr);
}

TEST_F(NoticeWidgetTest, StaysWhileWhatItSaysIsStillSo) {
    show({.text = "Not saved.", .stays = true});
    EXPECT_FALSE(goesByItself());
}

TEST_F(NoticeWidgetTest, RunsItsActionOnceAndGoes) {
    int runs = 0;
    show(
        {.text = "Not saved.", .actionTitle = "Decide…", .action = [&] { ++runs; }, .stays = true});
    button(QStringLiteral("Decide…"))->click();
    testing::settle();
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(widget()->isVisible());
}

TEST_F(NoticeWidgetTest, KeepsTheNoticeThatItsActionShows) {
    show({.text = "One.", .actionTitle = "Next", .action = [this] {
              test->appState->showNotice({.text = "Two."});
          }});
    button(QStringLiteral("Next"))->click();
    testing::settle();
    EXPECT_TRUE(widget()->isVisible());
    EXPECT_EQ(text(), QStringLiteral("Two."));
}

TEST_F(NoticeWidgetTest, IsDismissedByItsButton) {
    show({.text = "One."});
    widget()->findChild<QToolButton*>()->click();
    testing::settle();
    EXPECT_FALSE(widget()->isVisible());
    EXPECT_FALSE(test->appState->notice());
}

TEST_F(NoticeWidgetTest, SaysNothingOfTheLedgerWhileTheScreenIsLocked) {
    show({.text = "Exported to “Everyday.qif”"});
    test->authenticator.holdPrompt();
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    testing::settle();
    EXPECT_FALSE(widget()->isVisible());
    show({.text = "3 transactions imported"});
    EXPECT_FALSE(widget()->isVisible());
    EXPECT_FALSE(goesByItself());
    test->appState->setUnlocked(true);
    testing::settle();
    EXPECT_TRUE(widget()->isVisible());
    EXPECT_EQ(text(), QStringLiteral("3 transactions imported"));
    EXPECT_TRUE(goesByItself());
}

TEST_F(NoticeWidgetTest, TellsOfWhatIsStillSoAlsoWhileTheScreenIsLocked) {
    test->authenticator.holdPrompt();
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    show({.text = "Not saved.", .stays = true});
    EXPECT_TRUE(widget()->isVisible());
}

TEST_F(NoticeWidgetTest, GoesWithEscapeAndGivesTheKeyboardBack) {
    window->activateWindow();
    sidebar()->setFocus();
    show({.text = "One.", .actionTitle = "Undo"});
    button(QStringLiteral("Undo"))->setFocus();
    QTest::keyClick(button(QStringLiteral("Undo")), Qt::Key_Escape);
    testing::settle();
    EXPECT_FALSE(test->appState->notice());
    EXPECT_TRUE(sidebar()->hasFocus());
}

TEST_F(NoticeWidgetTest, GivesTheKeyboardBackAfterItsAction) {
    window->activateWindow();
    sidebar()->setFocus();
    show({.text = "One.", .actionTitle = "Undo"});
    button(QStringLiteral("Undo"))->setFocus();
    QTest::keyClick(button(QStringLiteral("Undo")), Qt::Key_Space);
    testing::settle();
    EXPECT_FALSE(widget()->isVisible());
    EXPECT_TRUE(sidebar()->hasFocus());
}

TEST_F(NoticeWidgetTest, IsByEarWhatScreenReadersTellOfWhenItComes) {
    show({.text = "One."});
    const QAccessibleInterface* byEar = QAccessible::queryAccessibleInterface(widget());
    ASSERT_NE(byEar, nullptr);
    EXPECT_EQ(byEar->role(), QAccessible::Notification);
    EXPECT_EQ(byEar->text(QAccessible::Name), QStringLiteral("One."));
}

TEST_F(NoticeWidgetTest, WrapsALongTextInsideTheWindow) {
    std::string text;
    for (int word = 0; word < 60; ++word) {
        text += "word ";
    }
    show({.text = text});
    EXPECT_LT(widget()->width(), window->width());
    EXPECT_TRUE(
        window->rect().contains(QRect(widget()->mapTo(window.get(), QPoint()), widget()->size())));
}

} // namespace
} // namespace oakfen
