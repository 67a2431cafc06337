#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::RandomLibrary;

constexpr std::string_view firstID = "6E8BC430-9C3A-11D9-9669-0800200C9A66";
constexpr std::string_view secondID = "6E8BC430-9C3A-11D9-9669-0800200C9A67";

/// A document in which every list holds one record, every required key once.
const std::string document =
    R"({"version":1,"currencyCode":"CAD",)"
    R"("accounts":[{"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66","name":"Main",)"
    R"("type":"chequing","institution":"","openingBalance":10,)"
    R"("openingDate":"2024-01-01T00:00:00Z","isClosed":false,"notes":""}],)"
    R"("categories":[{"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66","name":"Food",)"
    R"("kind":"expense","isTaxRelated":false}],)"
    R"("transactions":[{"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66",)"
    R"("accountID":"6E8BC430-9C3A-11D9-9669-0800200C9A66","date":"2024-03-01T05:00:00Z",)"
    R"("payee":"Metro","amount":-1.5,"splits":[)"
    R"({"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66","memo":"soap","amount":-1.5}],)"
    R"("memo":"m","checkNumber":"","cleared":"cleared","tags":["x"]}],)"
    R"("securities":[{"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66","symbol":"XIC",)"
    R"("name":"Fund","kind":"etf","price":30,)"
    R"("priceHistory":[{"date":"2024-01-02T00:00:00Z","price":29}]}],)"
    R"("investmentTransactions":[{"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66",)"
    R"("accountID":"6E8BC430-9C3A-11D9-9669-0800200C9A66","date":"2024-01-02T00:00:00Z",)"
    R"("action":"buy","shares":2,"price":3,"commission":0,"amount":6,"memo":""}],)"
    R"("scheduled":[{"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66","payee":"Rent",)"
    R"("accountID":"6E8BC430-9C3A-11D9-9669-0800200C9A66","amount":-900,"memo":"",)"
    R"("frequency":"monthly","nextDate":"2024-04-01T04:00:00Z","autoEnter":true}],)"
    R"("budget":["6E8BC430-9C3A-11D9-9669-0800200C9A66",250],)"
    R"("goals":[{"id":"6E8BC430-9C3A-11D9-9669-0800200C9A66","name":"Trip",)"
    R"("symbolName":"airplane","target":3000,"saved":5}]})";

/// The document with one piece of its text exchanged; the piece must be there.
std::string with(std::string_view piece, std::string_view replacement,
                 std::string text = document) {
    const std::size_t position = text.find(piece);
    EXPECT_NE(position, std::string::npos) << piece;
    return text.replace(position, piece.size(), replacement);
}

/// What the error says, or nothing when the text loads.
std::string errorFor(const std::string& text) {
    try {
        (void)decodeLibrary(text);
        return "";
    } catch (const LibraryDecodingError& error) {
        return error.place().empty() ? error.localizedDescription() : error.place();
    }
}

TEST(LibraryDecoding, ReadsEveryRecord) {
    const Library library = decodeLibrary(document);
    EXPECT_EQ(library.accounts[0].openingBalance, Decimal(10));
    EXPECT_EQ(library.categories[0].kind, CategoryKind::expense);
    const Transaction& entry = library.transactions[0];
    EXPECT_EQ(entry.id, UUID::parse(firstID));
    EXPECT_EQ(entry.date, day(2024, 3, 1, 5));
    EXPECT_EQ(entry.amount, amount("-1.5"));
    EXPECT_EQ(entry.splits.at(0).memo, "soap");
    EXPECT_EQ(entry.cleared, ClearedState::cleared);
    EXPECT_EQ(entry.tags, std::vector<std::string>{"x"});
    EXPECT_EQ(entry.importID, std::nullopt);
    EXPECT_EQ(library.securities[0].priceHistory.at(0).price, Decimal(29));
    EXPECT_EQ(library.investmentTransactions[0].action, InvestmentAction::buy);
    EXPECT_TRUE(library.scheduled[0].autoEnter);
    EXPECT_EQ(library.budget.at(UUID::parse(firstID).value()), Decimal(250));
    EXPECT_EQ(library.goals[0].symbolName, "airplane");
}

TEST(LibraryDecoding, ReadsBackWhatIsWritten) {
    for (std::uint64_t seed = 0; seed < 40; ++seed) {
        const Library library = RandomLibrary(seed).make(60);
        ASSERT_EQ(decodeLibrary(encodeLibrary(library)), library) << "seed " << seed;
    }
}

TEST(LibraryDecoding, LosesFractionsOfASecondInARoundTrip) {
    Library library = decodeLibrary(document);
    library.transactions.edit(0).date = day(2024, 3, 1, 12).adding(0.75);
    EXPECT_EQ(decodeLibrary(encodeLibrary(library)).transactions[0].date, day(2024, 3, 1, 12));
}

TEST(LibraryDecoding, KeepsAYearFarAwayReadable) {
    Library library = decodeLibrary(document);
    library.transactions.edit(0).date = day(20245, 2, 28);
    library.scheduled.edit(0).endDate = day(1, 1, 1).adding(-1e10);
    EXPECT_EQ(decodeLibrary(encodeLibrary(library)), library);
}

TEST(LibraryDecoding, TakesNullForNoValue) {
    const std::string text =
        with("\"payee\":\"Metro\",",
             R"("payee":"Metro","categoryID":null,"transferAccountID":null,"transferID":null,)"
             R"("importID":null,)");
    const Library library = decodeLibrary(text);
    EXPECT_EQ(library, decodeLibrary(document));
}

TEST(LibraryDecoding, IgnoresUnknownKeysAtEveryLevel) {
    std::string text = document;
    std::size_t count = 0;
    for (std::size_t position = text.find('{'); position != std::string::npos;
         position = text.find('{', position + 1)) {
        constexpr std::string_view unknown = R"("unknown":[[1,{}],"}",{"id":1,"tags":null}],"":0,)";
        text.insert(position + 1, unknown);
        position += unknown.size();
        ++count;
    }
    EXPECT_EQ(count, 10U);
    EXPECT_EQ(decodeLibrary(text), decodeLibrary(document));
}

TEST(LibraryDecoding, IgnoresAnUnknownKeyWithAHundredThousandLevels) {
    const std::string deep = std::string(100'000, '[') + std::string(100'000, ']');
    EXPECT_EQ(decodeLibrary(with("{\"version\"", "{\"deep\":" + deep + ",\"version\"")),
              decodeLibrary(document));
}

TEST(LibraryDecoding, TakesTheLastOfEqualKeys) {
    const Library library = decodeLibrary(with(
        "\"payee\":\"Metro\"",
        R"("payee":"Old","tags":["p","q"],"splits":[],"payee":"New","importID":"i","importID":null)"));
    EXPECT_EQ(library.transactions[0].payee, "New");
    EXPECT_EQ(library.transactions[0].tags, std::vector<std::string>{"x"});
    EXPECT_EQ(library.transactions[0].importID, std::nullopt);
}

TEST(LibraryDecoding, TakesTheLastOfEqualBudgetCategories) {
    const std::string entry = "\"" + std::string(firstID) + "\",250";
    const Library library =
        decodeLibrary(with(entry, entry + ",\"" + std::string(firstID) + "\",300"));
    EXPECT_EQ(library.budget.size(), 1U);
    EXPECT_EQ(library.budget.begin()->second, Decimal(300));
}

TEST(LibraryDecoding, ReadsForeignFormsOfTheSameValues) {
    const auto entryOf = [](std::string_view piece, std::string_view replacement) {
        return decodeLibrary(with(piece, replacement)).transactions[0];
    };
    EXPECT_EQ(entryOf("-1.5", "-15e-1").amount, amount("-1.5"));
    EXPECT_EQ(entryOf("-1.5", "-0.015E+2").amount, amount("-1.5"));
    EXPECT_EQ(entryOf("-1.5", "-0").amount, Decimal());
    EXPECT_EQ(entryOf("-1.5", "1.000").amount, Decimal(1));
    EXPECT_EQ(entryOf("2024-03-01T05:00:00Z", "2024-03-01T10:30:00+05:30").date,
              day(2024, 3, 1, 5));
    EXPECT_EQ(entryOf("2024-03-01T05:00:00Z", "2024-03-01T00:00:00-0500").date, day(2024, 3, 1, 5));
    EXPECT_EQ(entryOf("Metro", "Caf\\u00e9 \\ud83d\\ude00 a/b").payee, "Café 😀 a/b");
    std::string lowerCase(secondID);
    for (char& character : lowerCase) {
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    EXPECT_EQ(decodeLibrary(with(firstID, lowerCase)).accounts[0].id, UUID::parse(secondID));
}

TEST(LibraryDecoding, RoundsDigitsPastTheThirtyEighth) {
    const std::string digits = "1.2345678901234567890123456789012345678";
    EXPECT_EQ(decodeLibrary(with("-1.5", digits + "5")).transactions[0].amount,
              amount("1.2345678901234567890123456789012345679"));
}

TEST(LibraryDecoding, ReadsATextWithWhiteSpaceAndAByteOrderMark) {
    std::string text = "\xEF\xBB\xBF \n";
    for (const char character : document) {
        text += character;
        if (std::string_view("{}[],").find(character) != std::string_view::npos) {
            text += "\r\n\t ";
        }
    }
    EXPECT_EQ(decodeLibrary(text), decodeLibrary(document));
}

TEST(LibraryDecoding, RefusesANewerVersion) {
    EXPECT_EQ(errorFor(with("\"version\":1", "\"version\":2")),
              "This file was created by a newer version of Oakfen.");
}

TEST(LibraryDecoding, ReadsOlderVersions) {
    EXPECT_EQ(decodeLibrary(with("\"version\":1", "\"version\":0")).version, 0);
    EXPECT_EQ(decodeLibrary(with("\"version\":1", "\"version\":-3")).version, -3);
    EXPECT_EQ(decodeLibrary(with("\"version\":1", "\"version\":1.0")).version, 1);
    EXPECT_EQ(decodeLibrary(with("\"version\":1", "\"version\":1e0")).version, 1);
}

TEST(LibraryDecoding, ReportsDamageOfANewerDocumentFirst) {
    EXPECT_EQ(errorFor(with("\"version\":1", "\"version\":2", with("-1.5", "true"))),
              "transactions[0].amount: not a number");
}

TEST(LibraryDecoding, RequiresAWholeNumberAsVersion) {
    EXPECT_EQ(errorFor(with("\"version\":1", "\"version\":1.5")), "version: not a whole number");
    EXPECT_EQ(errorFor(with("\"version\":1", "\"version\":1e30")),
              "version: a number out of range");
    EXPECT_EQ(errorFor(with("\"version\":1", "\"version\":\"1\"")), "version: not a number");
}

TEST(LibraryDecoding, RequiresGoals) {
    std::string text = document.substr(0, document.find(",\"goals\"")) + "}";
    EXPECT_EQ(errorFor(text), "the key “goals” is missing");
}

TEST(LibraryDecoding, RequiresEachKeyOfEachRecord) {
    // Misspelling one key after the other makes that key missing.
    std::size_t count = 0;
    for (std::size_t colon = document.find("\":"); colon != std::string::npos;
         colon = document.find("\":", colon + 1)) {
        std::string text = document;
        text.insert(colon, "s");
        EXPECT_NE(errorFor(text).find("is missing"), std::string::npos)
            << document.substr(0, colon).substr(document.rfind('"', colon - 1));
        ++count;
    }
    EXPECT_EQ(count, 65U);
}

TEST(LibraryDecoding, SaysWhereAValueHasTheWrongType) {
    EXPECT_EQ(errorFor(with("\"isClosed\":false", "\"isClosed\":0")),
              "accounts[0].isClosed: not true or false");
    EXPECT_EQ(errorFor(with("\"isClosed\":false", "\"isClosed\":null")),
              "accounts[0].isClosed: not true or false");
    EXPECT_EQ(errorFor(with("\"Metro\"", "null")), "transactions[0].payee: not a text");
    EXPECT_EQ(errorFor(with("\"Metro\"", "[]")), "transactions[0].payee: not a text");
    EXPECT_EQ(errorFor(with("-1.5", "\"-1.5\"")), "transactions[0].amount: not a number");
    EXPECT_EQ(errorFor(with("\"memo\":\"soap\"", "\"memo\":7")),
              "transactions[0].splits[0].memo: not a text");
    EXPECT_EQ(errorFor(with("[\"x\"]", "[\"x\",1]")), "transactions[0].tags[1]: not a text");
    EXPECT_EQ(errorFor(with("[\"x\"]", "{}")), "transactions[0].tags: not a list");
    EXPECT_EQ(errorFor(with("[\"x\"]", "null")), "transactions[0].tags: not a list");
    EXPECT_EQ(errorFor(with("\"goals\":[", "\"goals\":[1,")), "goals[0]: not an object");
    EXPECT_EQ(errorFor("[]"), "not an object");
    EXPECT_EQ(errorFor("null"), "not an object");
}

TEST(LibraryDecoding, RefusesUnknownEnumerationTexts) {
    EXPECT_EQ(errorFor(with("chequing", "Chequing")), "accounts[0].type: “Chequing” is unknown");
    EXPECT_EQ(errorFor(with("\"cleared\":\"cleared\"", "\"cleared\":\"\"")),
              "transactions[0].cleared: “” is unknown");
    EXPECT_EQ(errorFor(with("monthly", "fortnightly")),
              "scheduled[0].frequency: “fortnightly” is unknown");
}

TEST(LibraryDecoding, RefusesWhatIsNoIdentifier) {
    for (const std::string_view text :
         {"", "6E8BC4309C3A11D996690800200C9A66", "{6E8BC430-9C3A-11D9-9669-0800200C9A66}",
          "6E8BC430-9C3A-11D9-9669-0800200C9A6G"}) {
        EXPECT_EQ(errorFor(with(firstID, text)), "accounts[0].id: not an identifier") << text;
    }
}

TEST(LibraryDecoding, RefusesDatesInOtherForms) {
    for (const std::string_view text : {"2024-03-01", "2024-03-01T05:00:00.250Z",
                                        "2024-02-30T05:00:00Z", "2024-03-01T05:00:00"}) {
        EXPECT_EQ(errorFor(with("2024-03-01T05:00:00Z", text)), "transactions[0].date: not a date")
            << text;
    }
    EXPECT_EQ(errorFor(with("\"2024-03-01T05:00:00Z\"", "730962000")),
              "transactions[0].date: not a text");
}

TEST(LibraryDecoding, RefusesNumbersThatJSONHasNot) {
    for (const std::string_view number : {"01", "1.", ".5", "+1", "1e", "NaN", "0x1", "1,5"}) {
        EXPECT_NE(errorFor(with("-1.5", number)), "") << number;
    }
}

TEST(LibraryDecoding, RefusesNumbersTooLargeForAnAmount) {
    for (const std::string_view number : {"1e400", "-1e400", "1e200", "1e99999999999"}) {
        EXPECT_EQ(errorFor(with("-1.5", number)), "transactions[0].amount: a number out of range")
            << number;
    }
}

TEST(LibraryDecoding, TakesANumberTooSmallToHoldForZero) {
    EXPECT_EQ(decodeLibrary(with("-1.5", "1e-400")).transactions[0].amount, Decimal());
}

TEST(LibraryDecoding, RefusesAnOddBudget) {
    EXPECT_EQ(errorFor(with(",250]", "]")), "budget: the last category has no amount");
    EXPECT_EQ(errorFor(with(",250]", ",\"250\"]")), "budget[1]: not a number");
    EXPECT_EQ(errorFor(with(",250]", ",250,true,1]")), "budget[2]: not a text");
    EXPECT_EQ(errorFor(with("[\"" + std::string(firstID) + "\",250]", "{}")), "budget: not a list");
}

TEST(LibraryDecoding, RefusesEveryTruncation) {
    for (std::size_t length = 0; length < document.size(); ++length) {
        ASSERT_NE(errorFor(document.substr(0, length)), "") << length;
    }
}

TEST(LibraryDecoding, RefusesTextAfterTheEnd) {
    EXPECT_NE(errorFor(document + "x"), "");
    EXPECT_NE(errorFor(document + document), "");
    EXPECT_NE(errorFor(document + std::string(1, '\0')), "");
    EXPECT_EQ(errorFor(document + " \n"), "");
}

TEST(LibraryDecoding, RefusesBytesThatAreNotUTF8) {
    EXPECT_EQ(errorFor(with("Metro", "M\xE9tro")).substr(0, 34),
              "transactions[0].payee: not UTF-8 (");
    EXPECT_NE(errorFor(with("\"version\"", "\"unknown\":\"\xFF\",\"version\"")), "");
    EXPECT_NE(errorFor(with("Metro", "\\udc00")), "");
}

TEST(LibraryDecoding, RefusesADamagedValueBehindAnUnknownKey) {
    EXPECT_EQ(errorFor(with("{\"version\"", "{\"unknown\":[1,],\"version\"")),
              "unknown: expected a value (byte 14)");
    EXPECT_EQ(errorFor(with("\"memo\":\"soap\"", R"("memo":"soap","old":{"a":["\udc00"]})"))
                  .substr(0, 42),
              "transactions[0].splits[0].old: not UTF-8 (");
    EXPECT_EQ(errorFor(with("{\"version\"", "{\"unknown\":{\"a\":1e400},\"version\"")),
              "unknown: a number out of range");
}

TEST(LibraryDecoding, ShowsAnUnknownKeyWithEscapesForWhatCannotBeSeen) {
    EXPECT_EQ(errorFor("{\"\\u0000\",\n5"), "\\u0000: expected a colon (byte 9)");
    EXPECT_EQ(errorFor("{\"a\\nb\\u202E\":]"), "a\\nb\\u202E: expected a value (byte 14)");
    EXPECT_EQ(errorFor("{\"" + std::string(1'000'000, 'k') + "\":}"),
              std::string(80, 'k') + "…: expected a value (byte 1000004)");
}

TEST(LibraryDecoding, ShowsAnUnknownValueWithEscapesForWhatCannotBeSeen) {
    const std::string path = "transactions[0].cleared: ";
    const auto errorForState = [&](const std::string& state) {
        return errorFor(with(R"("cleared":"cleared")", "\"cleared\":\"" + state + "\""));
    };
    EXPECT_EQ(errorForState("\\u0000"), path + "“\\u0000” is unknown");
    EXPECT_EQ(errorForState("cleared\\u2028\\ud83d\\ude00"), path + "“cleared\\u2028😀” is unknown");
    EXPECT_EQ(errorForState(std::string(5000, 'x')),
              path + "“" + std::string(80, 'x') + "…” is unknown");
}

TEST(LibraryDecoding, SaysWhereDamageLiesBetweenValues) {
    EXPECT_EQ(errorFor(with("\"Metro\",", "\"Metro\";")).substr(0, 17), "transactions[0]: ");
    EXPECT_EQ(errorFor(with("[\"x\"]", "[\"x\" 1]")).substr(0, 25), "transactions[0].tags[1]: ");
    EXPECT_EQ(errorFor(with("\"tags\":[\"x\"]}", "\"tags\":[\"x\"]}}")).substr(0, 17),
              "transactions[1]: ");
    EXPECT_EQ(errorFor(with("\"price\":29}", "\"price\":29},]")).substr(0, 31),
              "securities[0].priceHistory[1]: ");
}

} // namespace
} // namespace oakfen
