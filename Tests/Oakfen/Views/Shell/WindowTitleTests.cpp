#include "Oakfen/Views/Shell/WindowTitle.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::TestEnvironment;

TEST(WindowTitle, BearsTheNameOfTheScreen) {
    TestEnvironment test;
    const Account account = makeAccount("Every\nday");
    test.store->mutate("New Account", [&](Library& library) { upsert(library, account); });
    EXPECT_EQ(windowTitle(*test), "Dashboard — Oakfen");
    test.appState->setSelection(SidebarItem{SidebarItem::Kind::bills});
    EXPECT_EQ(windowTitle(*test), "Bills & Income — Oakfen");
    test.appState->setSelection(SidebarItem::account(account.id));
    EXPECT_EQ(windowTitle(*test), "Every day — Oakfen");
    test.appState->setSelection(SidebarItem::account(UUID::random()));
    EXPECT_EQ(windowTitle(*test), "No Account Selected — Oakfen");
}

TEST(WindowTitle, SaysNothingOfAScreenThatIsHidden) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    EXPECT_EQ(windowTitle(*test), "Oakfen");
    test.store->useNoPassword();
    EXPECT_EQ(windowTitle(*test), "Dashboard — Oakfen");
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(false);
    EXPECT_EQ(windowTitle(*test), "Oakfen");
}

} // namespace
} // namespace oakfen
