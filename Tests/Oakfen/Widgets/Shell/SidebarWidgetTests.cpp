#include "Oakfen/Widgets/Shell/SidebarWidget.h"

#include <QApplication>
#include <QMenu>
#include <QToolButton>

#include "Oakfen/Widgets/Budget/BudgetWidget.h"
#include "Oakfen/Widgets/Dashboard/DashboardWidget.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::settle;

class SidebarWidgetTest : public testing::WindowTest {
protected:
    [[nodiscard]] bool isUnfolded(const QString& group) const { return line(group)->isExpanded(); }
    /// The titles of the menu that is open, which is closed thereby.
    static QStringList takeOpenMenu() {
        settle();
        QStringList titles;
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            for (const QAction* each : menu->actions()) {
                titles.append(withoutMnemonic(each->text()));
            }
            menu->close();
            settle();
        }
        return titles;
    }
};

TEST_F(SidebarWidgetTest, GoesWhereTheSidebarIsClicked) {
    const Account account = addAccount("Everyday");
    ASSERT_NE(line(QStringLiteral("Everyday")), nullptr);
    click(line(QStringLiteral("Everyday")));
    EXPECT_EQ(test->appState->selectedAccountID(), account.id);
    EXPECT_NE(shown<RegisterWidget>(), nullptr);
    EXPECT_EQ(shown<DashboardWidget>(), nullptr);

    click(line(QStringLiteral("Budget")));
    EXPECT_EQ(test->appState->selection(), SidebarItem{SidebarItem::Kind::budget});
    EXPECT_NE(shown<BudgetWidget>(), nullptr);
    EXPECT_EQ(shown<RegisterWidget>(), nullptr);
}

TEST_F(SidebarWidgetTest, WalksTheSidebarByKeyboard) {
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

TEST_F(SidebarWidgetTest, KeepsAGroupFoldedWhenAnEditRebuildsTheList) {
    addAccount("Everyday");
    click(line(QStringLiteral("Banking")));
    EXPECT_FALSE(line(QStringLiteral("Banking"))->isExpanded());
    addAccount("Spare");
    EXPECT_NE(line(QStringLiteral("Spare")), nullptr);
    EXPECT_FALSE(line(QStringLiteral("Banking"))->isExpanded());
}

TEST_F(SidebarWidgetTest, OpensAMenuOnTheRightButtonWithoutGoingThere) {
    addAccount("Everyday");
    const QPoint place = sidebar()->visualItemRect(line(QStringLiteral("Everyday"))).center();
    QTest::mousePress(sidebar()->viewport(), Qt::RightButton, {}, place);
    EXPECT_FALSE(test->appState->selectedAccountID());
    Q_EMIT sidebar()->customContextMenuRequested(place);
    settle();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 6); // a divider among them
    EXPECT_EQ(withoutMnemonic(menu->actions().last()->text()), QStringLiteral("Delete Account…"));
    menu->actions().last()->trigger();
    menu->close();
    settle();
    EXPECT_TRUE(test->library().accounts.empty());
    EXPECT_EQ(line(QStringLiteral("Everyday")), nullptr);
}

TEST_F(SidebarWidgetTest, ListsClosedAccountsFromTheAddMenu) {
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

TEST_F(SidebarWidgetTest, KeepsAFoldedGroupFoldedEvenWhenItHoldsTheAccountThatIsShown) {
    const Account account = addAccount("Everyday");
    select(SidebarItem::account(account.id));
    click(line(QStringLiteral("Banking")));
    ASSERT_FALSE(isUnfolded(QStringLiteral("Banking")));
    addAccount("Spare");
    EXPECT_FALSE(isUnfolded(QStringLiteral("Banking")));
    EXPECT_EQ(test->appState->selectedAccountID(), account.id);
}

TEST_F(SidebarWidgetTest, UnfoldsTheGroupOfAnAccountThatWasChosenElsewhere) {
    const Account account = addAccount("Everyday");
    click(line(QStringLiteral("Banking")));
    select(SidebarItem::account(account.id));
    EXPECT_TRUE(isUnfolded(QStringLiteral("Banking")));
    EXPECT_EQ(sidebar()->currentItem(), line(QStringLiteral("Everyday")));
    addAccount("Spare");
    EXPECT_TRUE(isUnfolded(QStringLiteral("Banking")));
}

TEST_F(SidebarWidgetTest, RemembersFoldedGroupsAtTheNextStart) {
    addAccount("Everyday");
    add(makeAccount("Visa", AccountType::creditCard));
    click(line(QStringLiteral("Banking")));
    reopenWindow();
    EXPECT_FALSE(isUnfolded(QStringLiteral("Banking")));
    EXPECT_TRUE(isUnfolded(QStringLiteral("Credit")));
    click(line(QStringLiteral("Banking")));
    reopenWindow();
    EXPECT_TRUE(isUnfolded(QStringLiteral("Banking")));
}

TEST_F(SidebarWidgetTest, SelectsNothingWhileTheDashboardIsShownForWantOfASelection) {
    test->appState->setSelection(std::nullopt);
    settle();
    EXPECT_EQ(sidebar()->currentItem(), nullptr);
    EXPECT_TRUE(sidebar()->selectedItems().isEmpty());
    EXPECT_NE(shown<DashboardWidget>(), nullptr);
}

TEST_F(SidebarWidgetTest, SelectsAnAccountWhereItWasOnceItsClosingIsUndone) {
    addAccount("Daily");
    Account account = addAccount("Everyday");
    addAccount("Spare");
    select(SidebarItem::account(account.id));
    const int place = sidebar()->visualItemRect(line(QStringLiteral("Everyday"))).top();
    account.isClosed = true;
    test->store->mutate("Close Account", [&](Library& library) { upsert(library, account); });
    settle();
    EXPECT_EQ(line(QStringLiteral("Everyday")), nullptr);
    EXPECT_EQ(sidebar()->currentItem(), nullptr);
    EXPECT_NE(shown<RegisterWidget>(), nullptr);
    test->undoManager->undo();
    settle();
    ASSERT_NE(line(QStringLiteral("Everyday")), nullptr);
    EXPECT_EQ(sidebar()->currentItem(), line(QStringLiteral("Everyday")));
    EXPECT_EQ(sidebar()->visualItemRect(line(QStringLiteral("Everyday"))).top(), place);
    EXPECT_EQ(test->appState->selectedAccountID(), account.id);
}

TEST_F(SidebarWidgetTest, SaysWhatItsAddMenuIsFor) {
    const auto* add = window->findChild<QToolButton*>(QStringLiteral("AddButton"));
    EXPECT_EQ(add->accessibleName(), QStringLiteral("Add"));
    EXPECT_EQ(add->toolTip(), QStringLiteral("Add an account, category or reminder"));
    EXPECT_NE(add->focusPolicy() & Qt::TabFocus, 0);
}

TEST_F(SidebarWidgetTest, OpensTheMenuOfTheCurrentAccountByKeyboard) {
    select(SidebarItem::account(addAccount("Everyday").id));
    QApplication::setActiveWindow(window.get());
    sidebar()->setFocus();
    QTest::keyClick(sidebar(), Qt::Key_Menu);
    EXPECT_TRUE(takeOpenMenu().contains(QStringLiteral("Close Account")));
    QTest::keyClick(sidebar(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(takeOpenMenu().contains(QStringLiteral("Close Account")));
}

TEST_F(SidebarWidgetTest, OpensNoMenuByKeyboardAtNoLine) {
    for (const char* name : {"One", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight"}) {
        addAccount(name);
    }
    test->appState->setSelection(std::nullopt);
    settle();
    ASSERT_EQ(sidebar()->currentItem(), nullptr);
    sidebar()->setFocus();
    sidebar()->setCurrentItem(nullptr); // coming there goes to a line
    QTest::keyClick(sidebar(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(takeOpenMenu().isEmpty());
}

TEST_F(SidebarWidgetTest, OpensNoMenuOnAScreen) {
    select(SidebarItem{SidebarItem::Kind::budget});
    QTest::keyClick(sidebar(), Qt::Key_Menu);
    EXPECT_TRUE(takeOpenMenu().isEmpty());
}

} // namespace
} // namespace oakfen
