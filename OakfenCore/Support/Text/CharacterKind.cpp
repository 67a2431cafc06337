#include "OakfenCore/Support/Text/CharacterKind.h"

#include <cstdint>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace oakfen {

CharacterKind characterKind(std::string_view character) {
    UChar32 codePoint = -1;
    if (!character.empty()) {
        std::int32_t position = 0;
        U8_NEXT(reinterpret_cast<const std::uint8_t*>(character.data()), position,
                static_cast<std::int32_t>(character.size()), codePoint);
    }
    if (codePoint < 0) {
        return CharacterKind::other;
    }
    if (u_hasBinaryProperty(codePoint, UCHAR_LOWERCASE) != 0) {
        return CharacterKind::lowerCase;
    }
    if (u_hasBinaryProperty(codePoint, UCHAR_UPPERCASE) != 0) {
        return CharacterKind::upperCase;
    }
    if ((U_GET_GC_MASK(codePoint) & U_GC_N_MASK) != 0) {
        return CharacterKind::number;
    }
    return u_hasBinaryProperty(codePoint, UCHAR_ALPHABETIC) != 0 ? CharacterKind::letterWithoutCase
                                                                 : CharacterKind::other;
}

} // namespace oakfen
