#include <algorithm>
#include <random>

#include "OakfenCore/Importers/DuplicateFinder.h"
#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::day;
using testing::entry;
using testing::importedLine;
using testing::pointers;
using testing::toronto;

namespace {

bool isDuplicateOf(const ImportedTransaction& item, const Transaction& existing) {
    const Transaction* const entries[] = {&existing};
    return isDuplicate(item, entries, toronto());
}

Transaction withImportID(Transaction transaction, std::string importID) {
    transaction.importID = std::move(importID);
    return transaction;
}

ImportedTransaction withImportID(ImportedTransaction item, std::string importID) {
    item.importID = std::move(importID);
    return item;
}

const UUID account = UUID::random();

} // namespace

TEST(IsDuplicate, FindsNothingAmongNoEntries) {
    EXPECT_FALSE(isDuplicate(importedLine(day(2024, 3, 1), "Shop", "-4.50"), {}, toronto()));
}

TEST(IsDuplicate, KnowsABankIDWhateverElseDiffers) {
    EXPECT_TRUE(isDuplicateOf(withImportID(importedLine(day(2024, 3, 1), "Shop", "-4.50"), "7"),
                              withImportID(entry(account, day(2020, 1, 1), "Pay", "9"), "7")));
}

TEST(IsDuplicate, ComparesBankIDsExactly) {
    EXPECT_FALSE(isDuplicateOf(withImportID(importedLine(day(2024, 3, 1), "Shop", "-4.50"), "a"),
                               withImportID(entry(account, day(2020, 1, 1), "Pay", "9"), "A")));
}

TEST(IsDuplicate, TakesAnEmptyBankIDForNone) {
    EXPECT_FALSE(isDuplicateOf(withImportID(importedLine(day(2024, 3, 1), "Shop", "-4.50"), ""),
                               withImportID(entry(account, day(2020, 1, 1), "Pay", "9"), "")));
}

TEST(IsDuplicate, IsNotPreventedByANewBankID) {
    EXPECT_TRUE(isDuplicateOf(withImportID(importedLine(day(2024, 3, 1), "Shop", "-4.50"), "8"),
                              withImportID(entry(account, day(2024, 3, 1), "Shop", "-4.50"), "7")));
    EXPECT_TRUE(isDuplicateOf(importedLine(day(2024, 3, 1), "Shop", "-4.50"),
                              withImportID(entry(account, day(2024, 3, 1), "Shop", "-4.50"), "7")));
}

TEST(IsDuplicate, ReachesThreeDaysInBothDirections) {
    const Transaction existing = entry(account, day(2024, 3, 10), "Shop", "-4.50");
    for (int dayOfMonth = 1; dayOfMonth <= 20; ++dayOfMonth) {
        EXPECT_EQ(isDuplicateOf(importedLine(day(2024, 3, dayOfMonth), "Shop", "-4.50"), existing),
                  dayOfMonth >= 7 && dayOfMonth <= 13)
            << dayOfMonth;
    }
}

TEST(IsDuplicate, CountsElapsedDays) {
    const Transaction existing =
        entry(account, toronto().date({2024, 3, 14, 12, 0, 0}), "Shop", "-4.50");
    EXPECT_TRUE(isDuplicateOf(importedLine(day(2024, 3, 18), "Shop", "-4.50"), existing));
    EXPECT_FALSE(isDuplicateOf(importedLine(day(2024, 3, 10), "Shop", "-4.50"), existing));
}

TEST(IsDuplicate, ComparesPayeesWithoutRegardToCaseOnly) {
    const Transaction existing = entry(account, day(2024, 3, 1), "Café Élan", "-4.50");
    EXPECT_TRUE(isDuplicateOf(importedLine(day(2024, 3, 1), "CAFÉ éLAN", "-4.50"), existing));
    EXPECT_FALSE(isDuplicateOf(importedLine(day(2024, 3, 1), "Cafe Elan", "-4.50"), existing));
    EXPECT_FALSE(isDuplicateOf(importedLine(day(2024, 3, 1), " Café Élan", "-4.50"), existing));
}

TEST(IsDuplicate, MatchesTwoEmptyPayees) {
    EXPECT_TRUE(isDuplicateOf(importedLine(day(2024, 3, 1), "", "-4.50"),
                              entry(account, day(2024, 3, 1), "", "-4.50")));
}

TEST(IsDuplicate, ComparesAmountsExactly) {
    const Transaction existing = entry(account, day(2024, 3, 1), "Shop", "-4.50");
    EXPECT_TRUE(isDuplicateOf(importedLine(day(2024, 3, 1), "Shop", "-4.5000"), existing));
    EXPECT_FALSE(isDuplicateOf(importedLine(day(2024, 3, 1), "Shop", "4.50"), existing));
    EXPECT_FALSE(isDuplicateOf(importedLine(day(2024, 3, 1), "Shop", "-4.51"), existing));
}

TEST(DuplicateFinder, GivesTheNearestMatchingEntry) {
    const std::vector<Transaction> entries = {
        entry(account, day(2024, 3, 9), "Shop", "-4.50"),
        entry(account, day(2024, 3, 4), "Shop", "-4.50"),
        entry(account, day(2024, 3, 3), "Shop", "-4.50"),
        entry(account, day(2024, 3, 4), "shop", "-4.50"),
    };
    const auto existing = pointers(entries);
    const DuplicateFinder finder(existing, toronto());
    const auto match = [&](Date date, std::string_view amount) {
        return finder.match(importedLine(date, "SHOP", amount));
    };
    EXPECT_EQ(match(day(2024, 3, 2), "-4.50"), &entries[2]);
    EXPECT_EQ(match(day(2024, 3, 4), "-4.50"), &entries[1]);
    EXPECT_EQ(match(day(2024, 3, 6), "-4.50"), &entries[1]);
    EXPECT_EQ(match(day(2024, 3, 7), "-4.50"), &entries[0]);
    EXPECT_EQ(match(day(2024, 3, 10), "-4.50"), &entries[0]);
    EXPECT_EQ(match(day(2024, 3, 13), "-4.50"), nullptr);
    EXPECT_EQ(match(day(2024, 3, 4), "-4.51"), nullptr);
}

TEST(DuplicateFinder, PrefersTheEntryOfTheSameBankIDToOneThatLooksAlike) {
    const std::vector<Transaction> entries = {
        withImportID(entry(account, day(2024, 3, 3), "Coffee", "-3"), "1"),
        withImportID(entry(account, day(2024, 3, 4), "Coffee", "-3"), "2"),
        withImportID(entry(account, day(2020, 1, 1), "Pay", "9"), "2"),
    };
    const auto existing = pointers(entries);
    const DuplicateFinder finder(existing, toronto());
    const auto match = [&](std::string id) {
        return finder.match(withImportID(importedLine(day(2024, 3, 3), "Coffee", "-3"), id));
    };
    EXPECT_EQ(match("1"), &entries[0]);
    EXPECT_EQ(match("2"), &entries[1]);
    EXPECT_EQ(match("3"), &entries[0]);
}

TEST(DuplicateFinder, FindsItsWayThroughManyEntriesThatLookAlike) {
    // One of a kind every ten seconds: a search that walked through them would take minutes.
    constexpr int count = 50'000;
    std::vector<Transaction> entries(count, entry(account, day(2024, 3, 1), "Shop", "-1"));
    for (int each = 0; each < count; ++each) {
        entries[static_cast<std::size_t>(each)].date = day(2024, 3, 1).adding(10.0 * each);
    }
    const auto existing = pointers(entries);
    const DuplicateFinder finder(existing, toronto());
    for (const Transaction& each : entries) {
        ASSERT_EQ(finder.match(importedLine(each.date, "SHOP", "-1")), &each);
    }
}

TEST(DuplicateFinder, FindsTheEntryOfTheHourThatTheClockRepeats) {
    // Ten to two comes before ten past one of the second time, yet is fewer whole days away.
    const Date tenToTwo = toronto().date({2024, 11, 3, 1, 50, 0});
    const std::vector<Transaction> entries = {
        entry(account, tenToTwo, "Shop", "-4.50"),
        entry(account, tenToTwo.adding(20.0 * 60), "Shop", "-4.50"),
    };
    const auto existing = pointers(entries);
    const ImportedTransaction line =
        importedLine(toronto().date({2024, 11, 7, 1, 30, 0}), "Shop", "-4.50");
    ASSERT_TRUE(isDuplicate(line, existing, toronto()));
    EXPECT_EQ(DuplicateFinder(existing, toronto()).match(line), &entries[0]);
}

TEST(DuplicateFinder, AgreesWithIsDuplicateOnEveryInput) {
    const std::vector<std::string> names = {
        "",       "Shop",    "SHOP",     "shop ",    "Café",     "CAFÉ",    "Cafe\u0301",
        "Straße", "STRASSE", "ISTANBUL", "istanbul", "ıstanbul", "İstanbul"};
    const std::vector<std::string> amounts = {"1", "1.00", "-1", "2", "0"};
    const std::vector<std::string> ids = {"", "a", "A", "b"};
    std::mt19937 random(3);
    const auto pick = [&](const auto& choices) { return choices[random() % choices.size()]; };
    // Around the changes of the clock in spring and autumn; often in the hours of the changes.
    const auto anyDate = [&](int round) {
        const int dayOfMonth = static_cast<int>(random() % 12);
        const Date midnight =
            round % 2 == 0 ? day(2024, 3, 5 + dayOfMonth) : day(2024, 10, 29 + dayOfMonth);
        switch (random() % 3) {
        case 0:
            return midnight;
        case 1:
            return midnight.adding(60.0 * double(random() % 1440));
        default:
            return midnight.adding(60.0 * double(random() % 240));
        }
    };
    for (int round = 0; round < 300; ++round) {
        std::vector<Transaction> entries;
        for (std::size_t count = random() % 20; count > 0; --count) {
            entries.push_back(entry(account, anyDate(round), pick(names), pick(amounts)));
            if (random() % 3 == 0) {
                entries.back().importID = pick(ids);
            }
        }
        const auto existing = pointers(entries);
        const DuplicateFinder finder(existing, toronto());
        for (int line = 0; line < 20; ++line) {
            ImportedTransaction item = importedLine(anyDate(round), pick(names), pick(amounts));
            if (random() % 3 == 0) {
                item.importID = pick(ids);
            }
            const Transaction* match = finder.match(item);
            EXPECT_EQ(match != nullptr, isDuplicate(item, existing, toronto()));
            EXPECT_TRUE(match == nullptr || isDuplicate(item, std::span(&match, 1), toronto()));
        }
    }
}

} // namespace oakfen
