#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace oakfen {

/// Whether the ASCII character at that position (not an end of line) stands for itself. A mark that
/// combines with it makes it part of another user-perceived character, and then it is no delimiter.
[[nodiscard]] bool isWholeCharacter(std::string_view text, std::size_t position);

/// The first place at or after `from` where the ASCII text stands, without regard to case; `npos`
/// when there is none. Independent of the locale.
[[nodiscard]] std::size_t findIgnoringCase(std::string_view text, std::string_view sought,
                                           std::size_t from = 0) noexcept;

/// Equality of ASCII texts without regard to case, independent of the locale.
[[nodiscard]] bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept;

/// The text with every occurrence of `sought`, from left to right, replaced.
[[nodiscard]] std::string replacingAll(std::string_view text, std::string_view sought,
                                       std::string_view replacement);

} // namespace oakfen
