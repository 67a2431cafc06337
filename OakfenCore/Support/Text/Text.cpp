#include "OakfenCore/Support/Text/Text.h"

#include <algorithm>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/edits.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include "OakfenCore/Support/Text/ICUText.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {
namespace {

bool isBlank(UChar32 character) {
    return character == '\t' || (character >= 0 && u_charType(character) == U_SPACE_SEPARATOR);
}

bool isNewline(UChar32 character) {
    return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 ||
           character == 0x2029;
}

template <typename Predicate>
std::string_view trimming(std::string_view text, Predicate goes) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t next = start;
        UChar32 character = 0;
        U8_NEXT(bytes, next, text.size(), character);
        if (!goes(character)) {
            break;
        }
        start = next;
    }
    std::size_t end = text.size();
    while (end > start) {
        // ICU walks backwards by small indices only, and no character has over four bytes.
        const std::size_t origin = std::max(start, end - std::min<std::size_t>(end, 4));
        auto before = static_cast<std::int32_t>(end - origin);
        UChar32 character = 0;
        U8_PREV(bytes + origin, 0, before, character);
        if (!goes(character)) {
            break;
        }
        end = origin + static_cast<std::size_t>(before);
    }
    return text.substr(start, end - start);
}

/// What `convert` writes into its sink; the text itself if ICU can't.
template <typename Convert>
std::string converted(std::string_view text, Convert convert) {
    std::string result;
    result.reserve(text.size());
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    convert(sink, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

const icu::Normalizer2* normalizer(const icu::Normalizer2* (*form)(UErrorCode&)) {
    UErrorCode status = U_ZERO_ERROR;
    return form(status);
}

std::string normalized(std::string_view text, const icu::Normalizer2* form) {
    if (form == nullptr) {
        return std::string(text);
    }
    return converted(text, [&](icu::ByteSink& sink, UErrorCode& status) {
        form->normalizeUTF8(0, stringPiece(text), sink, nullptr, status);
    });
}

/// Whether the next character would change the one before it, so that a text that ends here ends
/// in the middle of a character.
bool startsWithMark(std::string_view text) {
    if (text.empty() || isASCII(text.front())) {
        return false;
    }
    std::size_t next = 0;
    UChar32 character = 0;
    U8_NEXT_OR_FFFD(reinterpret_cast<const std::uint8_t*>(text.data()), next, text.size(),
                    character);
    return (U_GET_GC_MASK(character) & U_GC_M_MASK) != 0;
}

} // namespace

std::string_view trimmingWhitespaces(std::string_view text) noexcept {
    return trimming(text, isBlank);
}

std::string_view trimmingWhitespacesAndNewlines(std::string_view text) noexcept {
    return trimming(text,
                    [](UChar32 character) { return isBlank(character) || isNewline(character); });
}

std::string lowercased(std::string_view text) {
    if (isASCII(text)) {
        return lowercasedASCII(text);
    }
    return converted(text, [&](icu::ByteSink& sink, UErrorCode& status) {
        icu::CaseMap::utf8ToLower("", 0, stringPiece(text), sink, nullptr, status);
    });
}

std::string uppercased(std::string_view text) {
    return converted(text, [&](icu::ByteSink& sink, UErrorCode& status) {
        icu::CaseMap::utf8ToUpper("", 0, stringPiece(text), sink, nullptr, status);
    });
}

std::string composed(std::string_view text) {
    if (isASCII(text)) {
        return std::string(text);
    }
    return normalized(text, normalizer(icu::Normalizer2::getNFCInstance));
}

std::string caseFolded(std::string_view text) {
    if (isASCII(text)) {
        return lowercasedASCII(text);
    }
    // Decomposed first, since a few marks fold to letters and must be in their place by then.
    const std::string decomposed = normalized(text, normalizer(icu::Normalizer2::getNFDInstance));
    const std::string folded = converted(decomposed, [&](icu::ByteSink& sink, UErrorCode& status) {
        icu::CaseMap::utf8Fold(0, stringPiece(decomposed), sink, nullptr, status);
    });
    return composed(folded);
}

bool equalsCaseInsensitively(std::string_view a, std::string_view b) {
    if (a == b) {
        return true;
    }
    if (isASCII(a) && isASCII(b)) {
        return equalsIgnoringASCIICase(a, b);
    }
    return caseFolded(a) == caseFolded(b);
}

bool localizedCaseInsensitiveContains(std::string_view text, std::string_view term) {
    return CaseInsensitiveTerm(term).isIn(text);
}

CaseInsensitiveTerm::CaseInsensitiveTerm(std::string_view term) : folded_(caseFolded(term)) {}

bool CaseInsensitiveTerm::isIn(std::string_view text) const {
    if (folded_.empty()) {
        return true;
    }
    if (isASCII(text)) {
        return findIgnoringASCIICase(text, folded_) != std::string_view::npos;
    }
    const std::string foldedText = caseFolded(text);
    const std::string_view whole = foldedText;
    std::size_t found = whole.find(folded_);
    while (found != std::string_view::npos) {
        if (!startsWithMark(whole.substr(found + folded_.size()))) {
            return true;
        }
        found = whole.find(folded_, found + 1);
    }
    return false;
}

bool isValidUTF8(std::string_view bytes) noexcept {
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    std::size_t position = 0;
    while (position < bytes.size()) {
        if (isASCII(bytes[position])) {
            ++position;
            continue;
        }
        UChar32 character = 0;
        U8_NEXT(data, position, bytes.size(), character);
        if (character < 0) {
            return false;
        }
    }
    return true;
}

std::string latin1ToUTF8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (isASCII(byte)) {
            text += byte;
        } else {
            text += static_cast<char>(0xC0U | (code >> 6U));
            text += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return text;
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

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator, start)) {
        pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

std::string joined(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string text;
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        if (index > 0) {
            text += separator;
        }
        text += pieces[index];
    }
    return text;
}

} // namespace oakfen
