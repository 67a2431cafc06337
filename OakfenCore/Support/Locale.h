#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace oakfen {

/// The user's locale as ICU names it ("en_CA"), from the environment; "en_CA" where that names no
/// usable one.
[[nodiscard]] std::string userLocale();

/// Makes the named locale the user's, in place of the environment's; an unusable name is "en_CA".
void setUserLocale(std::string_view name);

/// A number that changes with the user's locale; what is made for the locale is kept beside it.
[[nodiscard]] std::uint64_t userLocaleGeneration() noexcept;

} // namespace oakfen
