#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "OakfenCore/Support/Observers.h"

namespace oakfen {

/// The person's settings, by key. A value that is absent reads as nothing.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    [[nodiscard]] virtual std::optional<std::string> string(std::string_view key) const = 0;
    virtual void setString(std::string_view key, std::string_view value) = 0;
    virtual void remove(std::string_view key) = 0;

    /// "true" is true; absent or anything else is false.
    [[nodiscard]] bool boolean(std::string_view key) const;
    void setBoolean(std::string_view key, bool value);
    [[nodiscard]] std::optional<long long> integer(std::string_view key) const;
    void setInteger(std::string_view key, long long value);

    /// Told after each change with the key.
    Observers<const std::string&> changes;
};

} // namespace oakfen
