#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::RandomLibrary;

/// "00000000-0000-0000-0000-0000000000AB" for "AB".
UUID id(std::string_view lastDigits) {
    std::string text = "00000000-0000-0000-0000-000000000000";
    text.replace(text.size() - lastDigits.size(), lastDigits.size(), lastDigits);
    return UUID::parse(text).value();
}

/// The record's object in the text of a document that holds it alone.
template <typename Record>
std::string encoded(SharedArray<Record> Library::*member, Record record) {
    Library library{.currencyCode = "CAD"};
    const std::string empty = encodeLibrary(library);
    (library.*member).push_back(std::move(record));
    const std::string text = encodeLibrary(library);
    const auto [start, unused] = std::ranges::mismatch(text, empty);
    const std::size_t length = text.size() - empty.size();
    return text.substr(static_cast<std::size_t>(start - text.begin()), length);
}

Transaction plainEntry() {
    return {.id = id("1"), .accountID = id("2"), .date = day(2024, 3, 1, 5)};
}

TEST(LibraryEncoding, WritesAnEmptyDocument) {
    EXPECT_EQ(encodeLibrary(Library{.currencyCode = "CAD"}),
              R"({"accounts":[],"budget":[],"categories":[],"currencyCode":"CAD","goals":[],)"
              R"("investmentTransactions":[],"scheduled":[],"securities":[],"transactions":[],)"
              R"("version":1})");
}

TEST(LibraryEncoding, WritesAnAccount) {
    Account account{.id = id("AB"),
                    .name = "Visa / Gold",
                    .type = AccountType::creditCard,
                    .institution = "Café Bank",
                    .openingBalance = amount("-120.5"),
                    .openingDate = day(2024, 3, 1, 5),
                    .isClosed = true,
                    .creditLimit = amount("5000"),
                    .lowBalanceAlert = amount("0.01"),
                    .interestRate = amount("19.99"),
                    .notes = "a\nb"};
    EXPECT_EQ(encoded(&Library::accounts, account),
              R"({"creditLimit":5000,"id":"00000000-0000-0000-0000-0000000000AB",)"
              R"("institution":"Café Bank","interestRate":19.99,"isClosed":true,)"
              R"("lowBalanceAlert":0.01,"name":"Visa \/ Gold","notes":"a\nb",)"
              R"("openingBalance":-120.5,"openingDate":"2024-03-01T05:00:00Z",)"
              R"("type":"creditCard"})");
}

TEST(LibraryEncoding, LeavesOutWhatAnAccountHasNot) {
    EXPECT_EQ(encoded(&Library::accounts, Account{.id = id("1"), .openingDate = day(2024, 3, 1)}),
              R"({"id":"00000000-0000-0000-0000-000000000001","institution":"","isClosed":false,)"
              R"("name":"","notes":"","openingBalance":0,"openingDate":"2024-03-01T12:00:00Z",)"
              R"("type":"chequing"})");
}

TEST(LibraryEncoding, WritesACategory) {
    EXPECT_EQ(encoded(&Library::categories,
                      Category{id("1"), "Fuel", CategoryKind::expense, id("2"), true}),
              R"({"id":"00000000-0000-0000-0000-000000000001","isTaxRelated":true,)"
              R"("kind":"expense","name":"Fuel",)"
              R"("parentID":"00000000-0000-0000-0000-000000000002"})");
}

TEST(LibraryEncoding, WritesAnEntryWithEverything) {
    Transaction entry = plainEntry();
    entry.payee = "Metro";
    entry.amount = amount("-10.25");
    entry.categoryID = id("3");
    entry.splits = {{id("4"), id("5"), "soap", amount("-10")}, {id("6"), {}, "", amount("-0.25")}};
    entry.transferAccountID = id("7");
    entry.transferID = id("8");
    entry.memo = "weekly";
    entry.checkNumber = "101";
    entry.cleared = ClearedState::reconciled;
    entry.tags = {"a", "b"};
    entry.importID = "20240301-1";
    EXPECT_EQ(encoded(&Library::transactions, entry),
              R"({"accountID":"00000000-0000-0000-0000-000000000002","amount":-10.25,)"
              R"("categoryID":"00000000-0000-0000-0000-000000000003","checkNumber":"101",)"
              R"("cleared":"reconciled","date":"2024-03-01T05:00:00Z",)"
              R"("id":"00000000-0000-0000-0000-000000000001","importID":"20240301-1",)"
              R"("memo":"weekly","payee":"Metro","splits":[{"amount":-10,)"
              R"("categoryID":"00000000-0000-0000-0000-000000000005",)"
              R"("id":"00000000-0000-0000-0000-000000000004","memo":"soap"},{"amount":-0.25,)"
              R"("id":"00000000-0000-0000-0000-000000000006","memo":""}],"tags":["a","b"],)"
              R"("transferAccountID":"00000000-0000-0000-0000-000000000007",)"
              R"("transferID":"00000000-0000-0000-0000-000000000008"})");
}

TEST(LibraryEncoding, WritesAnEntryWithNothing) {
    EXPECT_EQ(encoded(&Library::transactions, plainEntry()),
              R"({"accountID":"00000000-0000-0000-0000-000000000002","amount":0,)"
              R"("checkNumber":"","cleared":"uncleared","date":"2024-03-01T05:00:00Z",)"
              R"("id":"00000000-0000-0000-0000-000000000001","memo":"","payee":"","splits":[],)"
              R"("tags":[]})");
}

TEST(LibraryEncoding, WritesAnEmptyImportIDSinceItIsPresent) {
    Transaction entry = plainEntry();
    entry.importID = "";
    EXPECT_NE(encoded(&Library::transactions, entry).find(R"("importID":"",)"), std::string::npos);
}

TEST(LibraryEncoding, WritesASecurity) {
    Security security{id("1"),        "XIC",
                      "Index Fund",   SecurityKind::mutualFund,
                      amount("30.5"), {{day(2024, 1, 2, 0), amount("29.875")}}};
    EXPECT_EQ(encoded(&Library::securities, security),
              R"({"id":"00000000-0000-0000-0000-000000000001","kind":"mutualFund",)"
              R"("name":"Index Fund","price":30.5,"priceHistory":[{"date":)"
              R"("2024-01-02T00:00:00Z","price":29.875}],"symbol":"XIC"})");
}

TEST(LibraryEncoding, WritesAnInvestmentRow) {
    InvestmentTransaction row{
        id("1"),       id("2"),     id("3"),        day(2024, 1, 2, 0), InvestmentAction::sharesIn,
        amount("1.5"), amount("2"), amount("9.99"), amount("0"),        "gift"};
    EXPECT_EQ(encoded(&Library::investmentTransactions, row),
              R"({"accountID":"00000000-0000-0000-0000-000000000002","action":"sharesIn",)"
              R"("amount":0,"commission":9.99,"date":"2024-01-02T00:00:00Z",)"
              R"("id":"00000000-0000-0000-0000-000000000001","memo":"gift","price":2,)"
              R"("securityID":"00000000-0000-0000-0000-000000000003","shares":1.5})");
}

TEST(LibraryEncoding, WritesAReminder) {
    ScheduledTransaction reminder{id("1"),
                                  "Rent",
                                  id("2"),
                                  amount("-900"),
                                  id("3"),
                                  id("4"),
                                  "flat",
                                  Frequency::biweekly,
                                  day(2024, 4, 1, 4),
                                  day(2025, 4, 1, 4),
                                  true};
    EXPECT_EQ(encoded(&Library::scheduled, reminder),
              R"({"accountID":"00000000-0000-0000-0000-000000000002","amount":-900,)"
              R"("autoEnter":true,"categoryID":"00000000-0000-0000-0000-000000000003",)"
              R"("endDate":"2025-04-01T04:00:00Z","frequency":"biweekly",)"
              R"("id":"00000000-0000-0000-0000-000000000001","memo":"flat",)"
              R"("nextDate":"2024-04-01T04:00:00Z","payee":"Rent",)"
              R"("transferAccountID":"00000000-0000-0000-0000-000000000004"})");
}

TEST(LibraryEncoding, WritesAGoal) {
    EXPECT_EQ(encoded(&Library::goals, SavingsGoal{id("1"), "Trip", "airplane", amount("3000"),
                                                   amount("12.5"), day(2025, 7, 1, 0)}),
              R"({"id":"00000000-0000-0000-0000-000000000001","name":"Trip","saved":12.5,)"
              R"("symbolName":"airplane","target":3000,"targetDate":"2025-07-01T00:00:00Z"})");
}

TEST(LibraryEncoding, WritesTheBudgetAsAListOfAlternatingKeysAndAmounts) {
    Library library{.currencyCode = "CAD"};
    library.budget[id("2")] = amount("250");
    library.budget[id("1")] = amount("99.5");
    EXPECT_NE(
        encodeLibrary(library).find(R"("budget":["00000000-0000-0000-0000-000000000001",99.5,)"
                                    R"("00000000-0000-0000-0000-000000000002",250],)"),
        std::string::npos);
}

TEST(LibraryEncoding, WritesAmountsWithAllTheirDigits) {
    for (const std::string_view digits :
         {"0.1", "12345678901234567.891", "-99999999999999999999999999999999999999",
          "0.00000000000000000000000000000000000001", "1000000000000000000000000"}) {
        Transaction entry = plainEntry();
        entry.amount = amount(digits);
        EXPECT_NE(
            encoded(&Library::transactions, entry).find("\"amount\":" + std::string(digits) + ","),
            std::string::npos)
            << digits;
    }
}

TEST(LibraryEncoding, GivesTheSameBytesEachTime) {
    const Library library = RandomLibrary(1).make(300);
    EXPECT_EQ(encodeLibrary(library), encodeLibrary(library));
}

TEST(LibraryEncoding, RefusesAnAmountThatIsNotANumber) {
    Transaction entry = plainEntry();
    entry.amount = Decimal::nan();
    EXPECT_THROW((void)encoded(&Library::transactions, entry), LocalizedError);
}

TEST(LibraryEncoding, RefusesADateThatIsNone) {
    Transaction entry = plainEntry();
    entry.date = Date{std::numeric_limits<double>::infinity()};
    EXPECT_THROW((void)encoded(&Library::transactions, entry), LocalizedError);
}

TEST(LibraryEncoding, MakesATextReadableThatIsNotUTF8) {
    Library library{.currencyCode = "CAD"};
    Transaction entry = plainEntry();
    entry.payee = "caf\xE9";
    library.transactions.push_back(entry);
    EXPECT_EQ(decodeLibrary(encodeLibrary(library)).transactions[0].payee, "caf\uFFFD");
}

} // namespace
} // namespace oakfen
