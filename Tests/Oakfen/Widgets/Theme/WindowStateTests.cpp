#include "Oakfen/Widgets/Theme/WindowState.h"

#include <QHeaderView>
#include <QSplitter>

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Shell/SidebarWidget.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::settle;

class WindowStateTest : public testing::WindowTest {
protected:
    [[nodiscard]] QSplitter* splitter() const { return window->findChild<QSplitter*>(); }
    [[nodiscard]] int sidebarWidth() const { return window->findChild<SidebarWidget*>()->width(); }
    /// As if the handle were dragged there.
    void dragSidebarTo(int width) {
        splitter()->setSizes({width, splitter()->width() - width});
        settle();
    }
};

TEST_F(WindowStateTest, BeginsWithTheUsualSizes) {
    EXPECT_EQ(window->size(), QSize(1280, 820));
    EXPECT_EQ(sidebarWidth(), 250);
}

TEST_F(WindowStateTest, NeitherReadsNorWritesThePersonsWhileItIsKeptInMemory) {
    const QString key = QStringLiteral("test/value");
    windowState::setValue(key, 1);
    {
        const windowState::InMemory inMemory;
        EXPECT_FALSE(windowState::value(key).isValid());
        windowState::setValue(key, 2);
        EXPECT_EQ(windowState::value(key), 2);
    }
    EXPECT_EQ(windowState::value(key).toInt(), 1);
}

TEST_F(WindowStateTest, KeepsTheSidebarWithinItsBounds) {
    dragSidebarTo(10);
    EXPECT_EQ(sidebarWidth(), 220);
    dragSidebarTo(900);
    EXPECT_EQ(sidebarWidth(), 340);
}

TEST_F(WindowStateTest, GivesTheRoomOfALargerWindowToTheScreenAndNotToTheSidebar) {
    window->resize(1600, 900);
    settle();
    EXPECT_EQ(sidebarWidth(), 250);
}

TEST_F(WindowStateTest, RemembersTheWidthOfTheSidebar) {
    dragSidebarTo(300);
    reopenWindow();
    EXPECT_EQ(sidebarWidth(), 300);
}

TEST_F(WindowStateTest, RemembersThatTheSidebarIsHidden) {
    dragSidebarTo(300);
    action(QStringLiteral("Hide Sidebar"))->trigger();
    reopenWindow();
    EXPECT_FALSE(sidebar()->isVisible());
    action(QStringLiteral("Show Sidebar"))->trigger();
    settle();
    EXPECT_TRUE(sidebar()->isVisible());
    EXPECT_EQ(sidebarWidth(), 300);
}

TEST_F(WindowStateTest, RemembersTheSizeOfTheWindow) {
    window->resize(1100, 702);
    settle();
    reopenWindow();
    // The width is not asked for: the screen of the tests is narrower than the window may be.
    EXPECT_EQ(window->height(), 702);
}

TEST_F(WindowStateTest, RemembersThatTheWindowIsMaximized) {
    window->showMaximized();
    settle();
    window.reset();
    openWindow();
    EXPECT_TRUE(window->isMaximized());
}

TEST_F(WindowStateTest, RemembersTheColumnsOfTheRegister) {
    const Account account = addAccount("Everyday");
    select(SidebarItem::account(account.id));
    constexpr int dateColumn = 1;
    const auto table = [this] { return window->findChild<LedgerTable*>(); };
    table()->horizontalHeader()->resizeSection(dateColumn, 133);
    reopenWindow();
    ASSERT_NE(table(), nullptr);
    EXPECT_EQ(table()->columnWidth(dateColumn), 133);
}

TEST_F(WindowStateTest, StaysUsableWhenWhatWasKeptIsDamaged) {
    window.reset();
    for (const char* key : {"mainWindow/geometry", "mainWindow/splitter", "Register/Columns"}) {
        windowState::setValue(QString::fromLatin1(key), QStringLiteral("nonsense"));
    }
    openWindow();
    EXPECT_EQ(window->size(), QSize(1280, 820));
    EXPECT_EQ(sidebarWidth(), 250);
    EXPECT_TRUE(sidebar()->isVisible());
}

} // namespace
} // namespace oakfen
