#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::settle;

/// The register of an account in the window, with the keyboard in the sidebar.
class RegisterFocus : public testing::WindowTest {
protected:
    RegisterFocus() {
        everyday = addAccount("Everyday");
        select(SidebarItem::account(everyday.id));
        sidebar()->setFocus();
    }

    void open(ActiveSheet sheet) {
        test->appState->setSheet(std::move(sheet));
        settle();
    }
    void enter(const Transaction& entry) {
        test->store->mutate("New Transaction", [&](Library& library) { upsert(library, entry); });
        test->appState->transactionSaved.notify(entry.id);
    }
    void closeSheet() {
        test->appState->setSheet(std::nullopt);
        settle();
    }
    /// Also while a sheet hides it.
    [[nodiscard]] RegisterWidget* registerWidget() const {
        return window->findChild<RegisterWidget*>();
    }

    Account everyday;
};

TEST_F(RegisterFocus, GoesToTheRowThatASheetHasMade) {
    open({ActiveSheet::NewTransaction{everyday.id}});
    const Transaction entry =
        testing::makeTransaction(everyday.id, testing::day(2026, 3, 1), "Shop", "-1");
    enter(entry);
    EXPECT_NE(QApplication::focusWidget(), registerWidget()->table());
    closeSheet();
    EXPECT_EQ(QApplication::focusWidget(), registerWidget()->table());
    EXPECT_EQ(*registerWidget()->view().content()->selection, UUIDSet{entry.id});
    EXPECT_EQ(registerWidget()->table()->targetRow(), 0);
}

TEST_F(RegisterFocus, StaysWhereItWasWhenASheetHasMadeNothing) {
    open({ActiveSheet::NewTransaction{everyday.id}});
    closeSheet();
    EXPECT_EQ(QApplication::focusWidget(), sidebar());
    // Nor does a later sheet inherit what an earlier one has made.
    open({ActiveSheet::NewTransaction{everyday.id}});
    enter(testing::makeTransaction(everyday.id, testing::day(2026, 3, 1), "Shop", "-1"));
    closeSheet();
    sidebar()->setFocus();
    open({ActiveSheet::NewTransaction{everyday.id}});
    closeSheet();
    EXPECT_EQ(QApplication::focusWidget(), sidebar());
}

TEST_F(RegisterFocus, LeadsBackToTheAccountShownBeforeOneThatUndoTakesAway) {
    const Account added = addAccount("Added");
    select(SidebarItem::account(added.id));
    ASSERT_EQ(registerWidget()->view().content()->title, "Added");
    test->undoManager->undo();
    settle();
    ASSERT_NE(registerWidget(), nullptr);
    EXPECT_EQ(registerWidget()->view().content()->title, "Everyday");
}

} // namespace
} // namespace oakfen
