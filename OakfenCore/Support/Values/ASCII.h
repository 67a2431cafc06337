#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/// The short way through text functions: most texts of a ledger are plain ASCII.
namespace oakfen {

[[nodiscard]] constexpr bool isASCII(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x80;
}

[[nodiscard]] inline bool isASCII(std::string_view text) noexcept {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::uint64_t word = 0;
    while (text.size() >= sizeof word) {
        std::memcpy(&word, text.data(), sizeof word);
        if ((word & highBits) != 0) {
            return false;
        }
        text.remove_prefix(sizeof word);
    }
    return std::all_of(text.begin(), text.end(), [](char byte) { return isASCII(byte); });
}

[[nodiscard]] constexpr bool isASCIIDigit(char character) noexcept {
    return character >= '0' && character <= '9';
}

[[nodiscard]] constexpr bool isASCIILetter(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

[[nodiscard]] constexpr char lowercasedASCII(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

[[nodiscard]] inline std::string lowercasedASCII(std::string_view text) {
    std::string result(text);
    for (char& letter : result) {
        letter = lowercasedASCII(letter);
    }
    return result;
}

/// Equality of ASCII texts without regard to case, independent of the locale.
[[nodiscard]] inline bool equalsIgnoringASCIICase(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowercasedASCII(x) == lowercasedASCII(y); });
}

/// The first place at or after `from` where the ASCII text stands, without regard to case; `npos`
/// when there is none. Independent of the locale.
[[nodiscard]] inline std::size_t findIgnoringASCIICase(std::string_view text,
                                                       std::string_view sought,
                                                       std::size_t from = 0) noexcept {
    if (from > text.size()) {
        return std::string_view::npos;
    }
    const auto found = std::search(
        text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), sought.begin(), sought.end(),
        [](char x, char y) { return lowercasedASCII(x) == lowercasedASCII(y); });
    const bool isFound = found != text.end() || sought.empty();
    return isFound ? static_cast<std::size_t>(found - text.begin()) : std::string_view::npos;
}

} // namespace oakfen
