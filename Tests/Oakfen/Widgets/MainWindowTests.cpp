#include "Oakfen/Widgets/MainWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>
#include <cerrno>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/BusyPill.h"
#include "Oakfen/Widgets/DashboardWidget.h"
#include "Oakfen/Widgets/EmptyStateWidget.h"
#include "Oakfen/Widgets/GateWidget.h"
#include "Oakfen/Widgets/RegisterWidget.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::TestEnvironment;

/// Lets what was put off happen.
void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

class MainWindowTest : public ::testing::Test {
protected:
    MainWindowTest() : MainWindowTest(std::make_unique<TestEnvironment>()) {}
    explicit MainWindowTest(std::unique_ptr<TestEnvironment> environment)
        : test(std::move(environment)),
          window(std::make_unique<MainWindow>(**test, [this] { ++quitRequests; })) {
        window->show();
        settle();
    }

    Account addAccount(const std::string& name) {
        Account account = makeAccount(name);
        test->store->mutate("New Account", [&](Library& library) { upsert(library, account); });
        settle();
        return account;
    }
    [[nodiscard]] QAction* action(const QString& text) const {
        for (QAction* each : window->menuBar()->findChildren<QAction*>()) {
            if (each->text() == text) {
                return each;
            }
        }
        return nullptr;
    }
    template <typename Widget>
    [[nodiscard]] Widget* shown() const {
        for (Widget* each : window->findChildren<Widget*>()) {
            if (each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QPushButton* button(const QString& text, QWidget* within = nullptr) const {
        QWidget* root = within != nullptr ? within : window.get();
        for (QPushButton* each : root->findChildren<QPushButton*>()) {
            if (each->text() == text && each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QTreeWidget* sidebar() const {
        return window->findChild<QTreeWidget*>(QStringLiteral("SidebarList"));
    }
    [[nodiscard]] QTreeWidgetItem* line(const QString& title) const {
        const auto found = sidebar()->findItems(title, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.first();
    }
    void click(QTreeWidgetItem* item) const {
        QTest::mouseClick(sidebar()->viewport(), Qt::LeftButton, {},
                          sidebar()->visualItemRect(item).center());
        settle();
    }

    int quitRequests = 0;
    std::unique_ptr<TestEnvironment> test;
    std::unique_ptr<MainWindow> window;
};

TEST_F(MainWindowTest, HasItsTitleAndItsSmallestSize) {
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Oakfen"));
    EXPECT_GE(window->centralWidget()->minimumWidth(), 980);
    EXPECT_GE(window->centralWidget()->minimumHeight(), 620);
}

TEST_F(MainWindowTest, ShowsTheDashboardAndAddsTheFirstAccountFromThere) {
    EXPECT_NE(shown<DashboardWidget>(), nullptr);
    QPushButton* add = button(QStringLiteral("Add Account"));
    ASSERT_NE(add, nullptr);
    QTest::mouseClick(add, Qt::LeftButton);
    settle();
    EXPECT_EQ(test->appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
    QDialog* dialog = shown<QDialog>();
    ASSERT_NE(dialog, nullptr);
    QTest::keyClick(dialog, Qt::Key_Escape);
    settle();
    EXPECT_FALSE(test->appState->sheet());
    EXPECT_EQ(shown<QDialog>(), nullptr);
}

TEST_F(MainWindowTest, ReplacesOneSheetByAnother) {
    const Account account = addAccount("Everyday");
    test->appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    settle();
    test->appState->setSheet(ActiveSheet{ActiveSheet::EditAccount{account.id}});
    settle();
    EXPECT_EQ(test->appState->sheet(), ActiveSheet{ActiveSheet::EditAccount{account.id}});
    int dialogs = 0;
    for (const QDialog* each : window->findChildren<QDialog*>()) {
        dialogs += each->isVisible() ? 1 : 0;
    }
    EXPECT_EQ(dialogs, 1);
    test->appState->setSheet(std::nullopt);
    settle();
    EXPECT_EQ(shown<QDialog>(), nullptr);
}

TEST_F(MainWindowTest, LeavesNoSheetOpenThatHasNoScreen) {
    test->appState->setSheet(ActiveSheet{ActiveSheet::Reconcile{UUID::random()}});
    settle();
    EXPECT_FALSE(test->appState->sheet());
}

TEST_F(MainWindowTest, GoesWhereTheSidebarIsClicked) {
    const Account account = addAccount("Everyday");
    ASSERT_NE(line(QStringLiteral("Everyday")), nullptr);
    click(line(QStringLiteral("Everyday")));
    EXPECT_EQ(test->appState->selectedAccountID(), account.id);
    EXPECT_NE(shown<RegisterWidget>(), nullptr);
    EXPECT_EQ(shown<DashboardWidget>(), nullptr);

    click(line(QStringLiteral("Budget")));
    EXPECT_EQ(test->appState->selection(), SidebarItem{SidebarItem::Kind::budget});
    EXPECT_NE(shown<EmptyStateWidget>(), nullptr);
    EXPECT_EQ(shown<RegisterWidget>(), nullptr);
}

TEST_F(MainWindowTest, WalksTheSidebarByKeyboard) {
    const Account account = addAccount("Everyday");
    sidebar()->setFocus();
    for (int step = 0; step < 7; ++step) {
        QTest::keyClick(sidebar(), Qt::Key_Down);
    }
    // Six screens down, then the heading of the group, which is no screen.
    EXPECT_EQ(test->appState->selection(), SidebarItem{SidebarItem::Kind::categories});
    QTest::keyClick(sidebar(), Qt::Key_Return);
    EXPECT_FALSE(line(QStringLiteral("Banking"))->isExpanded());
    QTest::keyClick(sidebar(), Qt::Key_Return);
    QTest::keyClick(sidebar(), Qt::Key_Down);
    EXPECT_EQ(test->appState->selectedAccountID(), account.id);
}

TEST_F(MainWindowTest, KeepsAGroupFoldedWhenAnEditRebuildsTheList) {
    addAccount("Everyday");
    click(line(QStringLiteral("Banking")));
    EXPECT_FALSE(line(QStringLiteral("Banking"))->isExpanded());
    addAccount("Spare");
    EXPECT_NE(line(QStringLiteral("Spare")), nullptr);
    EXPECT_FALSE(line(QStringLiteral("Banking"))->isExpanded());
}

TEST_F(MainWindowTest, OpensAMenuOnTheRightButtonWithoutGoingThere) {
    addAccount("Everyday");
    const QPoint place = sidebar()->visualItemRect(line(QStringLiteral("Everyday"))).center();
    QTest::mousePress(sidebar()->viewport(), Qt::RightButton, {}, place);
    EXPECT_FALSE(test->appState->selectedAccountID());
    Q_EMIT sidebar()->customContextMenuRequested(place);
    settle();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 6); // a divider among them
    EXPECT_EQ(menu->actions().last()->text(), QStringLiteral("Delete Account…"));
    menu->actions().last()->trigger();
    menu->close();
    settle();
    EXPECT_TRUE(test->library().accounts.empty());
    EXPECT_EQ(line(QStringLiteral("Everyday")), nullptr);
}

TEST_F(MainWindowTest, ListsClosedAccountsFromTheAddMenu) {
    Account account = makeAccount("Old");
    account.isClosed = true;
    test->store->mutate("New Account", [&](Library& library) { upsert(library, account); });
    settle();
    EXPECT_EQ(line(QStringLiteral("Old")), nullptr);
    auto* add = window->findChild<QToolButton*>(QStringLiteral("AddButton"));
    ASSERT_NE(add, nullptr);
    add->menu()->popup({});
    add->menu()->actions().last()->trigger();
    add->menu()->close();
    settle();
    EXPECT_NE(line(QStringLiteral("Old")), nullptr);
}

TEST_F(MainWindowTest, ShowsNoAccountAfterUndoingTheOneThatIsShown) {
    const Account account = addAccount("Everyday");
    test->appState->setSelection(SidebarItem::account(account.id));
    settle();
    action(QStringLiteral("Undo New Account"))->trigger();
    settle();
    EXPECT_EQ(test->appState->selectedAccountID(), account.id);
    EmptyStateWidget* empty = shown<EmptyStateWidget>();
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty->accessibleName(), QStringLiteral("No Account Selected"));
    action(QStringLiteral("Redo New Account"))->trigger();
    settle();
    EXPECT_NE(shown<RegisterWidget>(), nullptr);
}

TEST_F(MainWindowTest, KeepsTheMenuInStepWithTheLedger) {
    QAction* import = action(QStringLiteral("Import Transactions…"));
    ASSERT_NE(import, nullptr);
    EXPECT_FALSE(import->isEnabled());
    EXPECT_EQ(import->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+I")));
    addAccount("Everyday");
    EXPECT_TRUE(import->isEnabled());
}

TEST_F(MainWindowTest, TakesTheAmpersandOfATitleToTheLetter) {
    EXPECT_NE(action(QStringLiteral("Bills && Income")), nullptr);
}

TEST_F(MainWindowTest, SendsEditCommandsToTheFieldWithTheFocus) {
    QLineEdit field(window.get());
    field.setText(QStringLiteral("groceries"));
    field.show();
    QApplication::setActiveWindow(window.get());
    field.setFocus();
    action(QStringLiteral("Select All"))->trigger();
    EXPECT_EQ(field.selectedText(), QStringLiteral("groceries"));
    action(QStringLiteral("Cut"))->trigger();
    EXPECT_TRUE(field.text().isEmpty());
}

TEST_F(MainWindowTest, HidesAndShowsTheSidebar) {
    EXPECT_TRUE(sidebar()->isVisible());
    action(QStringLiteral("Hide Sidebar"))->trigger();
    EXPECT_FALSE(sidebar()->isVisible());
    ASSERT_NE(action(QStringLiteral("Show Sidebar")), nullptr);
    action(QStringLiteral("Show Sidebar"))->trigger();
    EXPECT_TRUE(sidebar()->isVisible());
}

TEST_F(MainWindowTest, ShowsAlertsOneAfterAnother) {
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

TEST_F(MainWindowTest, TakesAStatementThatIsDroppedOnIt) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/home/ann/March.csv"))});
    writeOwnerOnly(test->files, "Date,Payee,Amount\n2026-03-01,Grocer,-12.34\n",
                   "/home/ann/March.csv");
    const auto enter = [&] {
        QDragEnterEvent event({10, 10}, Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(window.get(), &event);
        // Never a move, after which the other program would delete its file.
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    };
    EXPECT_FALSE(enter());
    addAccount("Everyday");
    ASSERT_TRUE(enter());
    QDropEvent drop({10, 10}, Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton,
                    Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    test->scheduler.runBackground();
    settle();
    ASSERT_NE(shown<QDialog>(), nullptr);
    EXPECT_EQ(shown<QDialog>()->windowTitle(), QStringLiteral("Import March.csv"));
    EXPECT_FALSE(enter());
}

TEST_F(MainWindowTest, TakesNoTextThatIsDroppedOnIt) {
    addAccount("Everyday");
    QMimeData text;
    text.setText(QStringLiteral("groceries"));
    QDragEnterEvent event({10, 10}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(window.get(), &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(MainWindowTest, AsksForQuittingWhenItIsClosed) {
    window->close();
    EXPECT_EQ(quitRequests, 1);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(MainWindowTest, ForgetsAnEndedWorkBeforeThePillShows) {
    test->appState->setBusyMessage("Reading March.csv…");
    EXPECT_EQ(shown<BusyPill>(), nullptr);
    test->appState->setBusyMessage(std::nullopt);
    settle();
    EXPECT_EQ(shown<BusyPill>(), nullptr);
}

class FirstStartTest : public MainWindowTest {
protected:
    FirstStartTest()
        : MainWindowTest(std::make_unique<TestEnvironment>(TestEnvironment::Unopened{})) {}
};

TEST_F(FirstStartTest, CoversTheMainScreenUntilAChoiceIsMade) {
    ASSERT_NE(shown<GateWidget>(), nullptr);
    EXPECT_FALSE(sidebar()->isEnabled());
    auto* currency = shown<QComboBox>();
    ASSERT_NE(currency, nullptr);
    currency->setCurrentIndex(currency->findData(QStringLiteral("EUR")));
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
    test->files.addFile(TestEnvironment::dataFile, encodeLibrary(emptyDocument("CAD")));
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
        isFailureTold |= label->isVisible() && label->text().contains(QStringLiteral("space"));
    }
    EXPECT_TRUE(isFailureTold);
}

} // namespace
} // namespace oakfen
