#include "Oakfen/Views/Dashboard/DashboardView.h"

#include "Tests/Oakfen/Views/Dashboard/DashboardFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::TestEnvironment;

class DashboardViewTest : public testing::DashboardFixture {
protected:
    static std::string greetingAt(int hour, int minute = 0) {
        const Calendar utc = Calendar::utc();
        return greeting(
            utc.date({.year = 2026, .month = 3, .day = 15, .hour = hour, .minute = minute}), utc);
    }
    std::vector<std::string> payees() {
        std::vector<std::string> result;
        for (const auto& row : shown().recent.rows) {
            result.push_back(row.payee);
        }
        return result;
    }
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

TEST_F(DashboardViewTest, GreetsAnewWhenTheHourChanges) {
    EXPECT_EQ(shown().greeting, "Good afternoon");
    EXPECT_EQ(shown().date, "Sunday, March 15, 2026");
    test.clock.set(day(2026, 3, 15, 17));
    test.environment->dayChange.check();
    EXPECT_EQ(shown().greeting, "Good evening");
}

TEST(DashboardOfAnEmptyLibrary, AsksForAFirstAccount) {
    TestEnvironment test;
    DashboardView view(*test);
    EXPECT_TRUE(view.content()->isEmpty);
    EXPECT_EQ(DashboardView::emptyState().title, "Add Your First Account");
    view.addAccount();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
}

TEST_F(DashboardViewTest, CountsAClosedAccountAsOne) {
    edit([&](Library& library) {
        Account closed = everyday;
        closed.isClosed = true;
        upsert(library, closed);
    });
    EXPECT_FALSE(shown().isEmpty);
    const auto steps = view.steps();
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_FALSE(steps[0].isEnabled);
}

TEST_F(DashboardViewTest, LeadsOnToAnImportAndToTheFirstAccount) {
    const auto steps = view.steps();
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_TRUE(steps[0].isEnabled);
    steps[0].perform();
    ASSERT_EQ(test.panels.openRequests.size(), 1U);
    EXPECT_EQ(steps[1].title, "Go to Everyday");
    steps[1].perform();
    EXPECT_EQ(test.appState->selectedAccountID(), everyday.id);
    steps[2].perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
}

TEST_F(DashboardViewTest, OpensTheAccountThatIsFirstWhenTheLineIsPressed) {
    const Account second = makeAccount("Everyday");
    edit([&](Library& library) { library.accounts.push_back(second); });
    const auto steps = view.steps();
    edit([&](Library& library) { deleteAccount(library, everyday.id); });
    steps[1].perform();
    EXPECT_EQ(test.appState->selectedAccountID(), second.id);
}

TEST_F(DashboardViewTest, ListsTheLatestEntriesOfTheDocumentFutureOnesIncluded) {
    enter(day(2026, 3, 1), "-1", {}, "first of the day");
    enter(day(2026, 3, 1), "-1", {}, "second of the day");
    enter(day(2026, 4, 2), "-1", {}, "to come");
    for (int each = 1; each <= 6; ++each) {
        enter(day(2026, 2, each), "-1", {}, "February " + std::to_string(each));
    }
    EXPECT_EQ(payees(),
              (std::vector<std::string>{"to come", "first of the day", "second of the day",
                                        "February 6", "February 5", "February 4", "February 3"}));
    EXPECT_EQ(shown().recent.rows[3].detail, "Feb 6 · Uncategorized");
    EXPECT_EQ(shown().recent.rows[3].amount.text, "-$1.00");
}

TEST_F(DashboardViewTest, OpensARecentEntryInItsEditor) {
    const UUID id = enter(day(2026, 3, 1), "-1");
    view.edit(shown().recent.rows[0].id);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{id}});
}

TEST_F(DashboardViewTest, ListsWhatIsDueInTwoWeeksByItsDay) {
    remind(day(2026, 3, 29, 12), "-3", "at the horizon");
    remind(day(2026, 3, 29, 13), "-4", "past the horizon");
    remind(day(2026, 3, 13), "-1", "overdue");
    remind(day(2026, 3, 15, 1), "2", "today");
    const auto& rows = shown().upcoming.rows;
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].payee, "overdue");
    EXPECT_EQ(rows[0].detail, "2 days overdue · Everyday");
    EXPECT_EQ(rows[0].detailTone, TextTone::negative);
    EXPECT_EQ(rows[0].amount, (MoneyText{"-$1.00", TextTone::primary}));
    EXPECT_EQ(rows[1].detail, "Today · Everyday");
    EXPECT_EQ(rows[1].detailTone, TextTone::secondary);
    EXPECT_EQ(rows[1].amount, (MoneyText{"$2.00", TextTone::positive}));
    EXPECT_EQ(rows[2].payee, "at the horizon");
}

TEST_F(DashboardViewTest, ListsNoMoreThanSixReminders) {
    for (int each = 0; each < 8; ++each) {
        remind(day(2026, 3, 16), "-1");
    }
    EXPECT_EQ(shown().upcoming.rows.size(), 6U);
}

TEST_F(DashboardViewTest, EntersAReminderInOneStep) {
    const UUID id = remind(day(2026, 3, 16), "-900", "Rent");
    const Library before = test.library();
    view.enter(id);
    ASSERT_EQ(test.library().transactions.size(), 1U);
    EXPECT_EQ(test.library().transactions[0].date, day(2026, 3, 16));
    EXPECT_EQ(test.library().scheduled[0].nextDate, day(2026, 4, 16));
    EXPECT_EQ(test.undoManager->undoActionName(), "Enter Rent");
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->text, "“Rent” entered");
    test.appState->notice()->action();
    EXPECT_EQ(test.library(), before);
}

TEST_F(DashboardViewTest, LeadsToTheScreenBehindACard) {
    view.show(SidebarItem::Kind::budget);
    EXPECT_EQ(test.appState->selection(), SidebarItem{SidebarItem::Kind::budget});
}

TEST_F(DashboardViewTest, MarksWhatIsUpcomingByWhatItIs) {
    remind(day(2026, 3, 16), "-1", "bill");
    remind(day(2026, 3, 16), "1", "income");
    edit([](Library& library) {
        ScheduledTransaction transfer = library.scheduled[0];
        transfer.id = UUID::random();
        transfer.payee = "transfer";
        transfer.transferAccountID = UUID::random();
        transfer.accountID = UUID::random();
        library.scheduled.push_back(transfer);
    });
    const auto& rows = shown().upcoming.rows;
    ASSERT_EQ(rows.size(), 3U);
    // Of one instant in the document's order.
    EXPECT_EQ(rows[0].payee, "bill");
    EXPECT_EQ(rows[0].mark.symbolName, "arrow.up.circle.fill");
    EXPECT_EQ(rows[1].mark.symbolName, "arrow.down.circle.fill");
    EXPECT_EQ(rows[2].mark.symbolName, "arrow.left.arrow.right.circle.fill");
    EXPECT_EQ(rows[2].detail, "Tomorrow");
}

TEST_F(DashboardViewTest, LeavesTheCardsAloneThatAnEditDoesNotTouch) {
    const UUID food = addCategory("Food");
    enter(day(2026, 3, 1), "-20", food);
    const auto before = view.content();
    test.clock.set(day(2026, 3, 15, 13));
    remind(day(2026, 3, 16), "-900");
    const auto after = view.content();
    EXPECT_EQ(before->netWorth, after->netWorth);
    EXPECT_EQ(before->cashFlow, after->cashFlow);
    EXPECT_EQ(before->spending, after->spending);
    EXPECT_EQ(before->recent, after->recent);
    EXPECT_NE(before->upcoming, after->upcoming);
}

} // namespace
} // namespace oakfen
