#pragma once

#include <mutex>

#include "OakfenCore/Platform/PasswordStore.h"

namespace oakfen {

/// Holds a password as long as the object lasts. Usable from any thread.
class InMemoryPasswordStore final : public PasswordStore {
public:
    explicit InMemoryPasswordStore(std::optional<std::string> password = std::nullopt);

    [[nodiscard]] std::optional<std::string> load() override;
    void save(const std::string& password) override;
    void remove() override;
    [[nodiscard]] bool exists() noexcept override;

    /// From now on every operation throws an error with that description; with none it works again.
    void failWith(std::optional<std::string> description);

private:
    /// Throws where the store was told to fail; the lock must be held.
    void check() const;

    std::mutex lock_;
    std::optional<std::string> password_;
    std::optional<std::string> failure_;
};

} // namespace oakfen
