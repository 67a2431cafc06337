#include "OakfenCore/Importers/Characters.h"

#include <algorithm>

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "OakfenCore/Support/ASCII.h"
#include "OakfenCore/Support/ICUText.h"

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

std::size_t findIgnoringCase(std::string_view text, std::string_view sought,
                             std::size_t from) noexcept {
    if (sought.empty()) {
        return from <= text.size() ? from : std::string_view::npos;
    }
    const char first = lowercasedASCII(sought.front());
    for (std::size_t index = from; index + sought.size() <= text.size(); ++index) {
        if (lowercasedASCII(text[index]) == first &&
            equalsIgnoringCase(text.substr(index, sought.size()), sought)) {
            return index;
        }
    }
    return std::string_view::npos;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowercasedASCII(x) == lowercasedASCII(y); });
}

std::string replacingAll(std::string_view text, std::string_view sought,
                         std::string_view replacement) {
    std::string result;
    std::size_t start = 0;
    for (std::size_t found = text.find(sought); found != std::string_view::npos;
         found = text.find(sought, start)) {
        result.append(text, start, found - start);
        result.append(replacement);
        start = found + sought.size();
    }
    result.append(text, start);
    return result;
}

} // namespace oakfen
