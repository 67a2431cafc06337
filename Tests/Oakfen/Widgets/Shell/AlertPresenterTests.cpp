#include "Oakfen/Widgets/Shell/AlertPresenter.h"

#include <QDialog>
#include <QMessageBox>
#include <cerrno>

#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::settle;

class AlertPresenterTest : public testing::WindowTest {};

TEST_F(AlertPresenterTest, ShowsAlertsOneAfterAnother) {
    test->appState->setAlertMessage("First <b>thing</b>");
    settle();
    QMessageBox* first = shown<QMessageBox>();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->text(), QStringLiteral("Oakfen"));
    EXPECT_EQ(first->informativeText(), QStringLiteral("First <b>thing</b>"));
    EXPECT_EQ(first->textFormat(), Qt::PlainText);

    // A newer text came while the first was being read.
    test->appState->setAlertMessage("Second thing");
    first->button(QMessageBox::Ok)->click();
    settle();
    QMessageBox* second = shown<QMessageBox>();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->informativeText(), QStringLiteral("Second thing"));
    QTest::keyClick(second, Qt::Key_Escape);
    settle();
    EXPECT_FALSE(test->appState->alertMessage());
    EXPECT_EQ(shown<QMessageBox>(), nullptr);
}

TEST_F(AlertPresenterTest, TellsOfASaveThatFailedUntilItIsDismissed) {
    test->files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    addAccount("Everyday");
    test->store->saveNow();
    settle();
    QMessageBox* box = shown<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), QStringLiteral("Problem with your data file"));
    EXPECT_TRUE(box->informativeText().startsWith(QStringLiteral("Couldn’t save: ")));
    box->button(QMessageBox::Ok)->click();
    settle();
    EXPECT_FALSE(test->store->lastError());
    EXPECT_EQ(shown<QMessageBox>(), nullptr);
}

TEST_F(AlertPresenterTest, KeepsAnAlertThatCameOverASheetWhenTheSheetGoes) {
    test->appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    settle();
    test->appState->setAlertMessage("Something to know");
    settle();
    ASSERT_NE(shown<QMessageBox>(), nullptr);
    test->appState->setSheet(std::nullopt);
    settle();
    QMessageBox* again = shown<QMessageBox>();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->informativeText(), QStringLiteral("Something to know"));
}

} // namespace
} // namespace oakfen
