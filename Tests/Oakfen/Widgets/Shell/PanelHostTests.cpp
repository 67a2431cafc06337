#include "Oakfen/Widgets/Shell/PanelHost.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"
#include "Oakfen/Widgets/Register/FindWidget.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::day;
using testing::makeTransaction;
using testing::settle;

/// The search through all accounts over the register of one of two accounts.
class PanelHostTest : public testing::WindowTest {
protected:
    PanelHostTest() {
        everyday = addAccount("Everyday");
        savings = addAccount("Savings");
        test->store->mutate("Add", [this](Library& library) {
            for (int number = 1; number <= 200; ++number) {
                const Date date = day(2026, 3, 4).adding(-86'400.0 * number);
                upsert(library, makeTransaction(everyday.id, date, "Shop", "-40"));
                upsert(library, makeTransaction(savings.id, date, "Interest", "1"));
            }
            interest.accountID = savings.id;
            upsert(library, interest);
        });
        select(SidebarItem::account(everyday.id));
        window->activateWindow();
        settle();
    }

    void find() {
        action(QStringLiteral("Find in All Accounts…"))->trigger();
        settle();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }
    [[nodiscard]] FindWidget* panel() const { return shown<FindWidget>(); }
    [[nodiscard]] RegisterWidget* register_() const { return shown<RegisterWidget>(); }
    [[nodiscard]] PanelHost* host() const { return window->findChild<PanelHost*>(); }
    [[nodiscard]] bool hasKeyboard() const {
        return panel() != nullptr && panel()->isAncestorOf(QApplication::focusWidget());
    }

    Account everyday;
    Account savings;
    Transaction interest = makeTransaction({}, day(2025, 12, 1), "Special Interest", "25");
};

TEST_F(PanelHostTest, OpensAtTheRightOverAHiddenScreenWithTheKeyboardInTheSearch) {
    window->resize(1280, 800);
    settle();
    find();
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), panel()->searchField());
    EXPECT_EQ(register_(), nullptr);
    EXPECT_FALSE(sidebar()->isVisible());
    EXPECT_EQ(panel()->geometry().right(), host()->rect().right());
    EXPECT_EQ(panel()->height(), host()->height());
    EXPECT_GE(panel()->x(), 180);
    EXPECT_LE(panel()->width(), panel()->greatestWidth());
}

TEST_F(PanelHostTest, ReturnsToTheScreenAsItWas) {
    RegisterWidget* screen = register_();
    screen->view().setSearchText("shop");
    screen->table()->selectRow(7);
    screen->table()->setFocus();
    const auto before = screen->view().content();
    find();
    press(Qt::Key_Escape);
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(register_(), screen);
    EXPECT_EQ(screen->view().content(), before);
    EXPECT_EQ(QApplication::focusWidget(), screen->table());
}

TEST_F(PanelHostTest, ClosesByAClickBesideIt) {
    find();
    QTest::mouseClick(host(), Qt::LeftButton, {}, {20, host()->height() / 2});
    settle();
    EXPECT_EQ(panel(), nullptr);
    EXPECT_NE(register_(), nullptr);
}

TEST_F(PanelHostTest, KeepsTheTermUntilItIsOpenedAgain) {
    find();
    panel()->searchField()->setText(QStringLiteral("special"));
    press(Qt::Key_Escape);
    find();
    EXPECT_EQ(panel()->searchField()->selectedText(), QStringLiteral("special"));
    EXPECT_EQ(panel()->table()->model()->rowCount(), 1);
    panel()->table()->setFocus();
    find();
    EXPECT_EQ(QApplication::focusWidget(), panel()->searchField());
}

TEST_F(PanelHostTest, KeepsTheKeyboardHoweverOftenTabIsPressed) {
    find();
    for (int count = 0; count < 6; ++count) {
        press(Qt::Key_Tab);
        EXPECT_TRUE(hasKeyboard());
    }
}

TEST_F(PanelHostTest, GoesOnInTheListAfterTheEditor) {
    find();
    panel()->searchField()->setText(QStringLiteral("special"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_NE(shown<SheetScaffold>(), nullptr);
    EXPECT_EQ(panel(), nullptr);
    press(Qt::Key_Escape);
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), panel()->table());
}

TEST_F(PanelHostTest, LeavesUndoToTheMenu) {
    find();
    panel()->searchField()->setText(QStringLiteral("special"));
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_EQ(panel()->table()->model()->rowCount(), 0);
    action(QStringLiteral("Undo Delete Transactions"))->trigger();
    settle();
    EXPECT_EQ(panel()->table()->model()->rowCount(), 1);
}

TEST_F(PanelHostTest, GivesWayToTheRegisterWithTheEntryInSight) {
    find();
    panel()->searchField()->setText(QStringLiteral("special"));
    press(Qt::Key_Down);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(panel(), nullptr);
    ASSERT_NE(register_(), nullptr);
    LedgerTable* table = register_()->table();
    EXPECT_EQ(*register_()->view().content()->selection, UUIDSet{interest.id});
    EXPECT_EQ(QApplication::focusWidget(), table);
    EXPECT_TRUE(table->viewport()->rect().contains(table->visualRect(table->currentIndex())));
    EXPECT_EQ(test->appState->selectedAccountID(), savings.id);
}

TEST_F(PanelHostTest, GivesWayToTheRegisterThatLiesBeneath) {
    const Transaction* last = test->index().transactions(everyday.id).front();
    find();
    panel()->view().showInRegister(last->id);
    settle();
    EXPECT_EQ(panel(), nullptr);
    LedgerTable* table = register_()->table();
    EXPECT_EQ(QApplication::focusWidget(), table);
    EXPECT_EQ(table->currentIndex().row(), table->model()->rowCount() - 1);
    EXPECT_TRUE(table->viewport()->rect().contains(table->visualRect(table->currentIndex())));
}

TEST_F(PanelHostTest, GivesWayToAnyOtherScreen) {
    find();
    select(SidebarItem{SidebarItem::Kind::dashboard});
    EXPECT_EQ(panel(), nullptr);
    EXPECT_TRUE(sidebar()->isVisible());
}

TEST_F(PanelHostTest, IsGoneWhileTheWindowIsLocked) {
    find();
    test->authenticator.holdPrompt();
    test->defaults.set(settings::requireAuthentication, true);
    test->appState->setUnlocked(false);
    settle();
    EXPECT_EQ(panel(), nullptr);
    test->authenticator.answer({.kind = AuthenticationResult::Kind::passed});
    settle();
    EXPECT_TRUE(hasKeyboard());
}

TEST_F(PanelHostTest, FollowsTheSizeOfTheWindow) {
    window->resize(1280, 800);
    settle();
    find();
    const int wide = panel()->width();
    window->resize(980, 700);
    settle();
    EXPECT_LT(panel()->width(), wide);
    EXPECT_EQ(panel()->geometry().right(), host()->rect().right());
}

} // namespace
} // namespace oakfen
