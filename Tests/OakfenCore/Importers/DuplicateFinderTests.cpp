#include <algorithm>
#include <random>

#include "OakfenCore/Importers/Merging.h"
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

TEST(DuplicateFinder, GivesTheFirstMatchingEntry) {
    const std::vector<Transaction> entries = {
        entry(account, day(2024, 3, 9), "Shop", "-4.50"),
        entry(account, day(2024, 3, 4), "Shop", "-4.50"),
        entry(account, day(2024, 3, 3), "Shop", "-4.50"),
        entry(account, day(2024, 3, 4), "shop", "-4.50"),
        withImportID(entry(account, day(2020, 1, 1), "Pay", "9"), "7"),
    };
    const auto existing = pointers(entries);
    const DuplicateFinder finder(existing, toronto());
    EXPECT_EQ(finder.match(importedLine(day(2024, 3, 4), "Shop", "-4.50")), &entries[1]);
    EXPECT_EQ(finder.match(importedLine(day(2024, 3, 10), "SHOP", "-4.50")), &entries[0]);
    EXPECT_EQ(finder.match(withImportID(importedLine(day(2024, 3, 1), "X", "1"), "7")),
              &entries[4]);
    EXPECT_EQ(finder.match(withImportID(importedLine(day(2024, 3, 4), "Shop", "-4.50"), "7")),
              &entries[1]);
    EXPECT_EQ(finder.match(importedLine(day(2024, 3, 4), "Shop", "-4.51")), nullptr);
}

TEST(DuplicateFinder, AgreesWithIsDuplicateOnEveryInput) {
    const std::vector<std::string> names = {
        "",       "Shop",    "SHOP",     "shop ",    "Café",     "CAFÉ",    "Cafe\u0301",
        "Straße", "STRASSE", "ISTANBUL", "istanbul", "ıstanbul", "İstanbul"};
    const std::vector<std::string> amounts = {"1", "1.00", "-1", "2", "0"};
    const std::vector<std::string> ids = {"", "a", "A", "b"};
    std::mt19937 random(3);
    const auto pick = [&](const auto& choices) { return choices[random() % choices.size()]; };
    // Around the change to daylight-saving time, at any minute or at midnight.
    const auto anyDate = [&] {
        const Date midnight = day(2024, 3, 5 + static_cast<int>(random() % 12));
        return random() % 2 == 0 ? midnight : midnight.adding(60.0 * double(random() % 1440));
    };
    for (int round = 0; round < 300; ++round) {
        std::vector<Transaction> entries;
        for (std::size_t count = random() % 20; count > 0; --count) {
            entries.push_back(entry(account, anyDate(), pick(names), pick(amounts)));
            if (random() % 3 == 0) {
                entries.back().importID = pick(ids);
            }
        }
        const auto existing = pointers(entries);
        const DuplicateFinder finder(existing, toronto());
        for (int line = 0; line < 20; ++line) {
            ImportedTransaction item = importedLine(anyDate(), pick(names), pick(amounts));
            if (random() % 3 == 0) {
                item.importID = pick(ids);
            }
            const auto first =
                std::find_if(existing.begin(), existing.end(), [&](const Transaction* each) {
                    return isDuplicate(item, std::span(&each, 1), toronto());
                });
            EXPECT_EQ(isDuplicate(item, existing, toronto()), first != existing.end());
            EXPECT_EQ(finder.match(item), first == existing.end() ? nullptr : *first);
        }
    }
}

} // namespace oakfen
