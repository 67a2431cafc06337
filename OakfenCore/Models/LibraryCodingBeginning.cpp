#include <algorithm>
#include <tuple>
#include <type_traits>

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

/// Takes a key and its colon away; nothing when the text begins otherwise.
std::optional<std::string_view> takeKey(std::string_view& text) {
    const std::size_t end = text.starts_with('"') ? text.find('"', 1) : std::string_view::npos;
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view key = text.substr(1, end - 1);
    text = withoutBlanks(text.substr(end + 1));
    return skip(text, ':') ? std::optional(key) : std::nullopt;
}

template <RecordType Record>
bool isKeyOf(std::string_view key) {
    return std::apply([key](const auto&... fields) { return ((fields.key == key) || ...); },
                      fieldsOf<Record>);
}

/// Whether a value of that type can begin so. A list of records is told by the first one's keys.
template <typename Value>
bool beginsLike(std::string_view /*text*/, const Value& /*type*/) {
    return true;
}
template <RecordType Record>
bool beginsLike(std::string_view text, const SharedArray<Record>& /*type*/) {
    if (!skip(text, '[')) {
        return false;
    }
    if (text.empty() || text.starts_with(']')) {
        return true;
    }
    if (!skip(text, '{')) {
        return false;
    }
    const auto key = takeKey(text);
    return key && isKeyOf<Record>(*key);
}

} // namespace

bool beginsLikeLibrary(std::string_view bytes) noexcept {
    std::string_view rest = withoutBlanks(bytes);
    if (!skip(rest, '{')) {
        return false;
    }
    const auto key = takeKey(rest);
    const Library type;
    return key &&
           std::apply(
               [&](const auto&... fields) {
                   return ((fields.key == *key && beginsLike(rest, type.*fields.member)) || ...);
               },
               fieldsOf<Library>);
}

} // namespace oakfen
