#include "Oakfen/Widgets/Shell/AlertPresenter.h"

#include <QDialog>
#include <QMessageBox>
#include <QTextEdit>
#include <cerrno>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Support/Text/Quotation.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::settle;
using testing::TestEnvironment;

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

TEST_F(AlertPresenterTest, KeepsThePlaceOfADamageBehindAButton) {
    writeOwnerOnly(test->files, "{\"accounts\":[", TestEnvironment::dataFile);
    test->store->retryLoading();
    settle();
    QMessageBox* box = shown<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->informativeText(),
              qt(*test->store->lastError() + "\n\nIt is kept as " +
                 oakfen::quoted(*test->store->lastErrorDetails().keptName) + "."));
    EXPECT_FALSE(box->informativeText().contains(QStringLiteral("byte")));
    EXPECT_TRUE(box->detailedText().contains(QStringLiteral("byte")));

    auto* text = box->findChild<QTextEdit*>();
    ASSERT_NE(text, nullptr);
    EXPECT_FALSE(text->isVisible());
    QAbstractButton* more = nullptr;
    for (QAbstractButton* each : box->buttons()) {
        more = box->buttonRole(each) == QMessageBox::ActionRole ? each : more;
    }
    ASSERT_NE(more, nullptr);
    EXPECT_TRUE(more->focusPolicy() & Qt::TabFocus);
    more->setFocus();
    QTest::keyClick(more, Qt::Key_Space);
    settle();
    EXPECT_TRUE(text->isVisible());
    EXPECT_TRUE(text->focusPolicy() & Qt::TabFocus);
    EXPECT_EQ(text->accessibleName(), QStringLiteral("Details"));
}

TEST_F(AlertPresenterTest, HasNothingBehindAButtonElsewhere) {
    test->appState->setAlertMessage("Something to know");
    settle();
    ASSERT_NE(shown<QMessageBox>(), nullptr);
    EXPECT_EQ(shown<QMessageBox>()->buttons().size(), 1);
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
