#pragma once

#include <string>
#include <string_view>

namespace oakfen {

/// Appends the text as a JSON string, in quotes. Slashes and control characters are escaped;
/// everything else stands for itself in UTF-8. Bytes that are no UTF-8 become U+FFFD, so that no
/// text can make a document unreadable.
void appendJSONString(std::string& json, std::string_view text);

} // namespace oakfen
