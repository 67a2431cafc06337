#include "Oakfen/ScreenHistory.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::TestEnvironment;
using Kind = SidebarItem::Kind;

class ScreenHistoryTest : public ::testing::Test {
protected:
    ScreenHistoryTest() {
        test.store->mutate("New Account", [this](Library& library) {
            upsert(library, everyday);
            upsert(library, savings);
        });
    }

    void show(const SidebarItem& screen) { test.appState->setSelection(screen); }
    [[nodiscard]] std::optional<SidebarItem> shown() const { return test.appState->selection(); }
    void remove(const Account& account) {
        test.store->mutate("Delete Account",
                           [&](Library& library) { deleteAccount(library, account.id); });
    }

    TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings");
    ScreenHistory& history = test->screenHistory;
};

TEST_F(ScreenHistoryTest, BeginsOnTheDashboardWithNowhereToGo) {
    EXPECT_FALSE(history.canGoBack());
    EXPECT_FALSE(history.canGoForward());
    history.goBack();
    history.goForward();
    EXPECT_EQ(shown(), SidebarItem{});
}

TEST_F(ScreenHistoryTest, GoesTheWayBackAndForthAgain) {
    show({Kind::budget});
    show(SidebarItem::account(everyday.id));
    history.goBack();
    EXPECT_EQ(shown(), SidebarItem{Kind::budget});
    history.goBack();
    EXPECT_EQ(shown(), SidebarItem{});
    EXPECT_FALSE(history.canGoBack());
    history.goForward();
    history.goForward();
    EXPECT_EQ(shown(), SidebarItem::account(everyday.id));
    EXPECT_FALSE(history.canGoForward());
}

TEST_F(ScreenHistoryTest, ForgetsWhatLayAheadOnceThePersonGoesElsewhere) {
    show({Kind::budget});
    history.goBack();
    show({Kind::reports});
    EXPECT_FALSE(history.canGoForward());
    history.goBack();
    EXPECT_EQ(shown(), SidebarItem{});
}

TEST_F(ScreenHistoryTest, PassesOverADeletedAccount) {
    show(SidebarItem::account(everyday.id));
    show(SidebarItem::account(savings.id));
    show({Kind::budget});
    remove(savings);
    history.goBack();
    EXPECT_EQ(shown(), SidebarItem::account(everyday.id));
    history.goForward();
    EXPECT_EQ(shown(), SidebarItem{Kind::budget});
}

TEST_F(ScreenHistoryTest, FindsAnAccountAgainThatCameBackByUndo) {
    show(SidebarItem::account(savings.id));
    show({Kind::budget});
    remove(savings);
    test.undoManager->undo();
    history.goBack();
    EXPECT_EQ(shown(), SidebarItem::account(savings.id));
}

TEST_F(ScreenHistoryTest, LeadsAwayFromAnAccountThatWasDeletedUnderThePerson) {
    show(SidebarItem::account(everyday.id));
    show(SidebarItem::account(savings.id));
    remove(savings);
    history.goBack();
    EXPECT_EQ(shown(), SidebarItem::account(everyday.id));
    EXPECT_FALSE(history.canGoForward());
}

TEST_F(ScreenHistoryTest, TakesNoStepThatShowsTheSameScreenAgain) {
    show(SidebarItem::account(everyday.id));
    remove(everyday);
    show({});
    EXPECT_FALSE(history.canGoBack());
}

TEST_F(ScreenHistoryTest, TakesNoSelectionForTheDashboardThatItShows) {
    test.appState->setSelection(std::nullopt);
    EXPECT_FALSE(history.canGoBack());
    show({Kind::budget});
    history.goBack();
    EXPECT_EQ(shown(), SidebarItem{});
}

} // namespace
} // namespace oakfen
