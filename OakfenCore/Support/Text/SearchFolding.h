#pragma once

#include <string>
#include <string_view>

namespace oakfen {

/// The form in which a name is found by what a person types for it: without regard to case,
/// composition and accents, so that "cafe" is in "Café". For looking through lists; names that
/// differ in their accents are different names all the same.
[[nodiscard]] std::string foldedForSearch(std::string_view text);

} // namespace oakfen
