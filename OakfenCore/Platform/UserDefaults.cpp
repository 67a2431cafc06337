#include "OakfenCore/Platform/UserDefaults.h"

#include <array>
#include <charconv>
#include <cmath>

namespace oakfen {

namespace {

/// The number that the whole text is; nothing for any other text.
template <typename Number>
std::optional<Number> number(const std::optional<std::string>& text) {
    if (!text) {
        return std::nullopt;
    }
    Number value = 0;
    const char* const end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

} // namespace

bool UserDefaults::get(const Setting<bool>& setting) const {
    const std::optional<std::string> text = string(setting.key);
    return text == "true" || (text != "false" && setting.fallback);
}

long long UserDefaults::get(const Setting<long long>& setting) const {
    return number<long long>(string(setting.key)).value_or(setting.fallback);
}

double UserDefaults::get(const Setting<double>& setting) const {
    const auto value = number<double>(string(setting.key));
    return value && std::isfinite(*value) ? *value : setting.fallback;
}

std::string UserDefaults::get(const Setting<std::string_view>& setting) const {
    return string(setting.key).value_or(std::string(setting.fallback));
}

void UserDefaults::set(const Setting<bool>& setting, bool value) {
    setString(setting.key, value ? "true" : "false");
}

void UserDefaults::set(const Setting<long long>& setting, long long value) {
    setString(setting.key, std::to_string(value));
}

void UserDefaults::set(const Setting<double>& setting, double value) {
    // More than the shortest text of any number that reads back as the same.
    std::array<char, 32> text = {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    setString(setting.key, {text.data(), end});
}

void UserDefaults::set(const Setting<std::string_view>& setting, std::string_view value) {
    setString(setting.key, value);
}

void UserDefaults::tellChanged(std::string_view key) {
    const auto found = observers_.find(key);
    if (found != observers_.end()) {
        found->second.notify();
    }
}

} // namespace oakfen
