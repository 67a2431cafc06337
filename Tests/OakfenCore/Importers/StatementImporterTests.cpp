#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::errorKind;
using testing::lines;
using Kind = ImportError::Kind;

TEST(ImportFormat, IsToldByTheExtensionInAnyCase) {
    for (const std::string_view extension : {"csv", "CSV", "txt", "Txt"}) {
        EXPECT_EQ(importFormat(extension), ImportFormat::csv) << extension;
    }
    for (const std::string_view extension : {"qif", "QIF"}) {
        EXPECT_EQ(importFormat(extension), ImportFormat::qif) << extension;
    }
    for (const std::string_view extension : {"ofx", "qfx", "qbo", "QFX"}) {
        EXPECT_EQ(importFormat(extension), ImportFormat::ofx) << extension;
    }
}

TEST(ImportFormat, IsNoneForOtherExtensions) {
    for (const std::string_view extension : {"", "pdf", ".csv", "csv ", "ofx2", "xlsx"}) {
        EXPECT_EQ(importFormat(extension), std::nullopt) << extension;
    }
}

TEST(ImportError, SaysWhatIsWrong) {
    EXPECT_EQ(ImportError(Kind::unreadable).localizedDescription(),
              "The file couldn’t be read as text.");
    EXPECT_EQ(ImportError(Kind::unsupportedFormat).localizedDescription(),
              "Choose a CSV, QIF, OFX or QFX file.");
    EXPECT_EQ(ImportError(Kind::noTransactions).localizedDescription(),
              "No transactions were found in the file.");
    EXPECT_EQ(ImportError(Kind::fileTooLarge).localizedDescription(),
              "The file is larger than 25 MB.");
}

TEST(StatementImporter, ReadsAFileOfExactlyTheLargestSize) {
    std::string text = "2024-01-31,Shop,-4.50\n";
    text.resize(StatementImporter::maxBytes, ' ');
    EXPECT_EQ(lines(text, ImportFormat::csv).size(), 1U);
}

TEST(StatementImporter, RefusesALargerFile) {
    std::string text = "2024-01-31,Shop,-4.50\n";
    text.resize(StatementImporter::maxBytes + 1, ' ');
    for (const ImportFormat format : {ImportFormat::csv, ImportFormat::qif, ImportFormat::ofx}) {
        EXPECT_EQ(errorKind(text, format), Kind::fileTooLarge);
    }
}

TEST(StatementImporter, DoesNotRecogniseUTF16) {
    std::string text = "\xFF\xFE";
    for (const char letter : std::string_view("2024-01-31,Shop,-4.50\n")) {
        text += letter;
        text += '\0';
    }
    EXPECT_EQ(errorKind(text, ImportFormat::csv), Kind::noTransactions);
}

TEST(StatementImporter, ReadsALatin1FileInEveryFormat) {
    EXPECT_EQ(lines("2024-01-31,Caf\xE9,1", ImportFormat::csv).at(0).payee, "Café");
    EXPECT_EQ(lines("D1/31/24\nT1\nPCaf\xE9\n^", ImportFormat::qif).at(0).payee, "Café");
    EXPECT_EQ(
        lines("<STMTTRN><DTPOSTED>20240131<TRNAMT>1<NAME>Caf\xE9", ImportFormat::ofx).at(0).payee,
        "Café");
}

} // namespace oakfen
