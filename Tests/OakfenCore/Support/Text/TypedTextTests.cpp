#include "OakfenCore/Support/Text/TypedText.h"

#include <gtest/gtest.h>

namespace oakfen {

TEST(HoldsWord, FindsTwoLettersOfAnyScriptInARow) {
    EXPECT_TRUE(holdsWord("5 мая"));
    EXPECT_TRUE(holdsWord("5 Μαΐου"));
    EXPECT_TRUE(holdsWord("٥ مايو"));
    EXPECT_TRUE(holdsWord("ab"));
    EXPECT_FALSE(holdsWord("2026年4月5日"));
    EXPECT_FALSE(holdsWord("5.4.2026 г."));
    EXPECT_FALSE(holdsWord("2026-04-05"));
    EXPECT_FALSE(holdsWord(""));
}

TEST(PlainTyping, LeavesASCIIAndLettersAsTheyAre) {
    EXPECT_EQ(plainTyping("12.50 + 3*(2) CAD"), "12.50 + 3*(2) CAD");
    EXPECT_EQ(plainTyping("Café 家"), "Café 家");
    EXPECT_EQ(plainTyping(""), "");
}

TEST(PlainTyping, WritesTheDigitsOfEveryScriptInASCII) {
    EXPECT_EQ(plainTyping("٠١٢٣٤٥٦٧٨٩"), "0123456789");
    EXPECT_EQ(plainTyping("۰۹"), "09");
    EXPECT_EQ(plainTyping("१२"), "12");
    EXPECT_EQ(plainTyping("１２．５"), "12.5");
    EXPECT_EQ(plainTyping("\U0001E951"), "1");
}

TEST(PlainTyping, KeepsNumbersThatAreNoDigits) {
    EXPECT_EQ(plainTyping("5²½"), "5²½");
}

TEST(PlainTyping, WritesEveryBlankAsOneBlank) {
    EXPECT_EQ(plainTyping("1\u00A02\u202F3\u20094\u30005\t6\n7\r8"), "1 2 3 4 5 6 7 8");
}

TEST(PlainTyping, WritesEveryDashAndMinusAsAHyphen) {
    EXPECT_EQ(plainTyping("\u22121 \u20132 \u20143 \u20104 \uFF0D5"), "-1 -2 -3 -4 -5");
}

TEST(PlainTyping, WritesEveryCurrencySignAsADollar) {
    EXPECT_EQ(plainTyping("$ € £ ¥ ₹ ₩ ₪ ￥ ＄"), "$ $ $ $ $ $ $ $ $");
}

TEST(PlainTyping, DropsTheMarksOfDirection) {
    EXPECT_EQ(plainTyping("\u200E-\u200F1\u061C2\u2066"), "-12");
}

TEST(PlainTyping, MarksBytesThatAreNoText) {
    EXPECT_EQ(plainTyping("1\xFF"
                          "2"),
              "1\uFFFD"
              "2");
}

} // namespace oakfen
