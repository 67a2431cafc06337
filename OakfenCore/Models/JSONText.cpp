#include "OakfenCore/Models/JSONText.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include <unicode/utf8.h>

namespace oakfen {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// The bytes that are written as they are without a further look.
constexpr std::array<bool, 256> makePlainBytes() {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
        plain[byte] = byte != '"' && byte != '\\' && byte != '/';
    }
    return plain;
}
constexpr std::array<bool, 256> plainBytes = makePlainBytes();

void appendEscaped(std::string& json, char character) {
    constexpr std::string_view hexDigits = "0123456789abcdef";
    constexpr std::string_view characters = "\"\\/\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\/bfnrt";
    json += '\\';
    if (const std::size_t index = characters.find(character); index != std::string_view::npos) {
        json += letters[index];
        return;
    }
    json += "u00";
    json += hexDigits[static_cast<std::size_t>(character) >> 4U];
    json += hexDigits[static_cast<std::size_t>(character) & 0xFU];
}

} // namespace

void appendJSONString(std::string& json, std::string_view text) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    json += '"';
    std::size_t written = 0; // what lies before this is in the result
    std::size_t position = 0;
    while (position < text.size()) {
        if (plainBytes[bytes[position]]) {
            ++position;
            continue;
        }
        const std::size_t start = position;
        UChar32 codePoint = 0;
        U8_NEXT(bytes, position, text.size(), codePoint);
        if (codePoint >= 0x80) {
            continue;
        }
        json.append(text, written, start - written);
        written = position;
        if (codePoint < 0) {
            json += replacementCharacter;
        } else {
            appendEscaped(json, text[start]);
        }
    }
    json.append(text, written);
    json += '"';
}

} // namespace oakfen
