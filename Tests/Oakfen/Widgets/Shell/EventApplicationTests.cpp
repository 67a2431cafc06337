#include "Oakfen/Widgets/Shell/EventApplication.h"

#include <QMenu>
#include <QSemaphore>
#include <QThread>
#include <QToolButton>

#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

/// The window on one account, which is selected.
class UserEventTest : public testing::WindowTest {
protected:
    UserEventTest() {
        account = addAccount("Everyday");
        select(SidebarItem::account(account.id));
    }

    /// From now on, what changes first there brings two edits.
    void follow(Observers<>& changes) {
        before = test->library();
        following = changes.observe([this] {
            if (!std::exchange(isFollowed, true)) {
                for (const char* name : {"Savings", "Cash"}) {
                    test->store->mutate("New Account", [name](Library& library) {
                        upsert(library, testing::makeAccount(name));
                    });
                }
            }
        });
    }

    /// That all of it is one step of the history.
    void expectOneStep() {
        ASSERT_TRUE(isFollowed);
        ASSERT_TRUE(test->undoManager->canUndo());
        following = {};
        test->undoManager->undo();
        EXPECT_EQ(test->library(), before);
        test->undoManager->redo();
        EXPECT_EQ(test->library().accounts.size(), 3U);
    }

    void chooseFromContextMenu(const QString& title,
                               const QString& of = QStringLiteral("Everyday")) const {
        const QPoint place = sidebar()->visualItemRect(line(of)).center();
        Q_EMIT sidebar()->customContextMenuRequested(place);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* each : menu->actions()) {
            if (withoutMnemonic(each->text()) == title) {
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(each).center());
                return;
            }
        }
        FAIL() << "no such line";
    }

    Account account;
    Library before;
    bool isFollowed = false;
    Subscription following;
};

TEST_F(UserEventTest, IsWhatOneShortcutOfTheMenuBarDid) {
    QApplication::setActiveWindow(window.get());
    follow(test->appState->selectionChanged);
    QTest::keyClick(window.get(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(test->appState->selection(), SidebarItem{SidebarItem::Kind::budget});
    expectOneStep();
}

TEST_F(UserEventTest, IsWhatOneLineOfAContextMenuDid) {
    follow(test->store->libraryChanged);
    chooseFromContextMenu(QStringLiteral("Close Account"));
    EXPECT_TRUE(test->library().accounts.front().isClosed);
    expectOneStep();
}

TEST_F(UserEventTest, IsWhatOneButtonOfAToolbarDid) {
    follow(test->appState->sheetChanged);
    for (QToolButton* each : window->findChildren<QToolButton*>()) {
        if (each->text() == QStringLiteral("Edit Account") && each->isVisible()) {
            QTest::mouseClick(each, Qt::LeftButton);
            break;
        }
    }
    EXPECT_TRUE(test->appState->sheet());
    expectOneStep();
}

TEST_F(UserEventTest, EndsBeforeTheNextOne) {
    addAccount("Savings");
    const Library untouched = test->library();
    chooseFromContextMenu(QStringLiteral("Close Account"));
    testing::settle();
    const Library closed = test->library();
    EXPECT_NE(closed, untouched);
    chooseFromContextMenu(QStringLiteral("Close Account"), QStringLiteral("Savings"));
    EXPECT_NE(test->library(), closed);
    test->undoManager->undo();
    EXPECT_EQ(test->library(), closed);
    test->undoManager->undo();
    EXPECT_EQ(test->library(), untouched);
}

/// Stays in its event until it may leave.
class Lingerer final : public QObject {
public:
    QSemaphore came;
    QSemaphore mayLeave;

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        came.release();
        mayLeave.acquire();
        return true;
    }
};

TEST_F(UserEventTest, IsNotWhatHappensMeanwhileInAnotherThread) {
    QThread thread;
    Lingerer lingerer;
    lingerer.moveToThread(&thread);
    thread.start();
    QCoreApplication::postEvent(&lingerer, new QEvent(QEvent::User));
    lingerer.came.acquire();
    for (const char* name : {"Savings", "Cash"}) {
        test->store->mutate("New Account", [name](Library& library) {
            upsert(library, testing::makeAccount(name));
        });
    }
    lingerer.mayLeave.release();
    thread.quit();
    thread.wait();
    test->undoManager->undo();
    EXPECT_EQ(test->library().accounts.size(), 2U);
}

TEST_F(UserEventTest, IsNobodysOnceTheWindowHasGone) {
    EXPECT_EQ(EventApplication::history(), test->undoManager);
    window.reset();
    EXPECT_EQ(EventApplication::history(), nullptr);
}

} // namespace
} // namespace oakfen
