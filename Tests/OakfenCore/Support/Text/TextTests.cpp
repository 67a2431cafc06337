#include "OakfenCore/Support/Text/Text.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::LocaleForTest;

constexpr std::string_view composedE = "\u00E9";
constexpr std::string_view decomposedE = "e\u0301";
constexpr std::string_view brokenText = "a\xFF\xC3(\xE2\x82z\xF0\x9F";

std::vector<std::string> characters(std::string_view text) {
    std::vector<std::string> result;
    forEachCharacter(text, [&](std::string_view character) { result.emplace_back(character); });
    EXPECT_EQ(result.size(), characterCount(text));
    return result;
}

using Strings = std::vector<std::string>;

TEST(Text, TrimsBlanksAndTabsButNotLineEnds) {
    EXPECT_EQ(trimmingWhitespaces(" \t\u00A0\u3000 a b\u2003\t "), "a b");
    EXPECT_EQ(trimmingWhitespaces(" \na\r\n "), "\na\r\n");
    EXPECT_EQ(trimmingWhitespaces(" \t "), "");
    EXPECT_EQ(trimmingWhitespaces(""), "");
}

TEST(Text, KeepsLettersWhoseBytesLookLikeBlanks) {
    // The last byte of the letter is that of a no-break space.
    EXPECT_EQ(trimmingWhitespaces("\u0120"), "\u0120");
    EXPECT_EQ(trimmingWhitespaces("\xA0"), "\xA0");
}

TEST(Text, TrimsLineEndsToo) {
    EXPECT_EQ(trimmingWhitespacesAndNewlines("\r\n\t\u2028 a\nb \u0085\n\f"), "a\nb");
}

TEST(Text, TrimmingLeavesAViewIntoTheText) {
    const std::string text = "  payee ";
    EXPECT_EQ(trimmingWhitespaces(text).data(), text.data() + 2);
}

TEST(Text, MapsCaseOfWholeTexts) {
    EXPECT_EQ(lowercased("Caf\u00C9 42"), "caf\u00E9 42");
    EXPECT_EQ(lowercased("\u039F\u0394\u039F\u03A3"), "\u03BF\u03B4\u03BF\u03C2");
    EXPECT_EQ(uppercased("stra\u00DFe 7"), "STRASSE 7");
    EXPECT_EQ(lowercased("ABC xyz"), "abc xyz");
}

TEST(Text, MapsCaseTheSameInEveryLocale) {
    const LocaleForTest turkish("tr_TR");
    EXPECT_EQ(lowercased("TITLE I"), "title i");
    EXPECT_EQ(uppercased("title i"), "TITLE I");
    EXPECT_EQ(caseFolded("I"), "i");
    EXPECT_TRUE(localizedCaseInsensitiveContains("BIRIM", "birim"));
}

TEST(Text, Composes) {
    EXPECT_EQ(composed(decomposedE), composedE);
    EXPECT_EQ(composed("plain"), "plain");
}

TEST(Text, FoldsCaseAndComposition) {
    EXPECT_EQ(caseFolded("CAFE\u0301"), caseFolded("caf\u00E9"));
    EXPECT_NE(caseFolded("cafe"), caseFolded("caf\u00E9"));
    EXPECT_EQ(caseFolded("STRASSE"), caseFolded("stra\u00DFe"));
    EXPECT_EQ(caseFolded("\u212A"), "k");
}

TEST(Text, EqualsWithoutRegardToCase) {
    EXPECT_TRUE(equalsCaseInsensitively("Groceries", "gROCERIES"));
    EXPECT_TRUE(equalsCaseInsensitively("\u00C9t\u00E9", "e\u0301TE\u0301"));
    EXPECT_TRUE(equalsCaseInsensitively("", ""));
    EXPECT_FALSE(equalsCaseInsensitively("Grocery", "Groceries"));
    EXPECT_FALSE(equalsCaseInsensitively("ete", "\u00E9t\u00E9"));
    EXPECT_FALSE(equalsCaseInsensitively("a", "b"));
}

TEST(Text, OrdersForPeopleWithoutRegardToCase) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(localizedCaseInsensitiveCompare("visa", "VISA"), 0);
    EXPECT_LT(localizedCaseInsensitiveCompare("apple", "Banana"), 0);
    EXPECT_GT(localizedCaseInsensitiveCompare("\u00C9clair", "eat"), 0);
    EXPECT_LT(localizedCaseInsensitiveCompare("\u00E9clair", "Fig"), 0);
    EXPECT_LT(localizedCaseInsensitiveCompare("cote", "cot\u00E9"), 0);
    EXPECT_EQ(localizedCaseInsensitiveCompare(composedE, decomposedE), 0);
    EXPECT_LT(localizedCaseInsensitiveCompare("", "a"), 0);
}

TEST(Text, OrdersAsTheUsersLocaleDoes) {
    const LocaleForTest swedish("sv_SE.UTF-8");
    EXPECT_GT(localizedCaseInsensitiveCompare("\u00E5", "z"), 0);
    const LocaleForTest english("en_CA");
    EXPECT_LT(localizedCaseInsensitiveCompare("\u00E5", "z"), 0);
}

TEST(Text, OrdersRunsOfDigitsAsNumbers) {
    EXPECT_LT(localizedStandardCompare("Account 9", "account 10"), 0);
    EXPECT_GT(localizedStandardCompare("10", "9"), 0);
    EXPECT_EQ(localizedStandardCompare("x1", "x1"), 0);
}

TEST(Text, SortKeysOrderAsTheComparisonDoes) {
    const Strings texts = {"",
                           "a",
                           "A",
                           "\u00E9clair",
                           "eat",
                           "Eat out",
                           "Zoo",
                           "10",
                           "9",
                           "\u00C5se",
                           "-",
                           " x",
                           "\u6F22",
                           "stra\u00DFe",
                           "cot\u00E9",
                           "cote",
                           std::string(300, 'q')};
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    for (const auto& a : texts) {
        for (const auto& b : texts) {
            const int keys = localizedSortKey(a).compare(localizedSortKey(b));
            EXPECT_EQ(sign(keys), sign(localizedCaseInsensitiveCompare(a, b))) << a << " / " << b;
        }
    }
}

TEST(Text, ContainsWithoutRegardToCaseOrComposition) {
    EXPECT_TRUE(localizedCaseInsensitiveContains("Corner Grocery", "GROC"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("Caf\u00E9 Noir", "CAFE\u0301"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("CAFE\u0301 Noir", "\u00E9 n"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("kelvin", "\u212A"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("KELVIN", "\u212Ae"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Corner Grocery", "grocers"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("", "a"));
}

TEST(Text, ContainsHeedsAccents) {
    EXPECT_FALSE(localizedCaseInsensitiveContains("Caf\u00E9", "cafe"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Cafe", "caf\u00E9"));
    // There is no composed form of this one.
    EXPECT_FALSE(localizedCaseInsensitiveContains("x\u0302", "x"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("x\u0302 x", "X"));
}

TEST(Text, EveryTextContainsTheEmptyOne) {
    EXPECT_TRUE(localizedCaseInsensitiveContains("", ""));
    EXPECT_TRUE(localizedCaseInsensitiveContains("a", ""));
    EXPECT_TRUE(localizedCaseInsensitiveContains(composedE, ""));
}

TEST(Text, WalksPlainTextByteByByte) {
    EXPECT_EQ(characters("a,b"), (Strings{"a", ",", "b"}));
    EXPECT_EQ(characters(""), Strings{});
}

TEST(Text, CarriageReturnAndLineFeedAreOneCharacter) {
    EXPECT_EQ(characters("a\r\nb\r\r\n\n"), (Strings{"a", "\r\n", "b", "\r", "\r\n", "\n"}));
}

TEST(Text, AMarkBelongsToTheCharacterBeforeIt) {
    EXPECT_EQ(characters("ae\u0301\u0302b"), (Strings{"a", "e\u0301\u0302", "b"}));
    EXPECT_EQ(characters("\"\u0301,"), (Strings{"\"\u0301", ","}));
    EXPECT_EQ(characters("\n\u0301"), (Strings{"\n", "\u0301"}));
    EXPECT_EQ(characters("\r\n\u0301"), (Strings{"\r\n", "\u0301"}));
}

TEST(Text, SequencesThatPeopleSeeAsOneAreOne) {
    const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
    EXPECT_EQ(characters(family + "x"), (Strings{family, "x"}));
    EXPECT_EQ(characters("\U0001F1E8\U0001F1E6\U0001F1E8"),
              (Strings{"\U0001F1E8\U0001F1E6", "\U0001F1E8"}));
    EXPECT_EQ(characters("\u1100\u1161\u11A8\u1100"), (Strings{"\u1100\u1161\u11A8", "\u1100"}));
    EXPECT_EQ(characters("\u6F22\u5B57"), (Strings{"\u6F22", "\u5B57"}));
    EXPECT_EQ(characters("a\u200Db"), (Strings{"a\u200D", "b"}));
    EXPECT_EQ(characters("\u06001"), (Strings{"\u06001"}));
}

TEST(Text, WalksBrokenTextWithoutLosingAByte) {
    std::string together;
    for (const auto& character : characters(brokenText)) {
        EXPECT_FALSE(character.empty());
        together += character;
    }
    EXPECT_EQ(together, brokenText);
}

TEST(Text, WalksALongRunOfMarksInOnePass) {
    std::string text = "a";
    for (int i = 0; i < 500'000; ++i) {
        text += "\u0301";
    }
    EXPECT_EQ(characterCount(text), 1U);
}

TEST(Text, SurvivesBrokenTextEverywhere) {
    for (const std::string_view text :
         {brokenText, std::string_view("\xC3"), std::string_view("\xED\xA0\x80"),
          std::string_view("\0a", 2)}) {
        EXPECT_EQ(lowercased(text), text);
        EXPECT_EQ(lowercased(uppercased(text)), text);
        EXPECT_EQ(caseFolded(caseFolded(text)), caseFolded(text));
        EXPECT_EQ(localizedCaseInsensitiveCompare(text, text), 0);
        EXPECT_TRUE(localizedCaseInsensitiveContains(text, text));
        EXPECT_TRUE(equalsCaseInsensitively(text, text));
        EXPECT_EQ(localizedSortKey(text), localizedSortKey(text));
        EXPECT_EQ(trimmingWhitespaces(text), text);
    }
}

TEST(Text, TellsWellFormedBytes) {
    EXPECT_TRUE(isValidUTF8(""));
    EXPECT_TRUE(isValidUTF8("plain"));
    EXPECT_TRUE(isValidUTF8("\u00E9\u6F22\U0001F468"));
    EXPECT_FALSE(isValidUTF8("\xC0\x80"));
    EXPECT_FALSE(isValidUTF8("\xED\xA0\x80"));
    EXPECT_FALSE(isValidUTF8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(isValidUTF8("abc\xE9"));
    EXPECT_FALSE(isValidUTF8(brokenText));
}

TEST(Text, ReadsLatin1) {
    EXPECT_EQ(latin1ToUTF8("Caf\xE9 \xA0\xFF"), "Caf\u00E9 \u00A0\u00FF");
    EXPECT_EQ(latin1ToUTF8(""), "");
}

TEST(Text, SplitKeepsEmptyPieces) {
    using Views = std::vector<std::string_view>;
    EXPECT_EQ(split("a::b:", ':'), (Views{"a", "", "b", ""}));
    EXPECT_EQ(split("", ':'), Views{""});
}

TEST(Text, JoinsPieces) {
    EXPECT_EQ(joined({"Home", "Rent", "May"}, ": "), "Home: Rent: May");
    EXPECT_EQ(joined({"Home"}, ": "), "Home");
    EXPECT_EQ(joined({}, ": "), "");
}

TEST(ReplacingAll, ReplacesFromLeftToRightAndNothingTwice) {
    EXPECT_EQ(replacingAll("aXbXX", "X", "XY"), "aXYbXYXY");
    EXPECT_EQ(replacingAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replacingAll("", "a", "b"), "");
    EXPECT_EQ(replacingAll("abc", "x", "b"), "abc");
}

} // namespace
} // namespace oakfen
