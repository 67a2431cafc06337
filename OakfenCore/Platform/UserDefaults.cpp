#include "OakfenCore/Platform/UserDefaults.h"

#include <charconv>

namespace oakfen {

bool UserDefaults::boolean(std::string_view key) const {
    return string(key) == "true";
}

void UserDefaults::setBoolean(std::string_view key, bool value) {
    setString(key, value ? "true" : "false");
}

std::optional<long long> UserDefaults::integer(std::string_view key) const {
    const std::optional<std::string> text = string(key);
    if (!text) {
        return std::nullopt;
    }
    long long value = 0;
    const char* const end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

void UserDefaults::setInteger(std::string_view key, long long value) {
    setString(key, std::to_string(value));
}

} // namespace oakfen
