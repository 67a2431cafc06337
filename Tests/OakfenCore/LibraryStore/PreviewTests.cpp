#include <gtest/gtest.h>

#include "OakfenCore/LibraryIndex/Holdings.h"
#include "OakfenCore/SampleData/SampleData.h"
#include "Tests/OakfenCore/LibraryStore/StoreFixture.h"

namespace oakfen {
namespace {

class PreviewTest : public StoreTest {};

TEST_F(PreviewTest, IsOpenOnTheSampleHousehold) {
    const std::unique_ptr<LibraryStore> store = LibraryStore::preview(services());
    EXPECT_TRUE(store->accessState().isOpen());
    EXPECT_EQ(store->library().currencyCode, "CAD");
    const Library sample = SampleData::make(clock.now(), "CAD", clock.calendar());
    EXPECT_FALSE(sample.transactions.empty());
    EXPECT_EQ(store->library().transactions.size(), sample.transactions.size());
    EXPECT_EQ(store->library().accounts.size(), sample.accounts.size());
    EXPECT_EQ(store->index().library(), store->library());
}

TEST_F(PreviewTest, LivesInMemoryOnly) {
    const std::unique_ptr<LibraryStore> store = LibraryStore::preview(services());
    EXPECT_FALSE(store->filePath().has_value());
    addAccount(*store, "Savings");
    store->saveNow();
    scheduler.advance(1);
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_EQ(writeCount(), 0);
    EXPECT_TRUE(files.names("/home/user").empty());
}

TEST_F(PreviewTest, HoldsSecuritiesWithGainsAndOneLossAndCashThatWasThere) {
    for (int month = 1; month <= 12; ++month) {
        clock.set(clock.calendar().date({.year = 2026, .month = month, .day = 20, .hour = 9}));
        const std::unique_ptr<LibraryStore> store = LibraryStore::preview(services());
        const Account* tfsa = store->library().accounts.first(
            [](const Account& each) { return each.type == AccountType::brokerage; });
        ASSERT_NE(tfsa, nullptr);
        int gains = 0;
        int losses = 0;
        for (const Holding& holding : store->index().holdings(tfsa->id)) {
            gains += holding.gain().isPositive() ? 1 : 0;
            losses += holding.gain().isNegative() ? 1 : 0;
        }
        EXPECT_GE(gains, 2) << month;
        EXPECT_EQ(losses, 1) << month;
        EXPECT_FALSE(store->index().currentCash(tfsa->id).isNegative()) << month;
    }
}

class CatchUpTest : public StoreTest {
protected:
    /// One reminder that enters itself each week and fell due twice.
    [[nodiscard]] Library withOverdueReminder() const {
        constexpr double day = 86'400;
        Library library = withAccount("Chequing");
        ScheduledTransaction reminder;
        reminder.payee = "Rent";
        reminder.accountID = library.accounts[0].id;
        reminder.amount = Decimal(-10);
        reminder.frequency = Frequency::weekly;
        // Whole seconds, as a file keeps them.
        reminder.nextDate = Date::since1970(1'700'000'000).adding(-8 * day);
        reminder.autoEnter = true;
        library.scheduled.push_back(reminder);
        return library;
    }
};

TEST_F(CatchUpTest, EntersDueRemindersAtOpening) {
    const LibraryStore& store = openPlain(withOverdueReminder());
    EXPECT_EQ(store.library().transactions.size(), 2U);
    EXPECT_GT(store.library().scheduled[0].nextDate, clock.now());
    EXPECT_EQ(store.index().library(), store.library());
}

TEST_F(CatchUpTest, EntersThemBeforeThePasswordIsChosenToo) {
    files.addFile(path, encodeLibrary(withOverdueReminder()));
    const LibraryStore& store = open();
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_EQ(store.library().transactions.size(), 2U);
}

TEST_F(CatchUpTest, WritesNothing) {
    const LibraryStore& store = openPlain(withOverdueReminder());
    EXPECT_FALSE(store.hasUnsavedChanges());
    EXPECT_EQ(scheduler.waitingTimers(), 0U);
    scheduler.advance(10);
    EXPECT_EQ(writeCount(), 0);
    EXPECT_EQ(onDisk(), withOverdueReminder());
    EXPECT_FALSE(undo->canUndo());
}

TEST_F(CatchUpTest, ReachesTheDiskWithTheNextEdit) {
    LibraryStore& store = openPlain(withOverdueReminder());
    addAccount(store, "Savings");
    EXPECT_TRUE(store.hasUnsavedChanges());
    scheduler.advance(1);
    EXPECT_EQ(onDisk(), store.library());
    EXPECT_EQ(onDisk()->transactions.size(), 2U);
}

TEST_F(CatchUpTest, IsNotTakenBackByUndoingTheFirstEdit) {
    LibraryStore& store = openPlain(withOverdueReminder());
    addAccount(store, "Savings");
    undo->undo();
    EXPECT_EQ(store.library().transactions.size(), 2U);
    EXPECT_FALSE(undo->canUndo());
}

TEST_F(CatchUpTest, EntersNothingWhenLoadingAgain) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    files.addFile(path, encodeLibrary(withOverdueReminder()));
    store.retryLoading();
    EXPECT_EQ(store.library(), withOverdueReminder());
}

} // namespace
} // namespace oakfen
