#include "OakfenCore/Support/Text/SearchFolding.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

TEST(FoldingForSearch, RegardsNeitherCaseNorAccents) {
    EXPECT_EQ(foldedForSearch("Cafés & Crêpes"), "cafes & crepes");
    EXPECT_EQ(foldedForSearch("CAFE\u0301"), foldedForSearch("café"));
    EXPECT_EQ(foldedForSearch("Straße"), foldedForSearch("STRASSE"));
    EXPECT_EQ(foldedForSearch("Ένοικο"), foldedForSearch("ΕΝΟΙΚΟ"));
    EXPECT_EQ(foldedForSearch("Auto"), "auto");
    EXPECT_EQ(foldedForSearch(""), "");
}

TEST(FoldingForSearch, KeepsTheMarksThatMakeAnotherWord) {
    EXPECT_NE(foldedForSearch("か"), foldedForSearch("が"));
    EXPECT_NE(foldedForSearch("की"), foldedForSearch("क"));
}

TEST(FoldingForSearch, TakesBytesThatAreNoText) {
    EXPECT_EQ(foldedForSearch("a\xFF"), foldedForSearch("A\xFF"));
}

} // namespace
} // namespace oakfen
