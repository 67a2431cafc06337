#include "OakfenCore/Importers/OFXReader.h"

#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::day;
using testing::errorKind;
using testing::money;
using testing::payees;
using Kind = ImportError::Kind;

namespace {

std::vector<ImportedTransaction> ofx(std::string_view text) {
    return testing::lines(text, ImportFormat::ofx);
}

ImportedTransaction onlyLine(std::string_view text) {
    return testing::onlyLine(text, ImportFormat::ofx);
}

/// A block with a date, an amount and these further tags.
ImportedTransaction lineWith(const std::string& tags) {
    return onlyLine("<STMTTRN><DTPOSTED>20240131<TRNAMT>-4.50" + tags + "</STMTTRN>");
}

} // namespace

TEST(OFXStatement, ReadsBlocksWithoutClosingTags) {
    const auto all = ofx("OFXHEADER:100\n<OFX><BANKTRANLIST>\n"
                         "<STMTTRN>\n<TRNTYPE>DEBIT\n<DTPOSTED>20240131120000.000[-5:EST]\n"
                         "<TRNAMT>-4.50\n<FITID>7\n<CHECKNUM>101\n<NAME>Shop\n<MEMO>for us\n"
                         "<STMTTRN>\n<DTPOSTED>20240201\n<TRNAMT>+9\n<NAME>Pay\n"
                         "</BANKTRANLIST></OFX>");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].date, day(2024, 1, 31));
    EXPECT_EQ(all[0].amount, money("-4.5"));
    EXPECT_EQ(all[0].importID, "7");
    EXPECT_EQ(all[0].checkNumber, "101");
    EXPECT_EQ(all[0].payee, "Shop");
    EXPECT_EQ(all[0].memo, "for us");
    EXPECT_EQ(all[0].categoryName, std::nullopt);
    EXPECT_EQ(all[1].payee, "Pay");
    EXPECT_EQ(all[1].amount, money("9"));
    EXPECT_EQ(all[1].importID, std::nullopt);
}

TEST(OFXStatement, ReadsTheBareValuesOfClosedTags) {
    const auto line = onlyLine("<?xml version=\"1.0\"?><OFX><STMTTRN><DTPOSTED>20240131</DTPOSTED>"
                               "<TRNAMT>-4.50</TRNAMT><FITID>7</FITID><NAME> Shop </NAME>"
                               "</STMTTRN></OFX>");
    EXPECT_EQ(line.payee, "Shop");
    EXPECT_EQ(line.importID, "7");
    EXPECT_EQ(line.amount, money("-4.5"));
}

TEST(OFXStatement, SkipsABlockWithoutADateOrAnAmountAndKeepsItsNeighbours) {
    EXPECT_EQ(payees(ofx("<STMTTRN><DTPOSTED>20240131<TRNAMT>1<NAME>A</STMTTRN>"
                         "<STMTTRN><TRNAMT>1<NAME>B</STMTTRN>"
                         "<STMTTRN><DTPOSTED>20240131<NAME>C</STMTTRN>"
                         "<STMTTRN><DTPOSTED>2024-01-31<TRNAMT>1<NAME>D</STMTTRN>"
                         "<STMTTRN><DTPOSTED>20240131<TRNAMT>one<NAME>E</STMTTRN>"
                         "<STMTTRN><DTPOSTED>20240131<TRNAMT>1<NAME>F</STMTTRN>")),
              (std::vector<std::string>{"A", "F"}));
}

TEST(OFXStatement, HasNoTransactionsWithoutBlocks) {
    EXPECT_EQ(errorKind("", ImportFormat::ofx), Kind::noTransactions);
    EXPECT_EQ(errorKind("<OFX><DTPOSTED>20240131<TRNAMT>1</OFX>", ImportFormat::ofx),
              Kind::noTransactions);
    EXPECT_EQ(errorKind("<STMTTRN>", ImportFormat::ofx), Kind::noTransactions);
}

TEST(OFXStatement, FindsTagsInAnyCase) {
    const auto line = onlyLine("<stmttrn><dtPosted>20240131<trnamt>1<name>a</StmtTrn><name>b");
    EXPECT_EQ(line.payee, "a");
}

TEST(OFXStatement, EndsABlockAtTheEarlierOfItsClosingTagAndTheNextBlock) {
    EXPECT_EQ(payees(ofx("<STMTTRN><DTPOSTED>20240131<TRNAMT>1</STMTTRN><NAME>Outside"
                         "<STMTTRN><DTPOSTED>20240131<TRNAMT>2"
                         "<STMTTRN><DTPOSTED>20240131<TRNAMT>3<NAME>Third</STMTTRN>")),
              (std::vector<std::string>{"", "", "Third"}));
}

TEST(OFXStatement, FallsBackToThePayeeTagForAMissingOrEmptyName) {
    EXPECT_EQ(lineWith("<PAYEE>Shop").payee, "Shop");
    EXPECT_EQ(lineWith("<NAME></NAME><PAYEE>Shop").payee, "Shop");
    EXPECT_EQ(lineWith("<NAME> <PAYEE>Shop").payee, "Shop");
    EXPECT_EQ(lineWith("<NAME>Cafe<PAYEE>Shop").payee, "Cafe");
    EXPECT_EQ(lineWith("").payee, "");
}

TEST(OFXStatement, FindsANameInsideAPayeeAggregate) {
    EXPECT_EQ(lineWith("<PAYEE><NAME>Shop</NAME><CITY>Here</CITY></PAYEE>").payee, "Shop");
}

TEST(OFXStatement, ReadsTheFirstOfSeveralTagsOnly) {
    EXPECT_EQ(lineWith("<NAME>First<NAME>Second").payee, "First");
    EXPECT_EQ(lineWith("<MEMO></MEMO><MEMO>Second").memo, "");
}

TEST(OFXStatement, DecodesTheEntitiesOfPayeeAndMemoOnly) {
    const auto line = lineWith("<NAME>Tom &amp; Jerry<MEMO>&lt;&gt;&quot;&apos;"
                               "<FITID>Tom &amp; Jerry<CHECKNUM>&lt;1");
    EXPECT_EQ(line.payee, "Tom & Jerry");
    EXPECT_EQ(line.memo, "<>\"'");
    EXPECT_EQ(line.importID, "Tom &amp; Jerry");
    EXPECT_EQ(line.checkNumber, "&lt;1");
}

TEST(OFXStatement, DecodesTheAmpersandLastAndNothingTwice) {
    EXPECT_EQ(lineWith("<NAME>a &amp;lt; b").payee, "a &lt; b");
    EXPECT_EQ(lineWith("<NAME>&amp;amp;").payee, "&amp;");
}

TEST(OFXStatement, LeavesOtherReferencesAsTheyAre) {
    EXPECT_EQ(lineWith("<NAME>&#38; &AMP; &nbsp; & Co").payee, "&#38; &AMP; &nbsp; & Co");
}

TEST(OFXStatement, GivesNoImportIDForAnEmptyOne) {
    EXPECT_EQ(lineWith("<FITID></FITID>").importID, std::nullopt);
    EXPECT_EQ(lineWith("<FITID>  ").importID, std::nullopt);
}

TEST(OFXStatement, KeepsTheCRLFBehindAnUnclosedValue) {
    const auto line = onlyLine("<STMTTRN>\r\n<DTPOSTED>20240131\r\n<TRNAMT>-4.50\r\n"
                               "<NAME>Shop\r\n<FITID>7\r\n</STMTTRN>\r\n");
    EXPECT_EQ(line.payee, "Shop\r\n");
    EXPECT_EQ(line.importID, "7\r\n");
    EXPECT_EQ(line.date, day(2024, 1, 31));
    EXPECT_EQ(line.amount, money("-4.5"));
}

TEST(OFXStatement, LosesTheCRLFBehindAClosedValue) {
    EXPECT_EQ(lineWith("<NAME>Shop</NAME>\r\n").payee, "Shop");
}

TEST(OFXValue, EndsAtATagOrALoneLineEnd) {
    EXPECT_EQ(ofxValue("NAME", "<NAME>a<b"), "a");
    EXPECT_EQ(ofxValue("NAME", "<NAME>a\nb"), "a");
    EXPECT_EQ(ofxValue("NAME", "<NAME>a\rb"), "a");
    EXPECT_EQ(ofxValue("NAME", "<NAME>a\r"), "a");
    EXPECT_EQ(ofxValue("NAME", "<NAME>a\r\nb\r\r\nc"), "a\r\nb");
    EXPECT_EQ(ofxValue("NAME", "<NAME>a"), "a");
}

TEST(OFXValue, IsNothingWithoutTheTagOrWithoutText) {
    EXPECT_EQ(ofxValue("NAME", ""), std::nullopt);
    EXPECT_EQ(ofxValue("NAME", "<NAMES>a"), std::nullopt);
    EXPECT_EQ(ofxValue("NAME", "<NAME>"), std::nullopt);
    EXPECT_EQ(ofxValue("NAME", "<NAME> \t<b>"), std::nullopt);
    EXPECT_EQ(ofxValue("NAME", "<NAME>\nb"), std::nullopt);
}

TEST(OFXValue, IsLineEndsAloneWhenThatIsAllTheText) {
    EXPECT_EQ(ofxValue("NAME", "<NAME>\r\n<b>"), "\r\n");
}

TEST(OFXValue, GoesOnPastABracketThatAMarkCombinesWith) {
    EXPECT_EQ(ofxValue("NAME", "<NAME>a<\u0338b<c"), "a<\u0338b");
}

} // namespace oakfen
