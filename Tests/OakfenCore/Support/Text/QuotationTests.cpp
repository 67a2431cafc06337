#include "OakfenCore/Support/Text/Quotation.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

using namespace std::string_view_literals;

TEST(Quotation, LeavesWhatCanBeReadAsItIs) {
    for (const std::string_view text :
         {"", "goals", "Café du Marché", "漢字 ةيبرع", "a\\b \"c\" ’d’", "👨‍👩‍👧",
          "می‌خواهم", "a b"}) {
        EXPECT_EQ(legible(text), text);
    }
}

TEST(Quotation, PutsQuotationMarksRoundTheText) {
    EXPECT_EQ(quoted("March.csv"), "“March.csv”");
    EXPECT_EQ(quoted("a\nb"), "“a\\nb”");
}

TEST(Quotation, EscapesControlCharacters) {
    EXPECT_EQ(legible("\0"sv), "\\u0000");
    EXPECT_EQ(legible("a\r\n\tb"), "a\\r\\n\\tb");
    EXPECT_EQ(legible("\x1B[2J\x7F"), "\\u001B[2J\\u007F");
    EXPECT_EQ(legible("\u0085"), "\\u0085");
}

TEST(Quotation, EscapesWhatBreaksLinesOrTurnsTheWritingOrHides) {
    EXPECT_EQ(legible("a\u2028b\u2029c"), "a\\u2028b\\u2029c");
    EXPECT_EQ(legible("\u202Egnp.\u2066\u200F"), "\\u202Egnp.\\u2066\\u200F");
    EXPECT_EQ(legible("\uFEFFa\u200Bb\u00AD"), "\\uFEFFa\\u200Bb\\u00AD");
    EXPECT_EQ(legible("\U000E0041"), "\\U000E0041");
}

TEST(Quotation, EscapesTheBytesThatAreNotUTF8) {
    EXPECT_EQ(legible("caf\xE9.csv"), "caf\\xE9.csv");
    EXPECT_EQ(legible("\xE2\x82"), "\\xE2\\x82");
    EXPECT_EQ(legible("\xED\xA0\x80"), "\\xED\\xA0\\x80");
}

TEST(Quotation, EndsALongTextAfterEightyCharacters) {
    const std::string whole(mostLegibleCharacters, 'x');
    EXPECT_EQ(legible(whole), whole);
    EXPECT_EQ(legible(whole + "y"), whole + "…");
    std::string accented;
    for (std::size_t count = 0; count < mostLegibleCharacters; ++count) {
        accented += "é";
    }
    EXPECT_EQ(legible(accented), accented);
    EXPECT_EQ(legible(accented + "\xFF"), accented + "…");
}

TEST(Quotation, IsShortAndWholeForEveryPairOfBytes) {
    for (unsigned pair = 0; pair < 0x10000; ++pair) {
        const std::string bytes{static_cast<char>(pair >> 8U), static_cast<char>(pair & 0xFFU)};
        const std::string text = legible(bytes);
        ASSERT_LE(text.size(), 12U) << pair;
        for (const char byte : text) {
            ASSERT_TRUE(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F) << pair;
        }
        ASSERT_EQ(legible(text), text) << pair;
    }
}

} // namespace
} // namespace oakfen
