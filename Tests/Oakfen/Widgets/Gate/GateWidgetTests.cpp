#include "Oakfen/Widgets/Gate/GateWidget.h"

#include <QLabel>
#include <QLineEdit>
#include <QVariantAnimation>
#include <algorithm>
#include <cerrno>

#include "Oakfen/Widgets/Components/CrossFade.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/PickerList.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::settle;
using testing::TestEnvironment;

class FirstStartTest : public testing::WindowTest {
protected:
    FirstStartTest() : WindowTest(std::make_unique<TestEnvironment>(TestEnvironment::Unopened{})) {}
};

TEST_F(FirstStartTest, CoversTheMainScreenUntilAChoiceIsMade) {
    ASSERT_NE(shown<GateWidget>(), nullptr);
    EXPECT_FALSE(sidebar()->isEnabled());
    auto* currency = shown<PickerBox>();
    ASSERT_NE(currency, nullptr);
    QTest::mouseClick(currency->lineEdit(), Qt::LeftButton, {}, QPoint(10, 8));
    QTest::keyClicks(currency, QStringLiteral("eur"));
    QTest::keyClick(currency, Qt::Key_Return);
    QTest::mouseClick(button(QStringLiteral("Start Fresh")), Qt::LeftButton);
    settle();

    QPushButton* noPassword = button(QStringLiteral("Don’t Use a Password"));
    ASSERT_NE(noPassword, nullptr);
    EXPECT_FALSE(button(QStringLiteral("Continue"))->isEnabled());
    QTest::mouseClick(noPassword, Qt::LeftButton);
    settle();
    EXPECT_TRUE(test->store->accessState().isOpen());
    EXPECT_EQ(test->library().currencyCode, "EUR");
    EXPECT_EQ(shown<GateWidget>(), nullptr);
    EXPECT_TRUE(sidebar()->isEnabled());
    EXPECT_TRUE(sidebar()->hasFocus() || !window->isActiveWindow());
}

TEST_F(FirstStartTest, BeginsInNoCurrencyThatNobodyKnows) {
    auto* currency = shown<PickerBox>();
    QTest::mouseClick(currency->lineEdit(), Qt::LeftButton, {}, QPoint(10, 8));
    ASSERT_NE(currency->list(), nullptr);
    EXPECT_LT(currency->list()->height(), window->height() / 2 + 1);
    QTest::keyClicks(currency, QStringLiteral("shells"));
    for (const char* title : {"Start Fresh", "Explore Sample Data"}) {
        QTest::mouseClick(button(QString::fromUtf8(title)), Qt::LeftButton);
        settle();
        EXPECT_FALSE(test->store->accessState().isOpen());
        EXPECT_EQ(button(QStringLiteral("Don’t Use a Password")), nullptr);
        EXPECT_EQ(currency->currentText(), QStringLiteral("shells"));
    }
    const auto labels = window->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->isVisible() &&
               label->text().contains(QStringLiteral("“shells” isn’t in the list."));
    }));
}

TEST_F(FirstStartTest, ShowsASampleHousehold) {
    QTest::mouseClick(button(QStringLiteral("Explore Sample Data")), Qt::LeftButton);
    settle();
    QPushButton* noPassword = button(QStringLiteral("Don’t Use a Password"));
    ASSERT_NE(noPassword, nullptr);
    QTest::mouseClick(noPassword, Qt::LeftButton);
    settle();
    EXPECT_TRUE(test->store->accessState().isOpen());
    EXPECT_FALSE(test->library().accounts.empty());
    EXPECT_NE(line(qt(test->library().accounts.front().name)), nullptr);
}

TEST_F(FirstStartTest, AnswersToReturnAndEscape) {
    QWidget* panel = button(QStringLiteral("Start Fresh"))->parentWidget();
    QTest::keyClick(panel, Qt::Key_Return);
    settle();
    QPushButton* cancel = button(QStringLiteral("Cancel"));
    ASSERT_NE(cancel, nullptr);
    QTest::keyClick(cancel, Qt::Key_Escape);
    settle();
    EXPECT_NE(button(QStringLiteral("Start Fresh")), nullptr);
}

TEST_F(FirstStartTest, OffersToProtectAFileThatIsThereAlready) {
    test->files.addFile(TestEnvironment::dataFile, encodeLibrary(Library{.currencyCode = "CAD"}));
    test->store->retryLoading();
    settle();
    ASSERT_NE(button(QStringLiteral("Set Password")), nullptr);
    QTest::mouseClick(button(QStringLiteral("Cancel")), Qt::LeftButton);
    EXPECT_EQ(quitRequests, 1);
    test->files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    QTest::mouseClick(button(QStringLiteral("Don’t Use a Password")), Qt::LeftButton);
    settle();
    EXPECT_FALSE(test->store->accessState().isOpen());
    ASSERT_NE(shown<GateWidget>(), nullptr);
    bool isFailureTold = false;
    for (const QLabel* label : shown<GateWidget>()->findChildren<QLabel*>()) {
        isFailureTold |=
            label->isVisible() && label->text().contains(QStringLiteral("the disk is full"));
    }
    EXPECT_TRUE(isFailureTold);
}

TEST_F(FirstStartTest, LeavesAFileAsItWasWhenItsProtectionIsPutOff) {
    const std::string bytes = encodeLibrary(Library{.currencyCode = "EUR"});
    test->files.addFile(TestEnvironment::dataFile, bytes);
    test->store->retryLoading();
    settle();
    QPushButton* cancel = button(QStringLiteral("Cancel"));
    ASSERT_NE(cancel, nullptr);
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_EQ(quitRequests, 1);
    // As at quitting.
    test->scheduler.advance(1);
    test->store->saveNow();
    EXPECT_EQ(test->files.contents(TestEnvironment::dataFile), bytes);
    EXPECT_EQ(test->files.count(InMemoryFileSystem::Call::write), 0);
    EXPECT_FALSE(test->defaults.get(settings::dataFileUnencrypted));
}

TEST_F(FirstStartTest, TellsAFailureUnderTheFieldsAndAboveTheButtons) {
    test->files.addFile(TestEnvironment::dataFile, encodeLibrary(Library{.currencyCode = "CAD"}));
    test->store->retryLoading();
    test->files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    QTest::mouseClick(button(QStringLiteral("Don’t Use a Password")), Qt::LeftButton);
    settle();
    const auto place = [this](const QWidget* widget) {
        return QRect(widget->mapTo(window.get(), QPoint()), widget->size());
    };
    const QLabel* told = nullptr;
    for (const QLabel* label : shown<GateWidget>()->findChildren<QLabel*>()) {
        told = label->isVisible() && label->text().contains(QStringLiteral("the disk is full"))
                   ? label
                   : told;
    }
    ASSERT_NE(told, nullptr);
    const auto fields = shown<GateWidget>()->findChildren<QLineEdit*>();
    ASSERT_EQ(fields.size(), 2);
    for (const QLineEdit* field : fields) {
        EXPECT_GT(place(told).top(), place(field).bottom());
    }
    EXPECT_LT(place(told).bottom(), place(button(QStringLiteral("Set Password"))).top());
}

TEST_F(FirstStartTest, OffersToTryAgainBeforeStartingOver) {
    test->files.addFile(TestEnvironment::dataFile, "{}");
    test->files.failAll(InMemoryFileSystem::Call::open, EIO);
    test->store->retryLoading();
    settle();
    const QPushButton* again = button(QStringLiteral("Try Again"));
    const QPushButton* over = button(QStringLiteral("Start Over…"));
    ASSERT_NE(again, nullptr);
    ASSERT_NE(over, nullptr);
    EXPECT_EQ(again->y(), over->y());
    EXPECT_LT(again->geometry().right(), over->x());
    EXPECT_EQ(again->nextInFocusChain(), over);
}

class LockTest : public testing::WindowTest {
protected:
    void lock() {
        test->authenticator.holdPrompt();
        test->defaults.set(settings::requireAuthentication, true);
        test->appState->setUnlocked(false);
        settle();
    }
};

TEST_F(LockTest, CoversAndDisablesTheMainScreen) {
    lock();
    ASSERT_NE(shown<GateWidget>(), nullptr);
    EXPECT_FALSE(sidebar()->isEnabled());
    EXPECT_EQ(shown<GateWidget>()->size(), window->centralWidget()->size());
}

TEST_F(LockTest, AsksAsSoonAsItComesUpAndGivesTheScreenBackWhenUnlocked) {
    lock();
    EXPECT_EQ(test->authenticator.reasons, std::vector<std::string>{"unlock your financial data"});
    EXPECT_FALSE(sidebar()->isEnabled());
    test->authenticator.answer({.kind = AuthenticationResult::Kind::passed});
    settle();
    EXPECT_EQ(shown<GateWidget>(), nullptr);
    EXPECT_TRUE(sidebar()->isEnabled());
}

TEST_F(LockTest, StaysWithTheReasonAfterAFailureUntilItsButtonAsksAgain) {
    lock();
    test->authenticator.answer(
        {.kind = AuthenticationResult::Kind::failed, .error = "Nobody was recognised."});
    settle();
    const auto reason = [this]() -> const QLabel* {
        for (const QLabel* label : shown<GateWidget>()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text() == QStringLiteral("Nobody was recognised.")) {
                return label;
            }
        }
        return nullptr;
    };
    EXPECT_NE(reason(), nullptr);
    EXPECT_FALSE(sidebar()->isEnabled());
    QTest::mouseClick(button(QStringLiteral("Unlock")), Qt::LeftButton);
    settle();
    EXPECT_EQ(test->authenticator.reasons.size(), 2U);
    EXPECT_EQ(reason(), nullptr);
    test->authenticator.answer({.kind = AuthenticationResult::Kind::passed});
    settle();
    EXPECT_EQ(shown<GateWidget>(), nullptr);
}

TEST_F(LockTest, AsksForNothingWhenItIsGoneBeforeItCameUp) {
    test->authenticator.holdPrompt();
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    test->defaults.set(settings::requireAuthentication, false);
    settle();
    EXPECT_TRUE(test->authenticator.reasons.empty());
    EXPECT_EQ(shown<GateWidget>(), nullptr);
}

TEST_F(LockTest, OpensAtOnceOnAMachineWithoutAWayToAuthenticate) {
    test->defaults.set(settings::requireAuthentication, true);
    action(QStringLiteral("Lock Oakfen"))->trigger();
    EXPECT_NE(shown<GateWidget>(), nullptr);
    settle();
    EXPECT_EQ(shown<GateWidget>(), nullptr);
    EXPECT_TRUE(test->appState->isUnlocked());
    EXPECT_TRUE(sidebar()->isEnabled());
}

TEST_F(LockTest, IsThereFromTheStartAndAsksThen) {
    window.reset();
    test->authenticator.holdPrompt();
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    openWindow();
    EXPECT_NE(shown<GateWidget>(), nullptr);
    EXPECT_EQ(test->authenticator.reasons.size(), 1U);
}

TEST_F(LockTest, GoesAwayAsSoonAsTheSettingIsTurnedOff) {
    lock();
    test->defaults.set(settings::requireAuthentication, false);
    settle();
    EXPECT_EQ(shown<GateWidget>(), nullptr);
}

TEST_F(LockTest, FadesInAndOutWithoutHoldingAnybodyUp) {
    EXPECT_EQ(shown<CrossFade>(), nullptr);
    lock();
    ASSERT_NE(shown<CrossFade>(), nullptr);
    EXPECT_TRUE(shown<CrossFade>()->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(shown<CrossFade>()->size(), window->centralWidget()->size());
    auto* fade = shown<CrossFade>()->findChild<QVariantAnimation*>();
    EXPECT_EQ(fade->duration(), 250);
    fade->setCurrentTime(fade->duration());
    settle();
    EXPECT_EQ(shown<CrossFade>(), nullptr);
    EXPECT_NE(shown<GateWidget>(), nullptr);
    test->appState->setUnlocked(true);
    EXPECT_NE(shown<CrossFade>(), nullptr);
    EXPECT_EQ(shown<GateWidget>(), nullptr);
}

class GateBeforeLockTest : public testing::WindowTest {
protected:
    GateBeforeLockTest()
        : WindowTest(
              std::make_unique<testing::TestEnvironment>(testing::TestEnvironment::Unopened{})) {}
};

TEST_F(GateBeforeLockTest, FadesFromTheGateToTheLock) {
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    settle();
    ASSERT_NE(shown<GateWidget>(), nullptr);
    ASSERT_EQ(shown<CrossFade>(), nullptr);
    test->store->useNoPassword();
    EXPECT_NE(shown<GateWidget>(), nullptr);
    EXPECT_NE(shown<CrossFade>(), nullptr);
}

TEST_F(LockTest, ShowsTheMainScreenOnlyAsABlur) {
    const QImage before = window->centralWidget()->grab().toImage();
    lock();
    const QImage covered = shown<GateWidget>()->grab().toImage();
    ASSERT_EQ(covered.size(), before.size());
    // Where the sidebar lists its lines, neighbouring dots hardly differ any more.
    const auto roughness = [](const QImage& image) {
        int most = 0;
        for (int y = 60; y < 280; ++y) {
            for (int x = 20; x < 200; ++x) {
                most = std::max(most,
                                std::abs(qGray(image.pixel(x, y)) - qGray(image.pixel(x + 1, y))));
            }
        }
        return most;
    };
    EXPECT_GT(roughness(before), 40);
    EXPECT_LT(roughness(covered), 6);
}

TEST_F(LockTest, BlursTheMainScreenAsItIsNow) {
    lock();
    const QImage before = shown<GateWidget>()->grab().toImage();
    EXPECT_EQ(shown<GateWidget>()->grab().toImage(), before);
    addAccount("Everyday");
    EXPECT_NE(shown<GateWidget>()->grab().toImage(), before);
}

} // namespace
} // namespace oakfen
