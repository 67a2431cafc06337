#include "OakfenCore/Support/Text/SearchFolding.h"

#include <unicode/normalizer2.h>

#include "OakfenCore/Support/Text/ICUText.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

/// The marks that Latin, Greek and Cyrillic letters carry. Those of other scripts are no mere
/// ornament: without them a word is another one.
bool isAccent(char16_t unit) {
    return unit >= 0x0300 && unit <= 0x036F;
}

} // namespace

std::string foldedForSearch(std::string_view text) {
    if (isASCII(text)) {
        return lowercasedASCII(text);
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* form = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status)) {
        return caseFolded(text);
    }
    const icu::UnicodeString apart =
        form->normalize(icu::UnicodeString::fromUTF8(stringPiece(text)), status);
    icu::UnicodeString bare;
    for (std::int32_t place = 0; place < apart.length(); ++place) {
        if (!isAccent(apart.charAt(place))) {
            bare.append(apart.charAt(place));
        }
    }
    return U_SUCCESS(status) ? caseFolded(utf8(bare)) : caseFolded(text);
}

} // namespace oakfen
