#pragma once

#include <string>
#include <string_view>

namespace oakfen {

/// What a person typed or pasted, in ASCII as far as that means the same: the digits of every
/// script, full-width letters and signs, all kinds of percent signs, of blanks and line ends (as
/// one blank each), of dashes ("-") and of currency signs ("$"). Marks that only steer the
/// direction of writing are left out; everything else stays as it is.
[[nodiscard]] std::string plainTyping(std::string_view text);

/// Whether two letters of any script stand side by side.
[[nodiscard]] bool holdsWord(std::string_view text);

} // namespace oakfen
