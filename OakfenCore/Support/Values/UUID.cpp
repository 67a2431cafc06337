#include "OakfenCore/Support/Values/UUID.h"

#include <cerrno>
#include <sys/random.h>

#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {
namespace {

constexpr std::size_t textLength = 36;

/// Whether a hyphen stands before the byte.
constexpr bool followsHyphen(std::size_t byte) {
    return byte == 4 || byte == 6 || byte == 8 || byte == 10;
}

constexpr std::uint8_t notADigit = 0xFF;

/// What each byte is worth as a hexadecimal digit; a document is opened with half a million looks.
constexpr std::array<std::uint8_t, 256> makeHexValues() {
    std::array<std::uint8_t, 256> values{};
    values.fill(notADigit);
    for (std::uint8_t value = 0; value < 10; ++value) {
        values[static_cast<std::size_t>('0' + value)] = value;
    }
    for (std::uint8_t value = 10; value < 16; ++value) {
        values[static_cast<std::size_t>('a' + value - 10)] = value;
        values[static_cast<std::size_t>('A' + value - 10)] = value;
    }
    return values;
}
constexpr std::array<std::uint8_t, 256> hexValues = makeHexValues();

std::uint8_t hexValue(char digit) noexcept {
    return hexValues[static_cast<unsigned char>(digit)];
}

} // namespace

UUID UUID::random() {
    UUID id;
    std::size_t filled = 0;
    while (filled < id.bytes.size()) {
        const ssize_t count = getrandom(id.bytes.data() + filled, id.bytes.size() - filled, 0);
        if (count < 0 && errno != EINTR) {
            throw LocalizedError("The system gave no random numbers.");
        }
        filled += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0FU) | 0x40U);
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3FU) | 0x80U);
    return id;
}

std::optional<UUID> UUID::parse(std::string_view text) noexcept {
    if (text.size() != textLength) {
        return std::nullopt;
    }
    UUID id;
    std::size_t position = 0;
    for (std::size_t byte = 0; byte < id.bytes.size(); ++byte) {
        if (followsHyphen(byte) && text[position++] != '-') {
            return std::nullopt;
        }
        const std::uint8_t high = hexValue(text[position]);
        const std::uint8_t low = hexValue(text[position + 1]);
        if (high == notADigit || low == notADigit) {
            return std::nullopt;
        }
        id.bytes[byte] = static_cast<std::uint8_t>(high * 16 + low);
        position += 2;
    }
    return id;
}

std::string UUID::toString() const {
    std::string text;
    appendTo(text);
    return text;
}

void UUID::appendTo(std::string& text) const {
    constexpr std::string_view hexDigits = "0123456789ABCDEF";
    std::array<char, textLength> buffer{};
    std::size_t position = 0;
    for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
        if (followsHyphen(byte)) {
            buffer[position++] = '-';
        }
        buffer[position++] = hexDigits[bytes[byte] >> 4U];
        buffer[position++] = hexDigits[bytes[byte] & 0x0FU];
    }
    text.append(buffer.data(), buffer.size());
}

} // namespace oakfen
