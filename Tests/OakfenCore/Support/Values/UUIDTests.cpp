#include "OakfenCore/Support/Values/UUID.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

constexpr std::string_view canonical = "0F1E2D3C-4B5A-4978-8796-A5B4C3D2E1F0";

TEST(UUID, WritesTheCanonicalFormItReads) {
    const auto id = UUID::parse(canonical);
    ASSERT_TRUE(id.has_value());
    EXPECT_EQ(id->toString(), canonical);
    EXPECT_EQ(id->bytes[0], 0x0F);
    EXPECT_EQ(id->bytes[15], 0xF0);
}

TEST(UUID, ReadsSmallLetters) {
    EXPECT_EQ(UUID::parse("0f1e2d3c-4b5a-4978-8796-a5b4c3d2e1f0"), UUID::parse(canonical));
}

TEST(UUID, RefusesOtherForms) {
    for (const char* text :
         {"", "0F1E2D3C4B5A49788796A5B4C3D2E1F0", "0F1E2D3C-4B5A-4978-8796-A5B4C3D2E1F",
          "0F1E2D3C-4B5A-4978-8796-A5B4C3D2E1F00", "0F1E2D3C-4B5A-4978-8796-A5B4C3D2E1FG",
          "0F1E2D3C 4B5A-4978-8796-A5B4C3D2E1F0", "{F1E2D3C-4B5A-4978-8796-A5B4C3D2E1F}",
          "0F1E2D3C-4B5A-49788-796-A5B4C3D2E1F0", "@F1E2D3C-4B5A-4978-8796-A5B4C3D2E1F0"}) {
        EXPECT_EQ(UUID::parse(text), std::nullopt) << text;
    }
}

TEST(UUID, IsRandomWhenMade) {
    UUIDSet ids;
    for (int i = 0; i < 1000; ++i) {
        ids.insert(UUID::random());
    }
    EXPECT_EQ(ids.size(), 1000U);
}

TEST(UUID, MarksARandomOneAsSuch) {
    for (int i = 0; i < 50; ++i) {
        const std::string text = UUID::random().toString();
        EXPECT_EQ(text[14], '4') << text;
        EXPECT_NE(std::string_view("89AB").find(text[19]), std::string_view::npos) << text;
    }
}

TEST(UUID, IsAppendedToWhatStandsThere) {
    std::string text = "id ";
    UUID{}.appendTo(text);
    EXPECT_EQ(text, "id 00000000-0000-0000-0000-000000000000");
}

} // namespace
} // namespace oakfen
