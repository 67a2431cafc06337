// The targets on random input of the right shape; a failure is shrunk to the few bytes that matter.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "Fuzz/LibraryRules.h"
#include "Fuzz/Targets.h"

namespace oakfen::fuzz {
namespace {

/// The same cases in every run, unless the environment asks for others; many more in a long run.
const int isConfigured = [] {
    const char* isLong = std::getenv("OAKFEN_LONG_TESTS");
    const bool wantsMany = isLong != nullptr && std::string_view(isLong) == "1";
    return ::setenv("RC_PARAMS",
                    wantsMany ? "seed=20260101 max_success=20000" : "seed=20260101 max_success=800",
                    0);
}();

std::string joined(const std::vector<std::string>& pieces) {
    std::string text;
    for (const std::string& piece : pieces) {
        text += piece;
    }
    return text;
}

RC_GTEST_PROP(RandomEdits, KeepTransfersPairedAndCanAllBeTakenBack, ()) {
    const auto bytes =
        *rc::gen::scale(8, rc::gen::container<std::string>(rc::gen::arbitrary<char>()));
    editLedger(bytes);
}

RC_GTEST_PROP(RandomStatements, OfCommaSeparatedPiecesAreReadAsThePlainReaderDoes, ()) {
    const auto piece = rc::gen::element<std::string>(
        "\"", ",", "\n", "\r\n", "\r", " ", "\t", "a", "é", "e\u0301", "\u0301", "2024-01-31",
        "Date,Payee,Amount", "-4.50", "\u00A0", "\uFEFF");
    readCSVStatement(joined(*rc::gen::container<std::vector<std::string>>(piece)));
}

RC_GTEST_PROP(RandomStatements, OfQIFPiecesAreSound, ()) {
    const auto piece = rc::gen::element<std::string>(
        "!Type:Bank\n", "!Type:Invst\n", "D1/31'24\n", "D12/31/2023\r\n", "T-4.50\n", "U1,234.00\n",
        "PAcme\n", "LFood:Groceries\n", "L[Savings]\n", "Mmemo\n", "N101\n", "^\n", "^", "\n", "\r",
        " ", "x", "\u2028", "\u0301");
    readQIFStatement(joined(*rc::gen::container<std::vector<std::string>>(piece)));
}

RC_GTEST_PROP(RandomStatements, OfOFXPiecesAreSound, ()) {
    const auto piece = rc::gen::element<std::string>(
        "<STMTTRN>", "</STMTTRN>", "<stmttrn>\n", "<DTPOSTED>20240131", "<TRNAMT>-4.50", "<NAME>",
        "Tom &amp; Jerry", "&amp;lt;", "</NAME>", "<PAYEE>", "<MEMO>x", "<CHECKNUM>7", "<FITID>A1",
        "\n", "\r\n", "\r", "<", "\u0301", "é");
    readOFXStatement(joined(*rc::gen::container<std::vector<std::string>>(piece)));
}

RC_GTEST_PROP(RandomTexts, OfAmountsAreReadConsistently, ()) {
    const auto piece =
        rc::gen::element<std::string>("0", "1", "9", "25", ".", ",", "-", "(", ")", " ", "$", "DR",
                                      "cr", "€", "e", "000", "\u0301");
    readAmount(joined(*rc::gen::container<std::vector<std::string>>(piece)));
}

RC_GTEST_PROP(RandomTexts, OfDatesAreReadConsistently, ()) {
    const auto piece = rc::gen::element<std::string>(
        "2024", "24", "01", "1", "31", "13", "0", "/", "-", "'", " ", "Jan", "march", ", ", "T",
        "12:30:00", "Z", "+05:30", "\n", "99", "\u0301");
    readDates(joined(*rc::gen::container<std::vector<std::string>>(piece)));
}

// The rules themselves notice what they are there for.

Library withTransfer() {
    Library library{.currencyCode = "CAD"};
    Transaction leg;
    leg.id.bytes[0] = 1;
    leg.accountID.bytes[0] = 8;
    leg.amount = Decimal(-50);
    Transaction twin = leg;
    twin.id.bytes[0] = 2;
    twin.accountID.bytes[0] = 9;
    twin.amount = Decimal(50);
    twin.transferAccountID = leg.accountID;
    twin.transferID = leg.id;
    leg.transferAccountID = twin.accountID;
    leg.transferID = twin.id;
    library.transactions = {leg, twin};
    return library;
}

TEST(LibraryRules, AcceptATransferWithBothItsLegs) {
    EXPECT_NO_THROW(requireSound(withTransfer()));
}

TEST(LibraryRules, NoticeALegWithoutItsTwin) {
    Library library = withTransfer();
    library.transactions.erase(1);
    EXPECT_THROW(requireSound(library), Violation);
}

TEST(LibraryRules, NoticeLegsOutOfStep) {
    Library library = withTransfer();
    library.transactions.edit(0).amount = Decimal(-51);
    EXPECT_THROW(requireSound(library), Violation);
    library = withTransfer();
    library.transactions.edit(1).date = Date{1};
    EXPECT_THROW(requireSound(library), Violation);
    library = withTransfer();
    library.transactions.edit(1).accountID.bytes[0] = 7;
    EXPECT_THROW(requireSound(library), Violation);
}

TEST(LibraryRules, NoticeSplitsThatDoNotAddUp) {
    Library library{.currencyCode = "CAD"};
    Transaction entry;
    entry.amount = Decimal(3);
    entry.splits = {{.amount = Decimal(2)}};
    library.transactions = {entry};
    EXPECT_THROW(requireSound(library), Violation);
}

TEST(LibraryRules, NoticeADocumentThatCannotBeReadBack) {
    Library library{.currencyCode = "CAD"};
    library.accounts.push_back({.openingDate = Date{0.5}});
    EXPECT_THROW(requireReadableCopy(library), Violation);
}

} // namespace
} // namespace oakfen::fuzz
