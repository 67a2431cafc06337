#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What a message quotes: texts that a file holds, and the names of files. Nobody knows what is in
/// them, so a message shows them in a form that can neither break it nor pass for something else.
namespace oakfen {

/// No more characters of a text than these are shown.
inline constexpr std::size_t mostLegibleCharacters = 80;

/// The text with an escape for each character that isn't seen: line breaks and tabs ("\n", "\t"),
/// other control characters and those that turn the direction of writing ("\u202E"), and bytes that
/// are not UTF-8 ("\xFF"). What is longer than `mostLegibleCharacters` ends in "…".
[[nodiscard]] std::string legible(std::string_view text);

/// The same between quotation marks.
[[nodiscard]] std::string quoted(std::string_view text);

} // namespace oakfen
