#include <algorithm>
#include <tuple>

#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Models/RecordFields.h"

namespace oakfen {

namespace {

std::string_view withoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return text;
}

/// Takes the character away and the blanks after it; false when the text begins otherwise.
bool skip(std::string_view& text, char character) {
    if (!text.starts_with(character)) {
        return false;
    }
    text = withoutBlanks(text.substr(1));
    return true;
}

bool isKeyOfLibrary(std::string_view key) {
    return std::apply([key](const auto&... fields) { return ((fields.key == key) || ...); },
                      fieldsOf<Library>);
}

} // namespace

bool beginsLikeLibrary(std::string_view bytes) noexcept {
    std::string_view rest = withoutBlanks(bytes);
    if (!skip(rest, '{') || !rest.starts_with('"')) {
        return false;
    }
    const std::size_t end = rest.find('"', 1);
    if (end == std::string_view::npos || !isKeyOfLibrary(rest.substr(1, end - 1))) {
        return false;
    }
    rest = withoutBlanks(rest.substr(end + 1));
    return skip(rest, ':');
}

} // namespace oakfen
