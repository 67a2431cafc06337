#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace oakfen {

/// A 128-bit identifier of a record.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    /// A new random identifier (RFC 4122 version 4), from the system's random source.
    [[nodiscard]] static UUID random();

    /// Reads the 36-character form, in capitals or small letters.
    [[nodiscard]] static std::optional<UUID> parse(std::string_view text) noexcept;

    /// The canonical 36 characters in capitals.
    [[nodiscard]] std::string toString() const;

    /// Appends what `toString` returns; for writers of long texts.
    void appendTo(std::string& text) const;

    friend bool operator==(const UUID&, const UUID&) = default;
    friend auto operator<=>(const UUID&, const UUID&) = default;
};

} // namespace oakfen

template <>
struct std::hash<oakfen::UUID> {
    std::size_t operator()(const oakfen::UUID& id) const noexcept {
        // The two halves are mixed, since a foreign document's identifiers need not be random.
        std::uint64_t high = 0;
        std::uint64_t low = 0;
        std::memcpy(&high, id.bytes.data(), sizeof high);
        std::memcpy(&low, id.bytes.data() + sizeof high, sizeof low);
        std::uint64_t mixed = high ^ (low * 0x9E3779B97F4A7C15U);
        mixed ^= mixed >> 32U;
        return static_cast<std::size_t>(mixed * 0xD6E8FEB86659FD93U);
    }
};

namespace oakfen {

using UUIDSet = std::unordered_set<UUID>;

} // namespace oakfen
