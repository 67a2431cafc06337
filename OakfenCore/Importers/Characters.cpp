#include "OakfenCore/Importers/Characters.h"

#include <algorithm>

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "OakfenCore/Support/Text/ICUText.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

constexpr std::size_t longestSequence = 4;

int clusterBreak(UChar32 character) {
    return u_getIntPropertyValue(character, UCHAR_GRAPHEME_CLUSTER_BREAK);
}

/// Whether the character that begins at `position` joins the one before it.
bool joinsBackwards(std::string_view text, std::size_t position) {
    const auto rest =
        icu::UnicodeString::fromUTF8(stringPiece(text.substr(position, longestSequence)));
    const int kind = clusterBreak(rest.char32At(0));
    return kind == U_GCB_EXTEND || kind == U_GCB_ZWJ || kind == U_GCB_SPACING_MARK;
}

/// Whether the character that ends before `position` joins the one after it.
bool joinsForwards(std::string_view text, std::size_t position) {
    const std::size_t length = std::min(position, longestSequence);
    const auto before =
        icu::UnicodeString::fromUTF8(stringPiece(text.substr(position - length, length)));
    return clusterBreak(before.char32At(before.length() - 1)) == U_GCB_PREPEND;
}

} // namespace

bool isWholeCharacter(std::string_view text, std::size_t position) {
    const std::size_t next = position + 1;
    if (next < text.size() && !isASCII(text[next]) && joinsBackwards(text, next)) {
        return false;
    }
    return position == 0 || isASCII(text[position - 1]) || !joinsForwards(text, position);
}

} // namespace oakfen
