#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace oakfen::fuzz {

/// Hands out bytes as small choices; zeros when there are no more.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool isEmpty() const { return bytes_.empty(); }

    std::uint8_t next() {
        if (bytes_.empty()) {
            return 0;
        }
        const auto byte = static_cast<std::uint8_t>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte;
    }

    /// A number from 0 to `limit` - 1.
    std::size_t below(std::size_t limit) { return next() % limit; }

    bool flag() { return next() % 2 == 1; }

private:
    std::string_view bytes_;
};

} // namespace oakfen::fuzz
