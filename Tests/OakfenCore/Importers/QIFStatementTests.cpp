#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::day;
using testing::errorKind;
using testing::money;
using testing::payees;
using Kind = ImportError::Kind;

namespace {

std::vector<ImportedTransaction> qif(std::string_view text) {
    return testing::lines(text, ImportFormat::qif);
}

ImportedTransaction onlyLine(std::string_view text) {
    return testing::onlyLine(text, ImportFormat::qif);
}

} // namespace

TEST(QIFStatement, ReadsEveryFieldOfARecord) {
    const auto line = onlyLine("!Type:Bank\nD1/31'24\nT-4.50\nN101\nPShop\nMfor us\n"
                               "LFood:Groceries\nCX\nAStreet\n^\n");
    EXPECT_EQ(line.date, day(2024, 1, 31));
    EXPECT_EQ(line.amount, money("-4.5"));
    EXPECT_EQ(line.checkNumber, "101");
    EXPECT_EQ(line.payee, "Shop");
    EXPECT_EQ(line.memo, "for us");
    EXPECT_EQ(line.categoryName, "Food:Groceries");
    EXPECT_EQ(line.importID, std::nullopt);
}

TEST(QIFStatement, HasNoTransactionsInAnInvestmentSectionAlone) {
    EXPECT_EQ(errorKind("!Type:Invst\nD1/5/24\nT5\n^\n", ImportFormat::qif), Kind::noTransactions);
    EXPECT_EQ(errorKind("!TYPE:INVST\nD1/5/24\nT5\n^\n", ImportFormat::qif), Kind::noTransactions);
    EXPECT_EQ(errorKind("", ImportFormat::qif), Kind::noTransactions);
}

TEST(QIFStatement, PassesOverAnInvestmentSectionBetweenOthers) {
    EXPECT_EQ(payees(qif("!Type:Bank\nD1/5/24\nT1\nPA\n^\n!Type:Invst\nD1/5/24\nT2\nPB\n^\n"
                         "!Type:CCard\nD1/5/24\nT3\nPC\n^\n")),
              (std::vector<std::string>{"A", "C"}));
}

TEST(QIFStatement, NeedsNoHeader) {
    EXPECT_EQ(onlyLine("D1/5/24\nT1\nPA\n^\n").payee, "A");
}

TEST(QIFStatement, DropsWhatAHeaderInterrupts) {
    EXPECT_EQ(errorKind("D1/5/24\nPA\n!Type:Bank\nT1\n^\n", ImportFormat::qif),
              Kind::noTransactions);
}

TEST(QIFStatement, GivesATransferNoCategory) {
    EXPECT_EQ(onlyLine("D1/5/24\nT1\nL[Savings]\n^\n").categoryName, std::nullopt);
    EXPECT_EQ(onlyLine("D1/5/24\nT1\nLFood\nL[Savings]\n^\n").categoryName, std::nullopt);
    EXPECT_EQ(onlyLine("D1/5/24\nT1\n^\n").categoryName, std::nullopt);
}

TEST(QIFStatement, KeepsTheCategoryAsWritten) {
    EXPECT_EQ(onlyLine("D1/5/24\nT1\nLFood:Groceries/Trip\n^\n").categoryName,
              "Food:Groceries/Trip");
    EXPECT_EQ(onlyLine("D1/5/24\nT1\nL\n^\n").categoryName, "");
}

TEST(QIFStatement, TakesTheLaterOfTwoAmounts) {
    EXPECT_EQ(onlyLine("D1/5/24\nT-5.00\nU-7.00\n^\n").amount, money("-7"));
    EXPECT_EQ(onlyLine("D1/5/24\nU-7.00\nT-5.00\n^\n").amount, money("-5"));
    EXPECT_EQ(errorKind("D1/5/24\nT-5.00\nUnone\n^\n", ImportFormat::qif), Kind::noTransactions);
}

TEST(QIFStatement, DropsRecordsWithoutADateOrAnAmount) {
    EXPECT_EQ(payees(qif("D1/5/24\nPA\n^\nT1\nPB\n^\nDsoon\nT1\nPC\n^\nD1/5/24\nT1\nPD\n^\n^\n")),
              std::vector<std::string>{"D"});
}

TEST(QIFStatement, StartsEachRecordAfresh) {
    const auto all = qif("D1/5/24\nT1\nPA\nMm\nN1\nLFood\n^\nD1/6/24\nT2\n^\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[1].payee, "");
    EXPECT_EQ(all[1].memo, "");
    EXPECT_EQ(all[1].checkNumber, "");
    EXPECT_EQ(all[1].categoryName, std::nullopt);
}

TEST(QIFStatement, DropsALastRecordThatIsNotEnded) {
    EXPECT_EQ(payees(qif("D1/5/24\nT1\nPA\n^\nD1/6/24\nT2\nPB\n")), std::vector<std::string>{"A"});
}

TEST(QIFStatement, ReadsASplitEntryAsItsTotal) {
    const auto line = onlyLine("D1/5/24\nT-10.00\nLFood\nSFood\nEhalf\n$-5.00\nSHome\n$-5.00\n^\n");
    EXPECT_EQ(line.amount, money("-10"));
    EXPECT_EQ(line.categoryName, "Food");
}

TEST(QIFStatement, DecodesNoEntities) {
    EXPECT_EQ(onlyLine("D1/5/24\nT1\nPSmith &amp; Co\n^\n").payee, "Smith &amp; Co");
}

TEST(QIFStatement, TrimsLinesAndValues) {
    const auto line = onlyLine("  D 1/ 5'24 \n\tT 1.00\nP  Shop  \n\n   \n ^ \n");
    EXPECT_EQ(line.payee, "Shop");
    EXPECT_EQ(line.date, day(2024, 1, 5));
}

TEST(QIFStatement, SplitsAtEveryLineEndOfUnicode) {
    for (const std::string end : {"\n", "\r\n", "\r", "\v", "\f", "\u0085", "\u2028", "\u2029"}) {
        const auto line = onlyLine("D1/5/24" + end + "T1" + end + "PÉté" + end + "^" + end);
        EXPECT_EQ(line.payee, "Été");
    }
}

TEST(QIFStatement, SplitsALatin1FileAtItsNextLineBytes) {
    EXPECT_EQ(onlyLine("D1/5/24\x85T1\x85PCaf\xE9\x85^").payee, "Café");
}

TEST(QIFStatement, PassesOverACodeThatAMarkCombinesWith) {
    EXPECT_EQ(onlyLine("D1/5/24\nT1\nPA\nP\u0301B\n^\n").payee, "A");
}

TEST(QIFStatement, LetsFebruary31stRollIntoMarch) {
    EXPECT_EQ(onlyLine("D2/31/2024\nT1\n^\n").date, day(2024, 3, 2));
}

} // namespace oakfen
