#include "OakfenCore/Support/Values/ASCII.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

TEST(ASCII, KnowsItsDigitsAndLetters) {
    for (int code = 0; code < 256; ++code) {
        const char character = static_cast<char>(code);
        const auto isIn = [&](std::string_view all) {
            return all.find(character) != std::string_view::npos;
        };
        EXPECT_EQ(isASCIIDigit(character), isIn("0123456789")) << code;
        EXPECT_EQ(isASCIILetter(character),
                  isIn("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"))
            << code;
    }
}

TEST(ASCII, EqualsInAnyCaseAndNothingLonger) {
    EXPECT_TRUE(equalsIgnoringASCIICase("Name", "nAME"));
    EXPECT_TRUE(equalsIgnoringASCIICase("", ""));
    EXPECT_FALSE(equalsIgnoringASCIICase("Name", "Names"));
    EXPECT_FALSE(equalsIgnoringASCIICase("[", "{"));
    EXPECT_FALSE(equalsIgnoringASCIICase("é", "É"));
}

TEST(ASCII, FindsTheNextPlaceInAnyCase) {
    EXPECT_EQ(findIgnoringASCIICase("a<Name>b<NAME>", "<NAME>"), 1U);
    EXPECT_EQ(findIgnoringASCIICase("a<Name>b<NAME>", "<name>", 2), 8U);
    EXPECT_EQ(findIgnoringASCIICase("a<Name>b<NAME>", "<name>", 9), std::string_view::npos);
    EXPECT_EQ(findIgnoringASCIICase("<NAM", "<NAME>"), std::string_view::npos);
    EXPECT_EQ(findIgnoringASCIICase("", "x"), std::string_view::npos);
    EXPECT_EQ(findIgnoringASCIICase("abc", ""), 0U);
    EXPECT_EQ(findIgnoringASCIICase("abc", "", 3), 3U);
    EXPECT_EQ(findIgnoringASCIICase("abc", "", 4), std::string_view::npos);
}

} // namespace
} // namespace oakfen
