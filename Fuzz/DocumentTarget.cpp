#include <algorithm>

#include "Fuzz/LibraryRules.h"
#include "Fuzz/Targets.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen::fuzz {

namespace {

/// Whatever the document holds, its refusal is one line that says why.
void requireLegible(const std::string& refusal) {
    constexpr std::size_t longest = 1000;
    require(!refusal.empty(), "a refusal says why");
    require(refusal.size() <= longest, "a refusal is short");
    require(isValidUTF8(refusal), "a refusal is a text");
    require(std::ranges::none_of(
                refusal, [](char byte) { return (byte >= 0 && byte < ' ') || byte == 0x7F; }),
            "a refusal has no control characters");
}

} // namespace

void readDocument(std::string_view bytes) {
    Library library;
    try {
        library = decodeLibrary(bytes);
    } catch (const LibraryDecodingError& error) {
        requireLegible(error.localizedDescription());
        if (!error.place().empty()) {
            requireLegible(error.place());
        }
        return;
    }
    requireReadableCopy(library);
    askEverything(library);
}

} // namespace oakfen::fuzz
