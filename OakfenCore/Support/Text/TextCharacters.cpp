#include <cstdint>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/ASCII.h"

// The rules of Unicode's annex 29 for extended grapheme clusters, on the properties that ICU has.
// ICU's own iterator gives the same boundaries (but for conjuncts of Indic scripts, which it keeps
// together). It isn't used because setting it up costs a microsecond: too much for each accented
// letter of a bank's file, while the plain letters between them are better not shown to it at all.

namespace oakfen {
namespace {

/// What of the text before a boundary the rules look at.
class BoundaryFinder {
public:
    /// Whether a character begins with this code point, which follows the ones given before.
    bool isBoundary(UChar32 next) {
        const auto kind = static_cast<UGraphemeClusterBreak>(
            u_getIntPropertyValue(next, UCHAR_GRAPHEME_CLUSTER_BREAK));
        const bool result = breaksBefore(next, kind);
        remember(next, kind, result);
        return result;
    }

private:
    [[nodiscard]] static bool isControl(UGraphemeClusterBreak kind) {
        return kind == U_GCB_CONTROL || kind == U_GCB_CR || kind == U_GCB_LF;
    }

    [[nodiscard]] bool breaksBefore(UChar32 next, UGraphemeClusterBreak kind) const {
        if (previous_ == U_GCB_CR && kind == U_GCB_LF) {
            return false;
        }
        if (isControl(previous_) || isControl(kind)) {
            return true;
        }
        if (joinsHangul(kind) || kind == U_GCB_EXTEND || kind == U_GCB_ZWJ ||
            kind == U_GCB_SPACING_MARK || previous_ == U_GCB_PREPEND) {
            return false;
        }
        if (previous_ == U_GCB_ZWJ && followsPictograph_ && isPictograph(next)) {
            return false;
        }
        return !(kind == U_GCB_REGIONAL_INDICATOR && hasOddIndicators_);
    }

    [[nodiscard]] bool joinsHangul(UGraphemeClusterBreak kind) const {
        switch (previous_) {
        case U_GCB_L:
            return kind == U_GCB_L || kind == U_GCB_V || kind == U_GCB_LV || kind == U_GCB_LVT;
        case U_GCB_LV:
        case U_GCB_V:
            return kind == U_GCB_V || kind == U_GCB_T;
        case U_GCB_LVT:
        case U_GCB_T:
            return kind == U_GCB_T;
        default:
            return false;
        }
    }

    static bool isPictograph(UChar32 character) {
        return u_hasBinaryProperty(character, UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
    }

    void remember(UChar32 next, UGraphemeClusterBreak kind, bool beginsCharacter) {
        hasOddIndicators_ =
            kind == U_GCB_REGIONAL_INDICATOR && (beginsCharacter || !hasOddIndicators_);
        if (kind == U_GCB_ZWJ) {
            followsPictograph_ = base_ >= 0 && isPictograph(base_);
        } else if (kind != U_GCB_EXTEND) {
            base_ = next;
        }
        previous_ = kind;
    }

    UGraphemeClusterBreak previous_ = U_GCB_CONTROL;
    UChar32 base_ = -1; // the last code point that extends no other
    bool followsPictograph_ = false;
    bool hasOddIndicators_ = false;
};

/// The end of the character that starts at `start`, by all rules; what follows is looked at, too,
/// so a caller that goes on from there needs nothing else of the text before.
std::size_t characterEnd(std::string_view text, std::size_t start) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    BoundaryFinder finder;
    std::size_t end = start;
    std::size_t position = start;
    UChar32 character = 0;
    while (position < text.size()) {
        U8_NEXT_OR_FFFD(bytes, position, text.size(), character);
        if (finder.isBoundary(character) && end > start) {
            return end;
        }
        end = position;
    }
    return end;
}

/// The boundary after `start`; beside other ASCII, ASCII has only one rule.
std::size_t nextBoundary(std::string_view text, std::size_t start) {
    if (!isASCII(text[start])) {
        return characterEnd(text, start);
    }
    if (start + 1 == text.size()) {
        return start + 1;
    }
    if (!isASCII(text[start + 1])) {
        return characterEnd(text, start);
    }
    return text[start] == '\r' && text[start + 1] == '\n' ? start + 2 : start + 1;
}

} // namespace

void forEachCharacter(std::string_view text, const std::function<void(std::string_view)>& visit) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = nextBoundary(text, start);
        visit(text.substr(start, end - start));
        start = end;
    }
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t start = 0; start < text.size(); start = nextBoundary(text, start)) {
        ++count;
    }
    return count;
}

} // namespace oakfen
