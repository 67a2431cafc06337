#include "OakfenCore/Importers/Merging.h"

#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::day;
using testing::entry;
using testing::importedLine;
using testing::lines;
using testing::toronto;

class Merging : public ::testing::Test {
protected:
    Merging() {
        library_.currencyCode = "CAD";
        library_.accounts = {{.id = chequing_, .name = "Chequing"},
                             {.id = savings_, .name = "Savings"}};
        library_.categories = {{.id = food_, .name = "Food"},
                               {.id = groceries_, .name = "Groceries", .parentID = food_}};
    }

    std::size_t import(const std::vector<ImportedTransaction>& items) {
        return importTransactions(library_, items, chequing_, day(2024, 6, 1), toronto());
    }

    /// What the import of this one line adds.
    Transaction imported(const ImportedTransaction& item) {
        EXPECT_EQ(import({item}), 1U);
        return library_.transactions.back();
    }

    Library library_ = {};
    UUID chequing_ = UUID::random();
    UUID savings_ = UUID::random();
    UUID food_ = UUID::random();
    UUID groceries_ = UUID::random();
};

namespace {

constexpr std::string_view ofxStatement =
    "<STMTTRN><DTPOSTED>20240301<TRNAMT>-4.50<FITID>1<NAME>Shop</STMTTRN>"
    "<STMTTRN><DTPOSTED>20240301<TRNAMT>-4.50<FITID>2<NAME>Shop</STMTTRN>"
    "<STMTTRN><DTPOSTED>20240302<TRNAMT>900.00<FITID>3<NAME>Pay</STMTTRN>";

} // namespace

TEST_F(Merging, AddsNothingForNoLines) {
    EXPECT_EQ(import({}), 0U);
    EXPECT_TRUE(library_.transactions.empty());
}

TEST_F(Merging, AddsAClearedEntryWithWhatTheLineSays) {
    ImportedTransaction item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    item.memo = "for us";
    item.checkNumber = "101";
    item.importID = "7";
    const Transaction added = imported(item);
    EXPECT_EQ(added.accountID, chequing_);
    EXPECT_EQ(added.date, day(2024, 3, 1));
    EXPECT_EQ(added.payee, "Shop");
    EXPECT_EQ(added.amount, item.amount);
    EXPECT_EQ(added.memo, "for us");
    EXPECT_EQ(added.checkNumber, "101");
    EXPECT_EQ(added.importID, "7");
    EXPECT_EQ(added.cleared, ClearedState::cleared);
    EXPECT_EQ(added.categoryID, std::nullopt);
    EXPECT_TRUE(added.splits.empty());
    EXPECT_TRUE(added.tags.empty());
    EXPECT_FALSE(added.isTransfer());
    EXPECT_EQ(added.transferID, std::nullopt);
    EXPECT_NE(added.id, item.id);
}

TEST_F(Merging, AppendsInTheOrderOfTheFile) {
    library_.transactions.push_back(entry(savings_, day(2025, 1, 1), "Later", "1"));
    EXPECT_EQ(
        import({importedLine(day(2024, 3, 2), "B", "1"), importedLine(day(2024, 3, 1), "A", "1")}),
        2U);
    ASSERT_EQ(library_.transactions.size(), 3U);
    EXPECT_EQ(library_.transactions[1].payee, "B");
    EXPECT_EQ(library_.transactions[2].payee, "A");
}

TEST_F(Merging, AddsNothingWhenAnOFXFileComesAgain) {
    EXPECT_EQ(import(lines(ofxStatement, ImportFormat::ofx)), 3U);
    EXPECT_EQ(import(lines(ofxStatement, ImportFormat::ofx)), 0U);
    EXPECT_EQ(library_.transactions.size(), 3U);
}

TEST_F(Merging, KnowsTheEntriesOfAnOFXFileByTheirIDsWhateverElseChanged) {
    EXPECT_EQ(import(lines(ofxStatement, ImportFormat::ofx)), 3U);
    library_.transactions.editWhere([](const Transaction&) { return true; },
                                    [](Transaction& stored) {
                                        stored.date = stored.date.adding(30 * 86400.0);
                                        stored.payee = "Another name";
                                        stored.amount += Decimal(1);
                                    });
    EXPECT_EQ(import(lines(ofxStatement, ImportFormat::ofx)), 0U);
    library_.transactions.edit(1).importID = "changed too";
    EXPECT_EQ(import(lines(ofxStatement, ImportFormat::ofx)), 1U);
}

TEST_F(Merging, AddsNothingWhenACSVFileComesAgain) {
    EXPECT_EQ(import(lines("2024-03-01,Shop,-4.50\n", ImportFormat::csv)), 1U);
    EXPECT_EQ(import(lines("2024-03-01,Shop,-4.50\n", ImportFormat::csv)), 0U);
}

TEST_F(Merging, AddsTheSameLineFourDaysLater) {
    EXPECT_EQ(import(lines("2024-03-01,Shop,-4.50\n", ImportFormat::csv)), 1U);
    EXPECT_EQ(import(lines("2024-03-04,Shop,-4.50\n", ImportFormat::csv)), 0U);
    EXPECT_EQ(import(lines("2024-03-05,Shop,-4.50\n", ImportFormat::csv)), 1U);
}

TEST_F(Merging, AddsALineWhosePayeeIsSpelledOtherwise) {
    EXPECT_EQ(import({importedLine(day(2024, 3, 1), "Shop", "-4.50")}), 1U);
    EXPECT_EQ(import({importedLine(day(2024, 3, 1), "SHOP", "-4.50")}), 0U);
    EXPECT_EQ(import({importedLine(day(2024, 3, 1), "Shop #2", "-4.50")}), 1U);
}

TEST_F(Merging, LooksForDuplicatesInTheTargetAccountOnly) {
    Transaction elsewhere = entry(savings_, day(2024, 3, 1), "Shop", "-4.50");
    elsewhere.importID = "7";
    library_.transactions.push_back(elsewhere);
    ImportedTransaction item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    item.importID = "7";
    EXPECT_EQ(import({item}), 1U);
}

TEST_F(Merging, AddsTwoLikeLinesOfOneFileAndNeitherAgain) {
    const auto item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    EXPECT_EQ(import({item, item}), 2U);
    EXPECT_EQ(import({item, item}), 0U);
}

TEST_F(Merging, FilesUnderTheCategoryThatTheLineNames) {
    ImportedTransaction item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    item.categoryName = "food:groceries";
    EXPECT_EQ(imported(item).categoryID, groceries_);
}

TEST_F(Merging, FilesAsThePayeeWasFiledLast) {
    Transaction remembered = entry(savings_, day(2024, 1, 1), "Shop", "-9");
    remembered.categoryID = food_;
    remembered.memo = "old memo";
    remembered.tags = {"old"};
    library_.transactions.push_back(remembered);
    const Transaction added = imported(importedLine(day(2024, 3, 1), " shop ", "-4.50"));
    EXPECT_EQ(added.categoryID, food_);
    EXPECT_EQ(added.memo, "");
    EXPECT_TRUE(added.tags.empty());
}

TEST_F(Merging, FallsBackToThePayeeWhenNoCategoryHasThatName) {
    Transaction remembered = entry(chequing_, day(2024, 1, 1), "Shop", "-9");
    remembered.categoryID = food_;
    library_.transactions.push_back(remembered);
    ImportedTransaction item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    item.categoryName = "Gardening";
    EXPECT_EQ(imported(item).categoryID, food_);
    item = importedLine(day(2024, 4, 1), "Shop", "-4.50");
    item.categoryName = "";
    EXPECT_EQ(imported(item).categoryID, food_);
}

TEST_F(Merging, PrefersTheNamedCategoryToTheRememberedOne) {
    Transaction remembered = entry(chequing_, day(2024, 1, 1), "Shop", "-9");
    remembered.categoryID = food_;
    library_.transactions.push_back(remembered);
    ImportedTransaction item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    item.categoryName = "Groceries";
    EXPECT_EQ(imported(item).categoryID, groceries_);
}

TEST_F(Merging, TakesNoCategoryFromARememberedTransfer) {
    Transaction remembered = entry(chequing_, day(2024, 1, 1), "Shop", "-9");
    remembered.categoryID = food_;
    remembered.transferAccountID = savings_;
    library_.transactions.push_back(remembered);
    const Transaction added = imported(importedLine(day(2024, 3, 1), "Shop", "-4.50"));
    EXPECT_EQ(added.categoryID, std::nullopt);
    EXPECT_FALSE(added.isTransfer());
}

TEST_F(Merging, TakesTheCategoryOfARememberedSplitEntryWithoutItsSplits) {
    Transaction remembered = entry(chequing_, day(2024, 1, 1), "Shop", "-9");
    remembered.splits = {
        {.id = UUID::random(), .categoryID = food_, .memo = "", .amount = testing::money("-9")}};
    library_.transactions.push_back(remembered);
    const Transaction added = imported(importedLine(day(2024, 3, 1), "Shop", "-4.50"));
    EXPECT_EQ(added.categoryID, std::nullopt);
    EXPECT_TRUE(added.splits.empty());
}

TEST_F(Merging, RemembersNothingOfTheLinesThatItAdds) {
    ImportedTransaction first = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    first.categoryName = "Food";
    EXPECT_EQ(import({first, importedLine(day(2024, 3, 20), "Shop", "-5.00")}), 2U);
    EXPECT_EQ(library_.transactions[0].categoryID, food_);
    EXPECT_EQ(library_.transactions[1].categoryID, std::nullopt);
}

TEST_F(Merging, AddsToAnAccountThatDoesNotExist) {
    const UUID unknown = UUID::random();
    const auto item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    EXPECT_EQ(importTransactions(library_, {&item, 1}, unknown, day(2024, 6, 1), toronto()), 1U);
    EXPECT_EQ(importTransactions(library_, {&item, 1}, unknown, day(2024, 6, 1), toronto()), 0U);
}

} // namespace oakfen
