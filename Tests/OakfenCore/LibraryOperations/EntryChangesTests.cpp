#include "OakfenCore/LibraryOperations/EntryChanges.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::day;
using testing::makeTransaction;
using testing::RandomLibrary;

class EntryChangesTest : public ::testing::Test {
protected:
    Transaction store(Transaction entry) {
        upsert(library, entry);
        return stored(entry.id);
    }
    [[nodiscard]] Transaction stored(const UUID& id) const {
        return *library.transactions.first(
            [&](const Transaction& candidate) { return candidate.id == id; });
    }

    const UUID a = UUID::random();
    const UUID b = UUID::random();
    Library library{.currencyCode = "CAD"};
};

TEST_F(EntryChangesTest, ChangesWhatIsNamedAndLeavesTheRest) {
    Transaction shop = makeTransaction(a, day(2024, 3, 1), "Metro", "-5");
    shop.memo = "Milk";
    shop.tags = {"food"};
    shop.cleared = ClearedState::reconciled;
    shop.checkNumber = "12";
    store(shop);
    const Transaction other = store(makeTransaction(a, day(2024, 3, 2), "Fuel", "-9"));
    changeEntries(library, {.payee = "Metro Inc."}, {shop.id, UUID::random()});
    shop.payee = "Metro Inc.";
    EXPECT_EQ(stored(shop.id), shop);
    EXPECT_EQ(stored(other.id), other);
}

TEST_F(EntryChangesTest, EmptiesMemoAndTags) {
    Transaction shop = makeTransaction(a, day(2024, 3, 1), "Metro", "-5");
    shop.memo = "Milk";
    shop.tags = {"food"};
    store(shop);
    changeEntries(library, {.memo = "", .tags = std::vector<std::string>()}, {shop.id});
    EXPECT_EQ(stored(shop.id).memo, "");
    EXPECT_TRUE(stored(shop.id).tags.empty());
}

TEST_F(EntryChangesTest, LetsTheOtherLegFollowInAllButItsTags) {
    Transaction leg = makeTransaction(a, day(2024, 3, 1), "Savings", "-5");
    leg.transferAccountID = b;
    const Transaction twin = stored(*store(leg).transferID);
    changeEntries(library,
                  {.payee = "Nest Egg",
                   .memo = "March",
                   .tags = std::vector<std::string>{"plan"},
                   .date = [](Date) { return day(2024, 3, 9); }},
                  {leg.id});
    EXPECT_EQ(stored(leg.id).tags, (std::vector<std::string>{"plan"}));
    Transaction expected = twin;
    expected.payee = "Nest Egg";
    expected.memo = "March";
    expected.date = day(2024, 3, 9);
    EXPECT_EQ(stored(twin.id), expected);
    EXPECT_EQ(stored(leg.id).date, day(2024, 3, 9));
}

TEST_F(EntryChangesTest, LeavesTheLinesOfASplitEntryAsTheyAre) {
    Transaction shop = makeTransaction(a, day(2024, 3, 1), "Metro", "0");
    shop.splits = {{.id = UUID::random(), .memo = "Milk", .amount = Decimal::cents(-300)},
                   {.id = UUID::random(), .memo = "Soap", .amount = Decimal()}};
    const Transaction before = store(shop);
    changeEntries(library, {.memo = "Weekly"}, {shop.id});
    EXPECT_EQ(stored(shop.id).splits, before.splits);
    EXPECT_EQ(stored(shop.id).amount, before.amount);
}

TEST_F(EntryChangesTest, SharesWhatStaysTheSame) {
    store(makeTransaction(a, day(2024, 3, 1), "Metro", "-5"));
    const Library before = library;
    UUIDSet ids{library.transactions[0].id};
    changeEntries(library, {.payee = "Metro", .date = [](Date date) { return date; }}, ids);
    EXPECT_EQ(library, before);
}

/// Part by part as one entry is edited by itself.
void changeOneByOne(Library& library, const EntryChanges& changes, const UUIDSet& ids) {
    std::vector<UUID> ordered;
    for (const Transaction& entry : library.transactions) {
        if (ids.contains(entry.id)) {
            ordered.push_back(entry.id);
        }
    }
    for (const UUID& id : ordered) {
        Transaction entry = *library.transactions.first(
            [&](const Transaction& candidate) { return candidate.id == id; });
        entry.payee = changes.payee.value_or(entry.payee);
        entry.memo = changes.memo.value_or(entry.memo);
        entry.tags = changes.tags.value_or(entry.tags);
        entry.date = changes.date ? changes.date(entry.date) : entry.date;
        upsert(library, entry);
    }
}

TEST_F(EntryChangesTest, AreThoseOfEachEntryEditedAlone) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        RandomLibrary random(seed);
        library = random.make(60);
        UUIDSet ids{random.id()};
        for (const Transaction& entry : library.transactions) {
            if (random.chance(3)) {
                ids.insert(entry.id);
            }
        }
        EntryChanges changes;
        if (random.chance(2)) {
            changes.payee = random.text();
        }
        if (random.chance(2)) {
            changes.memo = random.text();
        }
        if (random.chance(2)) {
            changes.tags = std::vector<std::string>{random.text(), random.text()};
        }
        if (random.chance(2)) {
            changes.date = [to = random.date()](Date) { return to; };
        }
        Library expected = library;
        changeOneByOne(expected, changes, ids);
        changeEntries(library, changes, ids);
        ASSERT_EQ(library, expected) << seed;
    }
}

} // namespace
} // namespace oakfen
