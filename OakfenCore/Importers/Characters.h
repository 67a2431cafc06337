#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace oakfen {

/// Whether the ASCII character at that position (not an end of line) stands for itself. A mark that
/// combines with it makes it part of another user-perceived character, and then it is no delimiter.
[[nodiscard]] bool isWholeCharacter(std::string_view text, std::size_t position);

} // namespace oakfen
