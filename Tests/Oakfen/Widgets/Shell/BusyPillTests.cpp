#include "Oakfen/Widgets/Shell/BusyPill.h"

#include <QTimer>

#include "Oakfen/Widgets/Gate/GateWidget.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::settle;

class BusyPillTest : public testing::WindowTest {
protected:
    [[nodiscard]] BusyPill* pill() const { return window->findChild<BusyPill*>(); }
    /// Lets the time pass for which the pill holds back.
    void waitOutTheDelay() const {
        pill()->findChild<QTimer*>()->start(0);
        settle();
    }
    /// Which widget the eye meets there.
    [[nodiscard]] static bool liesOver(const QWidget* upper, const QWidget* lower) {
        const QObjectList& siblings = upper->parent()->children();
        return siblings.indexOf(upper) > siblings.indexOf(lower);
    }
};

TEST_F(BusyPillTest, ForgetsAnEndedWorkBeforeThePillShows) {
    test->appState->setBusyMessage("Reading March.csv…");
    EXPECT_EQ(shown<BusyPill>(), nullptr);
    test->appState->setBusyMessage(std::nullopt);
    settle();
    EXPECT_EQ(shown<BusyPill>(), nullptr);
}

TEST_F(BusyPillTest, ShowsTheMessageWhileTheWorkGoesOn) {
    test->appState->setBusyMessage("Reading March.csv…");
    waitOutTheDelay();
    ASSERT_EQ(shown<BusyPill>(), pill());
    EXPECT_EQ(pill()->accessibleName(), QStringLiteral("Reading March.csv…"));
    const int middle = pill()->parentWidget()->width() / 2;
    EXPECT_NEAR(pill()->geometry().center().x(), middle, 1);
    test->appState->setBusyMessage(std::nullopt);
    EXPECT_FALSE(pill()->isVisible());
}

TEST_F(BusyPillTest, StopsTurningOnceHoweverOftenItIsHidden) {
    static int warnings;
    warnings = 0;
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            warnings += text.contains(QStringLiteral("timer")) ? 1 : 0;
        });
    for (const bool isBeneathASheet : {false, true}) {
        if (isBeneathASheet) {
            test->appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
        }
        test->appState->setBusyMessage("Reading March.csv…");
        waitOutTheDelay();
        test->appState->setBusyMessage(std::nullopt);
        settle();
    }
    qInstallMessageHandler(before);
    EXPECT_EQ(warnings, 0);
}

TEST_F(BusyPillTest, LetsClicksThrough) {
    EXPECT_TRUE(pill()->testAttribute(Qt::WA_TransparentForMouseEvents));
    test->appState->setBusyMessage("Reading March.csv…");
    waitOutTheDelay();
    EXPECT_TRUE(sidebar()->isEnabled());
}

TEST_F(BusyPillTest, StaysBehindWhatCoversTheScreen) {
    test->authenticator.holdPrompt();
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    test->appState->setBusyMessage("Reading March.csv…");
    waitOutTheDelay();
    ASSERT_NE(shown<GateWidget>(), nullptr);
    EXPECT_TRUE(liesOver(shown<GateWidget>(), pill()));
}

TEST_F(BusyPillTest, StaysNarrowUnderALongName) {
    const QSize before = window->size();
    test->appState->setBusyMessage("Reading " + std::string(250, 'x') + ".csv…");
    waitOutTheDelay();
    EXPECT_EQ(window->size(), before);
    EXPECT_LT(pill()->width(), 600);
    EXPECT_TRUE(pill()->accessibleName().endsWith(QStringLiteral("xxx.csv…")));
}

} // namespace
} // namespace oakfen
