#include "OakfenCore/Support/Text/Quotation.h"

#include <cstdint>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace oakfen {

namespace {

std::string hex(std::uint32_t number, std::size_t digits) {
    constexpr std::string_view hexDigits = "0123456789ABCDEF";
    std::string text(digits, '0');
    for (std::size_t place = digits; place > 0; --place) {
        text[place - 1] = hexDigits[number & 0xFU];
        number >>= 4U;
    }
    return text;
}

bool isUnseen(UChar32 character) {
    // Words of some scripts, and many emoji, are spelled with these two.
    constexpr UChar32 nonJoiner = 0x200C;
    constexpr UChar32 joiner = 0x200D;
    constexpr std::uint32_t unseen = U_GC_CC_MASK | U_GC_CF_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    return character != nonJoiner && character != joiner &&
           (U_GET_GC_MASK(character) & unseen) != 0;
}

std::string escape(UChar32 character) {
    switch (character) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        break;
    }
    const auto code = static_cast<std::uint32_t>(character);
    return code > 0xFFFF ? "\\U" + hex(code, 8) : "\\u" + hex(code, 4);
}

std::string escapeBytes(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        text += "\\x" + hex(static_cast<unsigned char>(byte), 2);
    }
    return text;
}

} // namespace

std::string legible(std::string_view text) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::string result;
    std::size_t position = 0;
    for (std::size_t count = 0; position < text.size(); ++count) {
        if (count == mostLegibleCharacters) {
            return result + "…";
        }
        const std::size_t start = position;
        UChar32 character = 0;
        U8_NEXT(bytes, position, text.size(), character);
        const std::string_view piece = text.substr(start, position - start);
        if (character < 0) {
            result += escapeBytes(piece);
        } else if (isUnseen(character)) {
            result += escape(character);
        } else {
            result += piece;
        }
    }
    return result;
}

std::string quoted(std::string_view text) {
    return "“" + legible(text) + "”";
}

} // namespace oakfen
