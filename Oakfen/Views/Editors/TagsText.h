#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace oakfen {

/// The tags in a text that has them between commas, without blanks around them and without empty
/// ones.
[[nodiscard]] std::vector<std::string> tagsOf(std::string_view text);

} // namespace oakfen
