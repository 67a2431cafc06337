#include "Tests/OakfenCore/Importers/StatementFixtures.h"

/// Statements as large as they may be, of the least helpful shapes. Each must end, and soon: a
/// reader that goes over the text again for every cell or block would need hours.
namespace oakfen {

using testing::errorKind;
using testing::lines;
using Kind = ImportError::Kind;

namespace {

std::string repeated(std::string_view piece) {
    std::string text;
    text.reserve(StatementImporter::maxBytes);
    while (text.size() + piece.size() <= StatementImporter::maxBytes) {
        text += piece;
    }
    return text;
}

} // namespace

TEST(HostileStatement, OfOneByteOverAndOverHasNoTransactions) {
    for (const std::string_view piece : {"a", ",", "\"", "\n", "\r", "<", "&", "!", "^", "\xFF"}) {
        const std::string text = repeated(piece);
        for (const ImportFormat format :
             {ImportFormat::csv, ImportFormat::qif, ImportFormat::ofx}) {
            EXPECT_EQ(errorKind(text, format), Kind::noTransactions) << piece;
        }
    }
}

TEST(HostileStatement, OfOneUnclosedQuoteIsOneCell) {
    std::string text = repeated("a,\n");
    text.replace(0, 22, "2024-01-31,Shop,1.00,\"");
    EXPECT_EQ(testing::onlyLine(text, ImportFormat::csv).amount, testing::money("-1"));
}

TEST(HostileStatement, OfOpeningTagsOnlyHasNoTransactions) {
    EXPECT_EQ(errorKind(repeated("<STMTTRN>"), ImportFormat::ofx), Kind::noTransactions);
    EXPECT_EQ(errorKind(repeated("</STMTTRN>"), ImportFormat::ofx), Kind::noTransactions);
    EXPECT_EQ(errorKind(repeated("<STMTTRN><NAME>"), ImportFormat::ofx), Kind::noTransactions);
    EXPECT_EQ(errorKind(repeated("<STMTTRN"), ImportFormat::ofx), Kind::noTransactions);
}

TEST(HostileStatement, OfOneBlockKeepsItsLongPayee) {
    std::string text = "<STMTTRN><DTPOSTED>20240131<TRNAMT>1<NAME>";
    const std::size_t tags = text.size();
    text.resize(StatementImporter::maxBytes, '&');
    const auto all = lines(text, ImportFormat::ofx);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].payee.size(), StatementImporter::maxBytes - tags);
}

TEST(HostileStatement, OfCombiningMarksIsOneCell) {
    EXPECT_EQ(errorKind(repeated(",\u0301"), ImportFormat::csv), Kind::noTransactions);
    EXPECT_EQ(errorKind(repeated("\"\u0301"), ImportFormat::csv), Kind::noTransactions);
}

TEST(HostileStatement, OfHeadersOnlyHasNoTransactions) {
    EXPECT_EQ(errorKind(repeated("!Type:Bank\n"), ImportFormat::qif), Kind::noTransactions);
    EXPECT_EQ(errorKind(repeated("D1/1/24\n"), ImportFormat::qif), Kind::noTransactions);
}

} // namespace oakfen
