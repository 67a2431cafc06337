#pragma once

#include <algorithm>
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

} // namespace oakfen
