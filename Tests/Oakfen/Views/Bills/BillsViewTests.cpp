#include "Oakfen/Views/Bills/BillsView.h"

#include <gtest/gtest.h>

#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::makeCategory;

class Bills : public ::testing::Test {
protected:
    Bills() {
        everyday.lowBalanceAlert = amount("500");
        everyday.openingBalance = amount("1000");
        test.store->mutate("Add", [this](Library& library) {
            library.accounts = {visa, savings, everyday};
            library.categories = {hobbies};
        });
        test.undoManager->removeAllActions();
    }

    ScheduledTransaction add(std::string payee, std::string_view money, Date due,
                             Frequency frequency = Frequency::monthly) {
        ScheduledTransaction reminder{.id = UUID::random(),
                                      .payee = std::move(payee),
                                      .accountID = everyday.id,
                                      .amount = amount(money),
                                      .frequency = frequency,
                                      .nextDate = due};
        store(reminder);
        return reminder;
    }
    void store(const ScheduledTransaction& reminder) {
        test.store->mutate("Add", [&](Library& library) { library.scheduled.push_back(reminder); });
        test.undoManager->removeAllActions();
    }
    [[nodiscard]] std::string rows(const BillsView& view) const {
        std::string text;
        for (const BillsContent::Day& each : view.content()->days) {
            for (const BillsContent::Row& row : each.rows) {
                text += row.payee + (row.isNext ? "! " : " ");
            }
        }
        return text;
    }
    [[nodiscard]] std::string figures(const BillsView& view) const {
        std::string text;
        for (const BillsContent::Figure& each : view.content()->figures) {
            text += each.money.text + " ";
        }
        return text;
    }

    LocaleForTest locale{"en_CA"};
    testing::TestEnvironment test;
    Account visa = makeAccount("Visa", AccountType::creditCard);
    Account savings = makeAccount("Savings", AccountType::savings);
    Account everyday = makeAccount("Everyday");
    Category hobbies = makeCategory("Hobbies");
};

TEST_F(Bills, SumsWhatIsDueWithinTheHorizon) {
    add("Rent", "-1200", day(2026, 3, 20));
    add("Pay", "2000.50", day(2026, 3, 21), Frequency::biweekly);
    BillsView view(*test);
    EXPECT_EQ(figures(view), "$1,200.00 $4,001.00 $2,801.00 ");
    const auto& shown = view.content()->figures;
    EXPECT_EQ(shown[0].title, "Bills Due");
    EXPECT_EQ(shown[0].note, "Next 30 days");
    EXPECT_EQ(shown[0].money.tone, TextTone::warning);
    EXPECT_EQ(shown[1].title, "Expected Income");
    EXPECT_EQ(shown[1].note, "Next 30 days");
    EXPECT_EQ(shown[1].money.tone, TextTone::positive);
    EXPECT_EQ(shown[2].title, "Net");
    EXPECT_EQ(shown[2].note, "Income less bills");
}

TEST_F(Bills, TheHorizonChangesTotalsChartAndListTogether) {
    add("Rent", "-100", day(2026, 3, 20));
    BillsView view(*test);
    int told = 0;
    const Subscription subscription = view.changed.observe([&] { ++told; });
    EXPECT_EQ(rows(view), "Rent! ");
    view.setHorizonDays(90);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(rows(view), "Rent! Rent Rent ");
    EXPECT_EQ(figures(view), "$300.00 $0.00 -$300.00 ");
    EXPECT_EQ(view.content()->projection.chart.places.size(), 91U);
    EXPECT_EQ(view.content()->figures[0].note, "Next 90 days");
    view.setHorizonDays(14);
    EXPECT_EQ(view.content()->projection.chart.places.size(), 15U);
}

TEST_F(Bills, GroupsByDayAndSetsOverdueDaysOff) {
    add("Late", "-10", day(2026, 3, 12), Frequency::once);
    add("Now", "-10", day(2026, 3, 15, 23), Frequency::once);
    add("Soon", "-10", day(2026, 3, 16, 8), Frequency::once);
    add("Soon too", "-10", day(2026, 3, 16, 9), Frequency::once);
    add("Later", "-10", day(2026, 3, 18), Frequency::once);
    const BillsView view(*test);
    const auto& days = view.content()->days;
    ASSERT_EQ(days.size(), 4U);
    EXPECT_EQ(days[0].title, "Thursday, March 12");
    EXPECT_TRUE(days[0].isOverdue);
    EXPECT_EQ(days[0].relative, "3 days overdue");
    EXPECT_FALSE(days[1].isOverdue);
    EXPECT_EQ(days[1].relative, "Today");
    EXPECT_EQ(days[2].rows.size(), 2U);
    EXPECT_EQ(days[2].relative, "Tomorrow");
    EXPECT_EQ(days[3].relative, "");
}

TEST_F(Bills, TellsOfEachOccurrenceWhereItBelongs) {
    ScheduledTransaction hobby = add("Arts Centre", "-185", day(2026, 3, 20), Frequency::once);
    test.store->mutate("Edit", [&](Library& library) {
        library.scheduled.edit(0).categoryID = hobbies.id;
        library.scheduled.edit(0).autoEnter = true;
    });
    ScheduledTransaction transfer = hobby;
    transfer.id = UUID::random();
    transfer.transferAccountID = savings.id;
    transfer.frequency = Frequency::monthly;
    store(transfer);
    ScheduledTransaction stray = hobby;
    stray.id = UUID::random();
    stray.accountID = UUID::random();
    stray.categoryID.reset();
    stray.amount = amount("5");
    store(stray);
    const BillsView view(*test);
    const auto& shown = view.content()->days.front().rows;
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0].subtitle, "Everyday · Hobbies · Once · Auto-enter");
    EXPECT_EQ(shown[0].mark.symbolName, "arrow.up.circle.fill");
    EXPECT_EQ(shown[0].amount, (MoneyText{"-$185.00", TextTone::primary}));
    EXPECT_EQ(shown[1].subtitle, "Everyday · Transfer → Savings · Monthly");
    EXPECT_EQ(shown[1].mark.symbolName, "arrow.left.arrow.right.circle.fill");
    EXPECT_EQ(shown[2].subtitle, " · Uncategorized · Once");
    EXPECT_EQ(shown[2].mark.symbolName, "arrow.down.circle.fill");
    EXPECT_EQ(shown[2].amount, (MoneyText{"$5.00", TextTone::positive}));
}

TEST_F(Bills, EntersTheNextOccurrenceAsOneStep) {
    const ScheduledTransaction rent = add("Rent", "-100", day(2026, 3, 20));
    const Library before = test.library();
    BillsView view(*test);
    view.enter(rent.id);
    ASSERT_EQ(test.library().transactions.size(), 1U);
    EXPECT_EQ(test.library().transactions.front().date, day(2026, 3, 20));
    EXPECT_EQ(test.library().scheduled.front().nextDate, day(2026, 4, 20));
    EXPECT_EQ(test.undoManager->undoActionName(), "Enter Rent");
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
    EXPECT_EQ(rows(view), "Rent! ");
}

TEST_F(Bills, SkippingAReminderThatComesOnceRemovesIt) {
    const ScheduledTransaction once = add("Once", "-100", day(2026, 3, 20), Frequency::once);
    const Library before = test.library();
    BillsView view(*test);
    view.skip(once.id);
    EXPECT_TRUE(view.content()->days.empty());
    EXPECT_TRUE(view.content()->reminders.empty());
    EXPECT_TRUE(test.library().transactions.empty());
    EXPECT_EQ(test.undoManager->undoActionName(), "Skip Once");
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
}

TEST_F(Bills, OffersToEnterOnlyTheNextOccurrence) {
    const ScheduledTransaction rent = add("Rent", "-100", day(2026, 3, 20));
    BillsView view(*test);
    const auto titles = [&](bool isNext) {
        std::string text;
        for (const MenuEntry& entry : view.contextMenu(rent.id, isNext)) {
            text += entry.title + "|";
        }
        return text;
    };
    EXPECT_EQ(titles(true), "Edit Reminder…|Enter…|");
    EXPECT_EQ(titles(false), "Edit Reminder…|");
    view.contextMenu(rent.id, true).at(1).perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::EnterReminder{rent.id}));
    test.appState->setSheet(std::nullopt);
    view.contextMenu(rent.id, true).at(0).perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::Scheduled{.id = rent.id}));
    test.appState->setSheet(std::nullopt);
    view.newReminder();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::Scheduled{}));
}

TEST_F(Bills, ListsAllRemindersByPayeeWhateverTheirCaseAndHorizon) {
    add("zoo", "-1", day(2027, 3, 20));
    add("Éclair", "-1", day(2026, 3, 20));
    add("apple", "5", day(2026, 3, 22), Frequency::yearly);
    add("Bank", "-1", day(2026, 3, 21));
    const BillsView view(*test);
    std::string order;
    for (const BillsContent::Reminder& each : view.content()->reminders) {
        order += each.payee + " ";
    }
    EXPECT_EQ(order, "apple Bank Éclair zoo ");
    const BillsContent::Reminder& first = view.content()->reminders.front();
    EXPECT_EQ(first.account, "Everyday");
    EXPECT_EQ(first.frequency, "Yearly");
    EXPECT_EQ(first.nextDue, "03/22/2026");
    EXPECT_EQ(first.amount, (MoneyText{"$5.00", TextTone::positive}));
    EXPECT_EQ(view.content()->reminderCount, "4");
}

TEST_F(Bills, ProjectsTheFirstOpenBankingAccountUntilAnotherIsChosen) {
    BillsView view(*test);
    EXPECT_EQ(view.forecastAccountID(), everyday.id);
    EXPECT_EQ(view.content()->projection.accountID, everyday.id);
    ASSERT_TRUE(view.content()->projection.chart.rule);
    EXPECT_EQ(view.content()->projection.chart.rule->name, "Low balance");
    EXPECT_EQ(view.content()->projection.chart.rule->label, "Low-balance alert");
    view.setForecastAccountID(visa.id);
    EXPECT_EQ(view.content()->projection.accountID, visa.id);
    EXPECT_FALSE(view.content()->projection.chart.rule);
}

TEST_F(Bills, DrawsNoForecastWithoutABankingAccount) {
    test.store->mutate("Remove", [this](Library& library) { library.accounts = {visa}; });
    BillsView view(*test);
    EXPECT_FALSE(view.forecastAccountID());
    EXPECT_FALSE(view.content()->projection.accountID);
    EXPECT_TRUE(view.content()->projection.chart.places.empty());
    view.setForecastAccountID(visa.id);
    EXPECT_FALSE(view.content()->projection.chart.places.empty());
}

TEST_F(Bills, ComesBackToTheFirstAccountWhenTheProjectedOneIsGone) {
    BillsView view(*test);
    view.setForecastAccountID(savings.id);
    test.store->mutate("Remove", [this](Library& library) {
        library.accounts.eraseIf([this](const Account& each) { return each.id == savings.id; });
    });
    EXPECT_EQ(view.content()->projection.accountID, everyday.id);
}

TEST_F(Bills, NamesTheLowestPointAndWhatMovesADay) {
    add("Rent", "-100", day(2026, 3, 20), Frequency::once);
    add("Pay", "300", day(2026, 3, 25), Frequency::once);
    const BillsView view(*test);
    const PlotChart& chart = view.content()->projection.chart;
    ASSERT_EQ(chart.lines.size(), 1U);
    EXPECT_EQ(chart.lines[0].series.name, "Balance");
    ASSERT_TRUE(chart.lines[0].mark);
    EXPECT_EQ(chart.lines[0].mark->place, 5U);
    EXPECT_EQ(chart.lines[0].mark->label, "Lowest $900.00 · Mar 20");
    EXPECT_EQ(chart.places[0].label, "Today");
    EXPECT_EQ(chart.places[5].label, "Mar 20");
    EXPECT_EQ(chart.places[5].title, "Friday, March 20");
    ASSERT_EQ(chart.places[5].notes.size(), 1U);
    EXPECT_EQ(chart.places[5].notes[0].title, "Rent");
    EXPECT_EQ(chart.places[5].notes[0].amount.text, "-$100.00");
    EXPECT_EQ(chart.places[10].notes[0].amount.text, "+$300.00");
    EXPECT_EQ(chart.lines[0].series.values[10].text, "$1,200.00");
}

TEST_F(Bills, TriesEntriesOutWithoutEverStoringThem) {
    add("Rent", "-100", day(2026, 3, 20), Frequency::once);
    const Library before = test.library();
    BillsView view(*test);
    view.setTriesOut(true);
    EXPECT_EQ(view.content()->projection.chart.lines.size(), 2U);
    const UUID id = view.addTriedEntry();
    ASSERT_EQ(view.content()->projection.tried.size(), 1U);
    EXPECT_EQ(view.content()->projection.tried[0].name, "New entry");
    view.changeTriedEntry(
        {.id = id, .name = "New sofa", .amount = amount("-700"), .date = day(2026, 3, 18)});
    const BillsContent::Projection& shown = view.content()->projection;
    EXPECT_EQ(shown.tried[0].name, "New sofa");
    EXPECT_EQ(shown.tried[0].day, "Mar 18");
    EXPECT_EQ(shown.tried[0].frequency, "Once");
    EXPECT_EQ(shown.tried[0].amount.text, "-$700.00");
    EXPECT_EQ(shown.lowestPlanned, "$900.00");
    EXPECT_EQ(shown.lowestTried, "$200.00");
    EXPECT_TRUE(shown.chart.lines[1].isDashed);
    EXPECT_EQ(shown.chart.places[3].notes.at(0).dot, ChartColor::orange);
    view.setTriesOut(false);
    EXPECT_EQ(view.content()->projection.chart.lines.size(), 1U);
    EXPECT_TRUE(view.content()->projection.tried.empty());
    view.setTriesOut(true);
    EXPECT_EQ(view.content()->projection.tried.size(), 1U) << "is still there";
    view.removeTriedEntry(id);
    view.changeTriedEntry({.id = id, .name = "Gone"});
    EXPECT_TRUE(view.content()->projection.tried.empty());
    EXPECT_EQ(test.library(), before);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Bills, FollowsTheDay) {
    add("Rent", "-100", day(2026, 3, 16, 0), Frequency::once);
    BillsView view(*test);
    EXPECT_FALSE(view.content()->days.at(0).isOverdue);
    test.clock.set(day(2026, 3, 17, 1));
    test->dayChange.check();
    EXPECT_TRUE(view.content()->days.at(0).isOverdue);
    EXPECT_EQ(view.content()->projection.chart.places.at(0).title, "Tuesday, March 17");
}

TEST_F(Bills, SaysWhatToDoWhereNothingIsDue) {
    const BillsView view(*test);
    EXPECT_TRUE(view.content()->days.empty());
    EXPECT_EQ(BillsView::emptyState().title, "No Upcoming Bills");
    EXPECT_EQ(BillsView::emptyState().text,
              "Add reminders for recurring bills, paycheques and transfers.");
}

TEST_F(Bills, ListsALongOverdueReminderByPartsAndCountsItWhole) {
    add("Gym", "-1", day(2016, 3, 16), Frequency::weekly);
    BillsView view(*test);
    const auto listed = [&] {
        std::size_t count = 0;
        for (const BillsContent::Day& each : view.content()->days) {
            count += each.rows.size();
        }
        return count;
    };
    EXPECT_EQ(listed(), BillsView::rowsAtOnce);
    EXPECT_EQ(view.content()->hiddenCount, 300U);
    EXPECT_EQ(view.content()->figures[0].money.text, "$500.00");
    EXPECT_EQ(view.content()->projection.chart.lines[0].series.values[0].text, "$500.00");
    view.showMore();
    EXPECT_EQ(listed(), 2 * BillsView::rowsAtOnce);
    view.showMore();
    EXPECT_EQ(listed(), 500U);
    EXPECT_EQ(view.content()->hiddenCount, 0U);
    view.setHorizonDays(14);
    EXPECT_EQ(listed(), BillsView::rowsAtOnce) << "begins anew";
}

TEST_F(Bills, ListsBothRemindersOfOneID) {
    const ScheduledTransaction rent = add("Rent", "-100", day(2026, 3, 20), Frequency::once);
    ScheduledTransaction twin = rent;
    twin.payee = "Twin";
    store(twin);
    const BillsView view(*test);
    EXPECT_EQ(rows(view), "Rent! Twin! ");
    EXPECT_EQ(view.content()->reminderCount, "2");
}

TEST_F(Bills, ListsRemindersOfOnePayeeInTheDocumentsOrder) {
    add("Rent", "-3", day(2026, 3, 20));
    add("Apple", "-9", day(2026, 3, 20));
    add("Rent", "-1", day(2026, 3, 18));
    add("Rent", "-2", day(2026, 3, 19));
    const BillsView view(*test);
    std::string order;
    for (const BillsContent::Reminder& each : view.content()->reminders) {
        order += each.amount.text + " ";
    }
    EXPECT_EQ(order, "-$9.00 -$3.00 -$1.00 -$2.00 ");
}

TEST_F(Bills, NamesNoDestinationThatIsUnknown) {
    ScheduledTransaction transfer = add("Save", "-5", day(2026, 3, 20), Frequency::once);
    test.store->mutate("Edit", [&](Library& library) {
        library.scheduled.edit(0).transferAccountID = UUID::random();
    });
    const BillsView view(*test);
    EXPECT_EQ(view.content()->days.at(0).rows.at(0).subtitle, "Everyday · Transfer →  · Once");
}

TEST_F(Bills, MarksTheSumsByTheirDirection) {
    const BillsView view(*test);
    const auto& shown = view.content()->figures;
    EXPECT_EQ(shown[0].symbolName, "arrow.up.circle");
    EXPECT_EQ(shown[0].note, "Next 30 days");
    EXPECT_EQ(shown[1].symbolName, "arrow.down.circle");
    EXPECT_EQ(shown[1].note, "Next 30 days");
    EXPECT_EQ(shown[2].symbolName, "");
    EXPECT_EQ(shown[2].note, "Income less bills");
}

} // namespace
} // namespace oakfen
