#include "Oakfen/AccountClosing.h"

#include <gtest/gtest.h>

#include "Oakfen/Views/Editors/AccountEditor.h"
#include "Oakfen/Views/Shell/SidebarView.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::RandomLibrary;
using testing::TestEnvironment;

class AccountClosing : public ::testing::Test {
protected:
    AccountClosing() {
        mortgage.openingBalance = amount("-312000");
        savings.openingBalance = amount("1234.5");
        test.store->mutate("Add", [this](Library& library) {
            library.accounts = {mortgage, savings, empty};
        });
        test.undoManager->removeAllActions();
    }
    void closeInSidebar(const UUID& id) {
        SidebarView view(*test);
        for (const MenuEntry& entry : view.contextMenu(id)) {
            if (entry.title == "Close Account" || entry.title == "Reopen Account") {
                entry.perform();
                return;
            }
        }
    }
    [[nodiscard]] std::string notice() const {
        return test.appState->notice() ? test.appState->notice()->text : std::string();
    }

    const LocaleForTest locale{"en_CA"};
    TestEnvironment test;
    Account mortgage = makeAccount("Mortgage", AccountType::loan);
    Account savings = makeAccount("Nest\nEgg", AccountType::savings);
    Account empty = makeAccount("Empty");
};

TEST_F(AccountClosing, SaysWhatIsOwedAndNoLongerCounts) {
    const Library before = test.library();
    closeInSidebar(mortgage.id);
    EXPECT_EQ(notice(), "Net worth no longer counts $312,000.00 owed in “Mortgage”.");
    EXPECT_EQ(test.appState->notice()->actionTitle, "Undo");
    EXPECT_FALSE(test.appState->notice()->stays);
    const auto undo = test.appState->notice()->action;
    undo();
    EXPECT_EQ(test.library(), before);
    EXPECT_EQ(notice(), "");
}

TEST_F(AccountClosing, SaysWhatIsOwnedAndNoLongerCountsOnOneLine) {
    closeInSidebar(savings.id);
    EXPECT_EQ(notice(), "Net worth no longer counts $1,234.50 in “Nest\\nEgg”.");
}

TEST_F(AccountClosing, SaysNothingOfAnEmptyAccountOrOfOneThatIsReopened) {
    closeInSidebar(empty.id);
    EXPECT_EQ(notice(), "");
    closeInSidebar(mortgage.id);
    closeInSidebar(mortgage.id);
    EXPECT_FALSE(test.index().account(mortgage.id)->isClosed);
    EXPECT_EQ(notice(), "");
}

TEST_F(AccountClosing, SaysSoInTheEditorTooButNotOfAnotherEdit) {
    AccountEditor rename(*test, mortgage.id);
    rename.draft.name = "House";
    rename.save();
    EXPECT_EQ(notice(), "");
    AccountEditor editor(*test, mortgage.id);
    editor.draft.isClosed = true;
    editor.save();
    EXPECT_EQ(notice(), "Net worth no longer counts $312,000.00 owed in “House”.");
    AccountEditor again(*test, mortgage.id);
    again.draft.name = "Mortgage";
    again.save();
    EXPECT_EQ(notice(), "");
}

TEST_F(AccountClosing, TakesNothingBackForWhoeverFindsTheWindowLocked) {
    closeInSidebar(mortgage.id);
    const Library after = test.library();
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(false);
    test.appState->notice()->action();
    EXPECT_EQ(test.library(), after);
}

TEST_F(AccountClosing, NamesExactlyWhatNetWorthLoses) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        const Library document = RandomLibrary(seed, RandomLibrary::Amounts::wholeCents).make(40);
        test.store->mutate("Open", [&](Library& library) { library = document; });
        for (const Account& account : document.accounts) {
            if (account.isClosed) {
                continue;
            }
            test.appState->dismissNotice();
            const Decimal before = test.index().netWorth();
            closeInSidebar(account.id);
            const Decimal lost = before - test.index().netWorth();
            EXPECT_EQ(notice(), closingText(account, lost, document.currencyCode)) << seed;
            test.undoManager->undo();
        }
    }
}

} // namespace
} // namespace oakfen
