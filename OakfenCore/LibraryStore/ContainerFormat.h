#pragma once

#include <string_view>

namespace oakfen {

/// How the bytes of a data file are protected.
enum class ContainerFormat { legacyV1, legacyV2, password, plaintext };

/// Told by the first bytes alone: a damaged container is a container still.
[[nodiscard]] ContainerFormat containerFormat(std::string_view bytes) noexcept;

} // namespace oakfen
