#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::day;
using testing::errorKind;
using testing::money;
using testing::payees;
using Kind = ImportError::Kind;

namespace {

std::vector<ImportedTransaction> csv(std::string_view text) {
    return testing::lines(text, ImportFormat::csv);
}

ImportedTransaction onlyLine(std::string_view text) {
    return testing::onlyLine(text, ImportFormat::csv);
}

std::optional<Kind> csvError(std::string_view text) {
    return errorKind(text, ImportFormat::csv);
}

} // namespace

TEST(CSVStatement, HasNoTransactionsWhenEmpty) {
    EXPECT_EQ(csvError(""), Kind::noTransactions);
    EXPECT_EQ(csvError("\n\r\n\n"), Kind::noTransactions);
    EXPECT_EQ(csvError("\uFEFF"), Kind::noTransactions);
}

TEST(CSVStatement, HasNoTransactionsWithAHeaderAlone) {
    EXPECT_EQ(csvError("Date,Payee,Amount\n"), Kind::noTransactions);
}

TEST(CSVStatement, TakesAFirstLineOfSpacesForAHeaderWithoutADate) {
    EXPECT_EQ(csvError("   \nDate,Payee,Amount\n2024-01-31,Shop,-4.50\n"), Kind::noTransactions);
}

TEST(CSVStatement, NeedsADateAndAnAmountInItsHeader) {
    EXPECT_EQ(csvError("When,Payee,Amount\n2024-01-31,Shop,-4.50\n"), Kind::noTransactions);
    EXPECT_EQ(csvError("Date,Payee,Sum\n2024-01-31,Shop,-4.50\n"), Kind::noTransactions);
}

TEST(CSVStatement, ReadsEveryColumnOfItsHeader) {
    const auto line = onlyLine("Date,Description,Amount,Category,Memo,Check\n"
                               "2024-01-31,Shop,-4.50,Food: Groceries,for us,101\n");
    EXPECT_EQ(line.date, day(2024, 1, 31));
    EXPECT_EQ(line.payee, "Shop");
    EXPECT_EQ(line.amount, money("-4.5"));
    EXPECT_EQ(line.categoryName, "Food: Groceries");
    EXPECT_EQ(line.memo, "for us");
    EXPECT_EQ(line.checkNumber, "101");
    EXPECT_EQ(line.importID, std::nullopt);
}

TEST(CSVStatement, GivesEachLineAnIDOfItsOwn) {
    const auto all = csv("2024-01-31,Shop,-4.50\n2024-01-31,Shop,-4.50\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_NE(all[0].id, all[1].id);
    EXPECT_NE(all[0].id, UUID());
}

TEST(CSVStatement, ReadsAFirstLineWithADateAsData) {
    const auto line = onlyLine("2024-01-31,Shop,-4.50\n");
    EXPECT_EQ(line.payee, "Shop");
    EXPECT_EQ(line.amount, money("-4.5"));
}

TEST(CSVStatement, ReadsTheThirdOfFourCellsWithoutAHeaderAsADebit) {
    EXPECT_EQ(onlyLine("2024-01-31,Shop,4.50,\n").amount, money("-4.5"));
    EXPECT_EQ(onlyLine("2024-01-31,Pay,,900.00,x\n").amount, money("900"));
}

TEST(CSVStatement, TellsTheColumnsWithoutAHeaderByTheFirstRowOnly) {
    const auto all = csv("2024-01-31,Shop,-4.50\n2024-02-01,Cafe,-3.00,memo,101\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[1].amount, money("-3"));
    EXPECT_EQ(all[1].memo, "");
    EXPECT_EQ(all[1].checkNumber, "");
}

TEST(CSVStatement, AcceptsEveryNameOfAColumn) {
    for (const std::string name : {"date", "Posted", "Transaction Date", "POSTED DATE"}) {
        EXPECT_EQ(onlyLine(name + ",Payee,Amount\n2024-01-31,Shop,1\n").payee, "Shop") << name;
    }
    for (const std::string name : {"Payee", "Description", "Name", "Merchant", "Details"}) {
        EXPECT_EQ(onlyLine("Date,X," + name + ",Amount\n2024-01-31,x,Shop,1\n").payee, "Shop")
            << name;
    }
    for (const std::string name : {"Amount", "Value", "Amount (CAD)"}) {
        EXPECT_EQ(onlyLine("Date,Payee,X," + name + "\n2024-01-31,Shop,x,1\n").amount, money("1"))
            << name;
    }
    for (const std::string name : {"Debit", "Withdrawal", "Money Out", "Paid Out"}) {
        EXPECT_EQ(onlyLine("Date,Payee," + name + "\n2024-01-31,Shop,1\n").amount, money("-1"))
            << name;
    }
    for (const std::string name : {"Credit", "Deposit", "Money In", "Paid In"}) {
        EXPECT_EQ(onlyLine("Date,Payee," + name + "\n2024-01-31,Shop,1\n").amount, money("1"))
            << name;
    }
    for (const std::string name : {"Memo", "Notes", "Note"}) {
        EXPECT_EQ(onlyLine("Date,Payee,Amount," + name + "\n2024-01-31,Shop,1,m\n").memo, "m")
            << name;
    }
    for (const std::string name : {"Check", "Cheque", "Num", "Number", "Account Number"}) {
        EXPECT_EQ(onlyLine("Date,Payee,Amount," + name + "\n2024-01-31,Shop,1,7\n").checkNumber,
                  "7")
            << name;
    }
}

TEST(CSVStatement, PrefersAColumnOfThatExactNameWhereverItStands) {
    const auto line = onlyLine("Posted Date,Original Description,Payee,Date,Amount\n"
                               "2024-02-02,raw,Shop,2024-01-31,1\n");
    EXPECT_EQ(line.date, day(2024, 1, 31));
    EXPECT_EQ(line.payee, "Shop");
}

TEST(CSVStatement, TakesTheLeftmostOfSeveralColumnsWhateverTheOrderOfTheNames) {
    const auto line = onlyLine("Posted,Date,Description,Payee,Amount\n"
                               "2024-02-02,2024-01-31,first,second,1\n");
    EXPECT_EQ(line.date, day(2024, 2, 2));
    EXPECT_EQ(line.payee, "first");
}

TEST(CSVStatement, TakesAWordThatHoldsANameWhenNothingBetterIsThere) {
    EXPECT_EQ(onlyLine("Update,Payee,Amount\n2024-01-31,Shop,1\n").date, day(2024, 1, 31));
}

TEST(CSVStatement, LetsOneColumnServeTwoRoles) {
    const auto line = onlyLine("Date,Check Details,Amount\n2024-01-31,Shop,1\n");
    EXPECT_EQ(line.payee, "Shop");
    EXPECT_EQ(line.checkNumber, "Shop");
}

TEST(CSVStatement, TakesTheColumnBesideTheDateForThePayeeWhenNoneIsNamed) {
    EXPECT_EQ(onlyLine("Date,What,Amount\n2024-01-31,Shop,1\n").payee, "Shop");
    EXPECT_EQ(onlyLine("What,X,Date,Amount\nShop,x,2024-01-31,1\n").payee, "Shop");
}

TEST(CSVStatement, UsesDebitAndCreditOnlyWhereTheAmountCannotBeRead) {
    const auto all = csv("Date,Payee,Amount,Debit,Credit\n"
                         "2024-01-31,A,-1.00,2.00,\n"
                         "2024-01-31,B,n/a,2.00,\n"
                         "2024-01-31,C,,,3.00\n");
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].amount, money("-1"));
    EXPECT_EQ(all[1].amount, money("-2"));
    EXPECT_EQ(all[2].amount, money("3"));
}

TEST(CSVStatement, IgnoresTheSignsOfDebitAndCredit) {
    const auto all = csv("Date,Payee,Debit,Credit\n"
                         "2024-01-31,A,-2.00,\n"
                         "2024-01-31,B,,-3.00\n"
                         "2024-01-31,C,2.00,5.00\n");
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].amount, money("-2"));
    EXPECT_EQ(all[1].amount, money("3"));
    EXPECT_EQ(all[2].amount, money("3"));
}

TEST(CSVStatement, KeepsALineWhoseDebitAndCreditAreEqual) {
    EXPECT_EQ(onlyLine("Date,Payee,Debit,Credit\n2024-01-31,A,2.00,2.00\n").amount, money("0"));
}

TEST(CSVStatement, SkipsARowWithoutDebitAndCredit) {
    EXPECT_EQ(payees(csv("Date,Payee,Debit,Credit\n"
                         "2024-01-31,A,0.00,\n"
                         "2024-01-31,B,,\n"
                         "2024-01-31,C,0,0\n"
                         "2024-01-31,D,1,\n")),
              std::vector<std::string>{"D"});
}

TEST(CSVStatement, KeepsARowWithAnAmountOfZero) {
    EXPECT_EQ(onlyLine("Date,Payee,Amount\n2024-01-31,A,0.00\n").amount, money("0"));
}

TEST(CSVStatement, SkipsARowWithoutADate) {
    EXPECT_EQ(payees(csv("Date,Payee,Amount\npending,A,1\n,B,1\n2024-01-31,C,1\n")),
              std::vector<std::string>{"C"});
}

TEST(CSVStatement, ReadsTheCellsThatAShortRowHas) {
    const auto line = onlyLine("Date,Payee,Amount,Memo,Category\n2024-01-31,Shop,-4.50\n");
    EXPECT_EQ(line.memo, "");
    EXPECT_EQ(line.categoryName, std::nullopt);
}

TEST(CSVStatement, KeepsAnEmptyPayeeAndDropsAnEmptyCategory) {
    const auto line = onlyLine("Date,Payee,Amount,Memo,Category\n2024-01-31,,1,memo, \n");
    EXPECT_EQ(line.payee, "");
    EXPECT_EQ(line.categoryName, std::nullopt);
}

TEST(CSVStatement, ReadsAllDatesOfAColumnInOneOrder) {
    const auto all = csv("Date,Payee,Amount\n03/04/2024,A,1\n25/04/2024,B,1\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].date, day(2024, 4, 3));
    EXPECT_EQ(all[1].date, day(2024, 4, 25));
}

TEST(CSVStatement, CountsTheFirstRowAmongTheDatesWhenThereIsNoHeader) {
    const auto all = csv("25/04/2024,B,1\n03/04/2024,A,1\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[1].date, day(2024, 4, 3));
}

TEST(CSVStatement, ReadsCellByCellWhenNoOrderFitsAllDates) {
    const auto all = csv("Date,Payee,Amount\n03/04/2024,A,1\npending,X,1\n25/04/2024,B,1\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].date, day(2024, 3, 4));
    EXPECT_EQ(all[1].date, day(2024, 4, 25));
}

TEST(CSVStatement, LetsShortRowsAndEmptyDatesDecideNothing) {
    const auto all = csv("Payee,Amount,Date\nA,1,03/04/2024\nshort\nB,1,\nC,1,25/04/2024\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].date, day(2024, 4, 3));
}

TEST(CSVStatement, ReadsQuotedCells) {
    const auto line =
        onlyLine("\"Date\",\"Payee\",\"Amount\"\n\"2024-01-31\",\"A, \"\"B\"\"\",\"1,234.56\"\n");
    EXPECT_EQ(line.payee, "A, \"B\"");
    EXPECT_EQ(line.amount, money("1234.56"));
}

TEST(CSVStatement, ReadsLatin1WhenTheBytesAreNotUTF8) {
    EXPECT_EQ(onlyLine("Date,Payee,Amount\n2024-01-31,Caf\xE9,1\n").payee, "Café");
}

TEST(CSVStatement, LosesByteOrderMarksWhereverTheyStand) {
    EXPECT_EQ(onlyLine("\uFEFFDate,Payee,Amount\n2024-01-31,Sh\uFEFFop,1\n").payee, "Shop");
    EXPECT_EQ(onlyLine("\uFEFF2024-01-31,Shop,1\n").payee, "Shop");
}

TEST(CSVStatement, NeverSensesOtherDelimiters) {
    EXPECT_EQ(csvError("Date;Payee;Amount\n2024-01-31;Shop;1\n"), Kind::noTransactions);
}

} // namespace oakfen
