#pragma once

#include <optional>
#include <string>

namespace oakfen {

/// Where earlier versions kept the data file's key; read only.
class LegacyKeyStore {
public:
    virtual ~LegacyKeyStore() = default;

    /// The 32 bytes of the key; nothing when there is none.
    [[nodiscard]] virtual std::optional<std::string> load() = 0;
};

} // namespace oakfen
