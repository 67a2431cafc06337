#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace oakfen {

/// The user's locales as ICU names them ("en_CA"). They are three, since a person may read dates in
/// the manner of one place and money in that of another.
struct UserLocales {
    /// For amounts and other numbers, read or shown, and for the usual currency.
    std::string money;
    /// For dates, read or shown.
    std::string dates;
    /// For the order of names.
    std::string sorting;

    friend bool operator==(const UserLocales&, const UserLocales&) = default;
};

/// Those in force: the environment's at the program's start, unless others were set.
[[nodiscard]] UserLocales userLocales();

/// What the environment names at this moment, in `LC_MONETARY`, `LC_TIME` and `LC_COLLATE`. Over
/// each of them goes `LC_ALL`, and `LANG` stands in for one that is missing; a name that isn't
/// usable is "en_CA".
[[nodiscard]] UserLocales environmentLocales();

/// Puts these in force; an unusable name is "en_CA".
void setUserLocales(const UserLocales& locales);

/// Puts one locale in force for everything.
void setUserLocale(std::string_view name);

/// A number that changes with the user's locales; what is made for them is kept beside it.
[[nodiscard]] std::uint64_t userLocaleGeneration() noexcept;

} // namespace oakfen
