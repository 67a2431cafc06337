#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unicode/stringpiece.h>
#include <unicode/unistr.h>

/// Texts on their way to ICU and back.
namespace oakfen {

[[nodiscard]] inline icu::StringPiece stringPiece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

[[nodiscard]] inline std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    return text.toUTF8String(result);
}

} // namespace oakfen
