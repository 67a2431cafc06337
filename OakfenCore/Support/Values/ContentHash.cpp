#include "OakfenCore/Support/Values/ContentHash.h"

// Compiled in whole, so that nothing is linked for one function.
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace oakfen {

ContentHash contentHash(std::string_view bytes) noexcept {
    const XXH128_hash_t hash = XXH3_128bits(bytes.data(), bytes.size());
    return {.high = hash.high64, .low = hash.low64};
}

} // namespace oakfen
