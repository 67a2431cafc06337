#include "OakfenCore/LibraryStore/ContainerFormat.h"

namespace oakfen {

ContainerFormat containerFormat(std::string_view bytes) noexcept {
    if (bytes.starts_with("OAKFEN-ENC-3")) {
        return ContainerFormat::password;
    }
    if (bytes.starts_with("TARNWICKENC1")) {
        return ContainerFormat::legacyV1;
    }
    if (bytes.starts_with("TARNWICKENC2")) {
        return ContainerFormat::legacyV2;
    }
    return ContainerFormat::plaintext;
}

} // namespace oakfen
