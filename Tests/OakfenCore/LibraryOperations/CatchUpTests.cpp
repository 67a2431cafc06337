// Catching up is told by what entering one reminder after the other comes to, each time with a look
// through the whole ledger. Whatever way is taken instead must come to the same.
#include <gtest/gtest.h>

#include <map>

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Generators/RandomLibrary.h"

namespace oakfen {
namespace {

using testing::RandomLibrary;

const Calendar calendar = *Calendar::inZone("America/Toronto");

std::optional<Transaction> naiveEnter(Library& library, const UUID& id,
                                      const std::optional<Decimal>& amount,
                                      const std::optional<Date>& date) {
    const ScheduledTransaction* reminder = library.scheduled.first(
        [&](const ScheduledTransaction& candidate) { return candidate.id == id; });
    if (reminder == nullptr) {
        return std::nullopt;
    }
    Transaction entry;
    entry.id = UUID::random();
    entry.accountID = reminder->accountID;
    entry.payee = reminder->payee;
    entry.memo = reminder->memo;
    entry.categoryID = reminder->categoryID;
    entry.transferAccountID = reminder->transferAccountID;
    entry.date = date ? *date : reminder->nextDate;
    entry.amount = amount ? *amount : reminder->amount;
    upsert(library, entry);
    skipScheduled(library, id, calendar);
    return entry;
}

std::size_t naiveCatchUp(Library& library, Date now) {
    const Date cutoff = calendar.endOfDay(now);
    std::size_t count = 0;
    while (true) {
        const ScheduledTransaction* due =
            library.scheduled.first([&](const ScheduledTransaction& candidate) {
                return candidate.autoEnter && candidate.nextDate <= cutoff;
            });
        if (due == nullptr || count == 1000) {
            return count;
        }
        naiveEnter(library, UUID(due->id), std::nullopt, std::nullopt);
        ++count;
    }
}

/// Gives each id that is in none of the entries so far the next number, in the order in which they
/// come, so that documents are equal when they differ in such ids alone.
class Numbering {
public:
    explicit Numbering(const Library& before) {
        for (const Transaction& entry : before.transactions) {
            known_.emplace(entry.id, entry.id);
        }
    }

    Transaction numbered(Transaction entry) {
        entry.id = numbered(entry.id);
        if (entry.transferID) {
            entry.transferID = numbered(*entry.transferID);
        }
        return entry;
    }

    Library numbered(Library library) {
        for (std::size_t index = 0; index < library.transactions.size(); ++index) {
            library.transactions.edit(index) = numbered(library.transactions[index]);
        }
        return library;
    }

private:
    UUID numbered(const UUID& id) {
        UUID next;
        next.bytes[0] = static_cast<unsigned char>(known_.size() % 256);
        next.bytes[1] = static_cast<unsigned char>(known_.size() / 256);
        return known_.emplace(id, next).first->second;
    }

    std::map<UUID, UUID> known_;
};

Library numberedAfter(const Library& before, const Library& after) {
    return Numbering(before).numbered(after);
}

/// A document with reminders as no editor would make them: many long overdue, some of them
/// transfers into their own account, some with an id that another one has.
Library withOddReminders(RandomLibrary& random) {
    Library library = random.make(random.below(60));
    for (std::size_t count = random.below(8); count > 0; --count) {
        ScheduledTransaction reminder{.id = random.id(),
                                      .payee = random.text(),
                                      .accountID = library.accounts[0].id,
                                      .amount = random.amount(),
                                      .memo = random.text(),
                                      .frequency = random.any<Frequency>(),
                                      .nextDate = random.date(),
                                      .autoEnter = !random.chance(3)};
        if (random.chance(2)) {
            reminder.transferAccountID = library.accounts[random.below(2)].id;
        }
        if (random.chance(3) && !library.scheduled.empty()) {
            reminder.id = library.scheduled[random.below(library.scheduled.size())].id;
        }
        if (random.chance(3)) {
            reminder.endDate = random.date();
        }
        library.scheduled.push_back(std::move(reminder));
    }
    return library;
}

TEST(CatchUp, ComesToWhatEnteringOneAfterTheOtherComesTo) {
    std::size_t entered = 0;
    for (std::uint64_t seed = 0; seed < 150; ++seed) {
        RandomLibrary random(seed);
        const Library before = withOddReminders(random);
        const Date now = random.date();
        Library expected = before;
        Library library = before;
        const std::size_t count = naiveCatchUp(expected, now);
        ASSERT_EQ(processAutoEnter(library, now, calendar), count) << "seed " << seed;
        ASSERT_EQ(numberedAfter(before, library), numberedAfter(before, expected))
            << "seed " << seed;
        entered += count;
    }
    EXPECT_GT(entered, 10'000U);
}

TEST(CatchUp, OfOneReminderComesToWhatTheLongWayComesTo) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        RandomLibrary random(seed);
        const Library before = withOddReminders(random);
        if (before.scheduled.empty()) {
            continue;
        }
        const UUID id = before.scheduled[random.below(before.scheduled.size())].id;
        const auto amount = random.chance(2) ? std::optional(random.amount()) : std::nullopt;
        const auto date = random.chance(2) ? std::optional(random.date()) : std::nullopt;
        Library expected = before;
        Library library = before;
        const Transaction wanted = naiveEnter(expected, id, amount, date).value();
        const Transaction entry = enterScheduled(library, id, amount, date, calendar).value();
        ASSERT_FALSE(entry.transferID) << "seed " << seed;
        ASSERT_EQ(Numbering(before).numbered(entry), Numbering(before).numbered(wanted));
        ASSERT_EQ(numberedAfter(before, library), numberedAfter(before, expected))
            << "seed " << seed;
    }
}

TEST(CatchUp, GivesEachEntryAndEachLegAnIDOfItsOwn) {
    RandomLibrary random(7);
    Library library = withOddReminders(random);
    const Date now = random.date();
    std::size_t entered = 0;
    while (const std::size_t more = processAutoEnter(library, now, calendar)) {
        entered += more;
    }
    EXPECT_GT(entered, 0U);
    UUIDSet ids;
    for (const Transaction& entry : library.transactions) {
        EXPECT_TRUE(ids.insert(entry.id).second);
    }
    for (const Transaction& entry : library.transactions) {
        EXPECT_TRUE(!entry.transferID || ids.contains(*entry.transferID));
    }
}

TEST(AppendNew, AddsAnEntryAsUpsertDoes) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        RandomLibrary random(seed);
        const Library before = random.make(20);
        Transaction entry = before.transactions[random.below(before.transactions.size())];
        entry.id = random.id();
        entry.transferID.reset();
        if (random.chance(4)) {
            entry.transferAccountID = entry.accountID;
        }
        Library expected = before;
        Library library = before;
        upsert(expected, entry);
        appendNew(library, entry);
        ASSERT_EQ(numberedAfter(before, library), numberedAfter(before, expected))
            << "seed " << seed;
    }
}

} // namespace
} // namespace oakfen
