#include "OakfenCore/Importers/Characters.h"

#include <random>

#include <gtest/gtest.h>

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

TEST(WholeCharacter, StandsAloneBetweenPlainText) {
    EXPECT_TRUE(isWholeCharacter(",", 0));
    EXPECT_TRUE(isWholeCharacter("a,b", 1));
    EXPECT_TRUE(isWholeCharacter("é,é", 2));
}

TEST(WholeCharacter, IsNoneWithAMarkBehindIt) {
    EXPECT_FALSE(isWholeCharacter(",\u0301", 0));
    EXPECT_FALSE(isWholeCharacter("\"\u200D", 0));
    EXPECT_FALSE(isWholeCharacter("<\uFE0F", 0));
}

TEST(WholeCharacter, IsNoneBehindASignThatTakesTheNextOneIn) {
    EXPECT_FALSE(isWholeCharacter("\u0600,", 2));
}

TEST(WholeCharacter, AgreesWithTheWalkOverUserPerceivedCharacters) {
    const std::vector<std::string> pieces = {",",      "\"",     "a",          "é",
                                             "\u0301", "\u200D", "\U0001F469", "\u0600",
                                             "\u0903", "\uFE0F", "\U0001F1E8", "\u20E3"};
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (int count = 0; count < 8; ++count) {
            text += pieces[random() % pieces.size()];
        }
        std::size_t position = 0;
        forEachCharacter(text, [&](std::string_view character) {
            const char first = text[position];
            if (first == ',' || first == '"') {
                EXPECT_EQ(isWholeCharacter(text, position), character.size() == 1) << text;
            }
            for (std::size_t inner = 1; inner < character.size(); ++inner) {
                const char letter = text[position + inner];
                if (letter == ',' || letter == '"') {
                    EXPECT_FALSE(isWholeCharacter(text, position + inner)) << text;
                }
            }
            position += character.size();
        });
        EXPECT_EQ(position, text.size());
    }
}

} // namespace oakfen
