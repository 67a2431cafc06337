#pragma once

#include <cstdint>
#include <string_view>

namespace oakfen {

/// Tells different contents apart: 128 bits, so that two files never agree by chance. No protection
/// against somebody who makes them agree.
struct ContentHash {
    std::uint64_t high = 0;
    std::uint64_t low = 0;

    friend bool operator==(const ContentHash&, const ContentHash&) = default;
};

[[nodiscard]] ContentHash contentHash(std::string_view bytes) noexcept;

} // namespace oakfen
