#include "Oakfen/Widgets/Shell/MainWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScreen>
#include <QUrl>

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Dashboard/DashboardWidget.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Oakfen/Widgets/Shell/SidebarDelegate.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::makeTransaction;
using testing::settle;

class MainWindowTest : public testing::WindowTest {
protected:
    /// Lets the time pass until then, of which the timers tell.
    void comeTo(Date date) {
        constexpr double longestWait = 3600;
        test->clock.set(date);
        test->scheduler.advance(longestWait);
        settle();
    }
};

TEST_F(MainWindowTest, HasItsTitleAndTheSmallestSizeThatTheScreenHasRoomFor) {
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Dashboard — Oakfen"));
    const QSize room = window->screen()->availableSize();
    ASSERT_LT(room.width(), 980);
    ASSERT_GT(room.height(), 700);
    EXPECT_EQ(window->centralWidget()->minimumSize(), QSize(room.width(), 620));
    EXPECT_LE(window->minimumSizeHint().height(), room.height());
}

TEST_F(MainWindowTest, IsCalledByTheScreenThatCanBeSeen) {
    Account account = addAccount("Everyday");
    test->appState->setSelection(SidebarItem::account(account.id));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Everyday — Oakfen"));
    account.name = "Daily";
    test->store->mutate("Edit Account", [&](Library& library) { upsert(library, account); });
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Daily — Oakfen"));
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Oakfen"));
    test->appState->setUnlocked(true);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Daily — Oakfen"));
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

TEST_F(MainWindowTest, KeepsALongPasteIntoASearchOnOneLine) {
    select(SidebarItem::account(addAccount("Everyday").id));
    QLineEdit* search = shown<RegisterWidget>()->searchField();
    QGuiApplication::clipboard()->setText(QStringLiteral("first line\nsecond line"));
    search->setFocus();
    search->paste();
    EXPECT_EQ(search->text(), QStringLiteral("first line second line"));
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

TEST_F(MainWindowTest, ShowsNoAccountOnceTheOneThatIsShownHasGone) {
    const Account account = addAccount("Everyday");
    test->appState->setSelection(SidebarItem::account(account.id));
    settle();
    test->store->mutate("Delete Account",
                        [&](Library& library) { deleteAccount(library, account.id); });
    settle();
    EXPECT_EQ(test->appState->selectedAccountID(), account.id);
    EmptyStateWidget* empty = shown<EmptyStateWidget>();
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty->accessibleName(), QStringLiteral("No Account Selected"));
    action(QStringLiteral("Undo Delete Account"))->trigger();
    settle();
    EXPECT_NE(shown<RegisterWidget>(), nullptr);
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

TEST_F(MainWindowTest, ShowsWhatHasFallenDueWhenTheDayChanges) {
    addAccount("Everyday");
    test->store->mutate("New Reminder", [](Library& library) {
        library.scheduled.push_back(
            {.id = UUID::random(), .payee = "Rent", .nextDate = day(2026, 3, 16, 0)});
    });
    comeTo(day(2026, 3, 15, 23));
    const auto badge = [this] {
        return line(QStringLiteral("Bills & Income"))->data(0, badgeRole).toInt();
    };
    EXPECT_EQ(badge(), 0);
    EXPECT_FALSE(action(QStringLiteral("Enter Due Reminders"))->isEnabled());
    comeTo(day(2026, 3, 16, 0));
    EXPECT_EQ(badge(), 1);
    EXPECT_TRUE(action(QStringLiteral("Enter Due Reminders"))->isEnabled());
}

TEST_F(MainWindowTest, CountsTomorrowsEntryInTheBalanceOnceTomorrowHasCome) {
    const LocaleForTest locale("en_CA");
    const Account account = addAccount("Everyday");
    test->store->mutate("New Transaction", [&](Library& library) {
        library.transactions.push_back(
            makeTransaction(account.id, day(2026, 3, 16), "Refund", "25"));
    });
    const auto balance = [this] {
        return line(QStringLiteral("Everyday"))->data(0, figureRole).toString();
    };
    EXPECT_EQ(balance(), QStringLiteral("$0.00"));
    comeTo(day(2026, 3, 16));
    EXPECT_EQ(balance(), QStringLiteral("$25.00"));
}

TEST_F(MainWindowTest, GreetsAnewAsTheHoursPass) {
    const auto greets = [this](const QString& text) {
        const auto labels = shown<DashboardWidget>()->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel* label) { return label->text() == text; });
    };
    EXPECT_TRUE(greets(QStringLiteral("Good afternoon")));
    comeTo(day(2026, 3, 15, 17));
    EXPECT_TRUE(greets(QStringLiteral("Good evening")));
    comeTo(day(2026, 3, 16, 6));
    EXPECT_TRUE(greets(QStringLiteral("Good morning")));
}

TEST_F(MainWindowTest, LooksAtTheClockWhenThePersonComesBack) {
    int notices = 0;
    const Subscription watching =
        test->environment->dayChange.dayChanged.observe([&notices] { ++notices; });
    test->clock.set(day(2026, 3, 16));
    QEvent deactivation(QEvent::ActivationChange);
    QApplication::setActiveWindow(nullptr);
    QApplication::sendEvent(window.get(), &deactivation);
    EXPECT_EQ(notices, 0);
    QApplication::setActiveWindow(window.get());
    settle();
    EXPECT_EQ(notices, 1);
}

} // namespace
} // namespace oakfen
