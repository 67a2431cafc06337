#pragma once

#include <string_view>

namespace oakfen {

/// What a character is by its Unicode properties.
enum class CharacterKind { lowerCase, upperCase, letterWithoutCase, number, other };

/// The kind of a user-perceived character, which is that of its first code point; `other` for bytes
/// that are none.
[[nodiscard]] CharacterKind characterKind(std::string_view character);

} // namespace oakfen
