#include "OakfenCore/Support/Text/TypedText.h"

#include <cstdint>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace oakfen {
namespace {

constexpr UChar32 minusSign = 0x2212;
constexpr UChar32 arabicPercentSign = 0x066A;
constexpr UChar32 firstFullWidth = 0xFF01;
constexpr UChar32 lastFullWidth = 0xFF5E;
constexpr UChar32 fullWidthOffset = 0xFEE0;

/// The character that stands for it; 0 for one that is left out.
UChar32 plainCharacter(UChar32 character) {
    if (character >= firstFullWidth && character <= lastFullWidth) {
        character -= fullWidthOffset;
    }
    if (const std::int32_t digit = u_charDigitValue(character); digit >= 0) {
        return '0' + digit;
    }
    switch (u_charType(character)) {
    case U_SPACE_SEPARATOR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
    case U_CONTROL_CHAR: // tabs and line ends
        return ' ';
    case U_DASH_PUNCTUATION:
        return '-';
    case U_CURRENCY_SYMBOL:
        return '$';
    case U_FORMAT_CHAR:
        return 0;
    default:
        break;
    }
    switch (character) {
    case minusSign:
        return '-';
    case arabicPercentSign:
        return '%';
    default:
        return character;
    }
}

template <typename Take>
void forEachCodePoint(std::string_view text, Take&& take) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t position = 0; position < length;) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(bytes, position, length, character);
        take(character);
    }
}

} // namespace

bool holdsWord(std::string_view text) {
    constexpr std::uint32_t lettersAndTheirMarks = U_GC_L_MASK | U_GC_M_MASK;
    bool holds = false;
    bool isAfterLetter = false;
    forEachCodePoint(text, [&](UChar32 character) {
        const bool isLetter = (U_GET_GC_MASK(character) & lettersAndTheirMarks) != 0;
        holds = holds || (isAfterLetter && isLetter);
        isAfterLetter = isLetter;
    });
    return holds;
}

std::string plainTyping(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    forEachCodePoint(text, [&](UChar32 typed) {
        const UChar32 character = plainCharacter(typed);
        if (character == 0) {
            return;
        }
        char encoded[U8_MAX_LENGTH] = {};
        std::int32_t count = 0;
        U8_APPEND_UNSAFE(encoded, count, character);
        plain.append(encoded, static_cast<std::size_t>(count));
    });
    return plain;
}

} // namespace oakfen
