#include "Oakfen/Views/Dashboard/DashboardView.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::TestEnvironment;

class DashboardViewTest : public ::testing::Test {
protected:
    std::string greetingAt(int hour, int minute = 0) {
        test.clock.set(Calendar::utc().date(
            {.year = 2026, .month = 3, .day = 15, .hour = hour, .minute = minute}));
        return view.greeting();
    }
    void add(const Account& account) {
        test.store->mutate("New Account", [&](Library& library) { upsert(library, account); });
    }

    TestEnvironment test;
    DashboardView view{*test};
};

TEST_F(DashboardViewTest, GreetsByTheHour) {
    EXPECT_EQ(greetingAt(4, 59), "Good evening");
    EXPECT_EQ(greetingAt(5), "Good morning");
    EXPECT_EQ(greetingAt(11, 59), "Good morning");
    EXPECT_EQ(greetingAt(12), "Good afternoon");
    EXPECT_EQ(greetingAt(16, 59), "Good afternoon");
    EXPECT_EQ(greetingAt(17), "Good evening");
    EXPECT_EQ(greetingAt(0), "Good evening");
}

TEST_F(DashboardViewTest, ShowsTheDateInFull) {
    EXPECT_NE(view.dateText().find("2026"), std::string::npos);
    EXPECT_NE(view.dateText().find("15"), std::string::npos);
}

TEST_F(DashboardViewTest, AsksForAFirstAccount) {
    EXPECT_TRUE(view.isEmpty());
    EXPECT_EQ(DashboardView::emptyState().title, "Add Your First Account");
    view.addAccount();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
}

TEST_F(DashboardViewTest, CountsAClosedAccountAsOne) {
    Account account = makeAccount("Old");
    account.isClosed = true;
    add(account);
    EXPECT_FALSE(view.isEmpty());
    const auto steps = view.steps();
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_FALSE(steps[0].isEnabled);
}

TEST_F(DashboardViewTest, OpensTheAccountThatIsFirstWhenTheLineIsPressed) {
    const Account first = makeAccount("Everyday");
    const Account second = makeAccount("Everyday");
    add(first);
    add(second);
    const auto steps = view.steps();
    test.store->mutate("Delete Account",
                       [&](Library& library) { deleteAccount(library, first.id); });
    steps[1].perform();
    EXPECT_EQ(test.appState->selectedAccountID(), second.id);
}

TEST_F(DashboardViewTest, LeadsOnToAnImportAndToTheFirstAccount) {
    const Account account = makeAccount("Everyday");
    add(account);
    const auto steps = view.steps();
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_TRUE(steps[0].isEnabled);
    steps[0].perform();
    ASSERT_EQ(test.panels.openRequests.size(), 1U);
    EXPECT_EQ(steps[1].title, "Go to Everyday");
    steps[1].perform();
    EXPECT_EQ(test.appState->selectedAccountID(), account.id);
    steps[2].perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
}

} // namespace
} // namespace oakfen
