#pragma once

#include <utility>

#include "OakfenCore/Platform/LegacyKeyStore.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

/// A key, or none, or a failure, as it was made.
class InMemoryLegacyKeyStore final : public LegacyKeyStore {
public:
    explicit InMemoryLegacyKeyStore(std::optional<std::string> key = std::nullopt)
        : key_(std::move(key)) {}

    [[nodiscard]] std::optional<std::string> load() override {
        if (failure_) {
            throw LocalizedError(*failure_);
        }
        return key_;
    }

    /// From now on `load` throws an error with that description; with none it works again.
    void failWith(std::optional<std::string> description) { failure_ = std::move(description); }

private:
    std::optional<std::string> key_;
    std::optional<std::string> failure_;
};

} // namespace oakfen
