#include "Oakfen/ScreenReturn.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

class ScreenReturnTest : public ::testing::Test {
protected:
    ScreenReturnTest() {
        add(chequing);
        add(savings);
    }

    void add(const Account& account) {
        test.store->mutate("New Account", [&](Library& library) { upsert(library, account); });
    }
    void show(const Account& account) {
        test.appState->setSelection(SidebarItem::account(account.id));
    }

    Account chequing = testing::makeAccount("Chequing");
    Account savings = testing::makeAccount("Savings");
    Account added = testing::makeAccount("Added");
    testing::TestEnvironment test;
};

TEST_F(ScreenReturnTest, LeadsBackToTheAccountShownBeforeTheOneThatUndoTakesAway) {
    show(savings);
    show(chequing);
    add(added);
    show(added);
    test.undoManager->undo();
    EXPECT_EQ(test.appState->selectedAccountID(), chequing.id);
}

TEST_F(ScreenReturnTest, PassesOverWhatHasGoneToo) {
    show(chequing);
    show(savings);
    add(added);
    show(added);
    test.store->mutate("Delete", [&](Library& library) { deleteAccount(library, savings.id); });
    test.undoManager->undo();
    test.store->mutate("Delete", [&](Library& library) {
        deleteAccount(library, savings.id);
        deleteAccount(library, added.id);
    });
    test.undoManager->undo();
    show(added);
    test.undoManager->redo();
    EXPECT_EQ(test.appState->selectedAccountID(), chequing.id);
}

TEST_F(ScreenReturnTest, LeadsBackToAnOverviewScreen) {
    test.appState->setSelection(SidebarItem{SidebarItem::Kind::budget});
    add(added);
    show(added);
    test.undoManager->undo();
    EXPECT_EQ(test.appState->selection(), SidebarItem{SidebarItem::Kind::budget});
}

TEST_F(ScreenReturnTest, StaysWhereTheAccountIsStillThere) {
    show(chequing);
    add(added);
    test.undoManager->undo();
    EXPECT_EQ(test.appState->selectedAccountID(), chequing.id);
}

TEST_F(ScreenReturnTest, LeavesAnAccountThatIsDeletedToWhoeverDeletesIt) {
    show(savings);
    show(chequing);
    test.store->mutate("Delete", [&](Library& library) { deleteAccount(library, chequing.id); });
    EXPECT_EQ(test.appState->selectedAccountID(), chequing.id);
}

} // namespace
} // namespace oakfen
