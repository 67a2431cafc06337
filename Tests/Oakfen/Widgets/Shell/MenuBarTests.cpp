#include "Oakfen/Widgets/Shell/MenuBar.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>

#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

class MenuBarTest : public testing::WindowTest {};

TEST_F(MenuBarTest, KeepsTheMenuInStepWithTheLedger) {
    QAction* import = action(QStringLiteral("Import Transactions…"));
    ASSERT_NE(import, nullptr);
    EXPECT_FALSE(import->isEnabled());
    EXPECT_EQ(import->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+I")));
    addAccount("Everyday");
    EXPECT_TRUE(import->isEnabled());
}

TEST_F(MenuBarTest, TakesTheAmpersandOfATitleToTheLetter) {
    const QAction* bills = action(QStringLiteral("Bills & Income"));
    ASSERT_NE(bills, nullptr);
    EXPECT_TRUE(bills->text().contains(QStringLiteral("&&")));
}

TEST_F(MenuBarTest, SendsEditCommandsToTheFieldWithTheFocus) {
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

TEST_F(MenuBarTest, HidesAndShowsTheSidebar) {
    EXPECT_TRUE(sidebar()->isVisible());
    action(QStringLiteral("Hide Sidebar"))->trigger();
    EXPECT_FALSE(sidebar()->isVisible());
    ASSERT_NE(action(QStringLiteral("Show Sidebar")), nullptr);
    action(QStringLiteral("Show Sidebar"))->trigger();
    EXPECT_TRUE(sidebar()->isVisible());
}

TEST_F(MenuBarTest, DrawsDividersAndSubmenus) {
    QStringList lines;
    const QMenu* file = window->menuBar()->actions().first()->menu();
    ASSERT_NE(file, nullptr);
    for (const QAction* each : file->actions()) {
        const QString title = withoutMnemonic(each->text());
        lines.append(each->isSeparator()       ? QStringLiteral("-")
                     : each->menu() != nullptr ? title + QStringLiteral(" >")
                                               : title);
    }
    EXPECT_EQ(lines.join(QLatin1Char('|')),
              QStringLiteral("New Transaction|New Account…|New Reminder…|-|Import Transactions…|"
                             "Import Quicken Data File…|Export >|-|Back Up…|Restore from Backup…|"
                             "-|Quit Oakfen"));
}

TEST_F(MenuBarTest, GoesToAScreenByItsShortcut) {
    QApplication::setActiveWindow(window.get());
    QTest::keyClick(window.get(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(test->appState->selection(), SidebarItem{SidebarItem::Kind::budget});
}

} // namespace
} // namespace oakfen
