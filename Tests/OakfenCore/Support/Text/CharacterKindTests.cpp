#include "OakfenCore/Support/Text/CharacterKind.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

using Kind = CharacterKind;

TEST(CharacterKind, GoesByUnicodeProperties) {
    EXPECT_EQ(characterKind("a"), Kind::lowerCase);
    EXPECT_EQ(characterKind("ß"), Kind::lowerCase);
    EXPECT_EQ(characterKind("Z"), Kind::upperCase);
    EXPECT_EQ(characterKind("Ж"), Kind::upperCase);
    EXPECT_EQ(characterKind("7"), Kind::number);
    EXPECT_EQ(characterKind("٣"), Kind::number);
    EXPECT_EQ(characterKind("Ⅻ"), Kind::upperCase);
    EXPECT_EQ(characterKind("½"), Kind::number);
    EXPECT_EQ(characterKind("漢"), Kind::letterWithoutCase);
    EXPECT_EQ(characterKind("!"), Kind::other);
    EXPECT_EQ(characterKind(" "), Kind::other);
    EXPECT_EQ(characterKind("🙂"), Kind::other);
}

TEST(CharacterKind, IsThatOfTheFirstCodePoint) {
    EXPECT_EQ(characterKind("e\u0301"), Kind::lowerCase);
    EXPECT_EQ(characterKind("1\uFE0F\u20E3"), Kind::number);
}

TEST(CharacterKind, IsOtherForBytesThatAreNoCharacter) {
    EXPECT_EQ(characterKind(""), Kind::other);
    EXPECT_EQ(characterKind("\xFF"), Kind::other);
}

} // namespace
} // namespace oakfen
