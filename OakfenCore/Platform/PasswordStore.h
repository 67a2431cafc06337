#pragma once

#include <optional>
#include <string>

namespace oakfen {

/// Where a remembered password is kept. Every operation may throw a `LocalizedError`, but `exists`.
class PasswordStore {
public:
    virtual ~PasswordStore() = default;

    /// The saved password; nothing when there is none.
    [[nodiscard]] virtual std::optional<std::string> load() = 0;
    virtual void save(const std::string& password) = 0;
    /// Removing what is not there is no failure.
    virtual void remove() = 0;
    /// Whether a password is held; false when that can't be told.
    [[nodiscard]] virtual bool exists() noexcept = 0;
};

} // namespace oakfen
