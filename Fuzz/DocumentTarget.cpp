#include "Fuzz/LibraryRules.h"
#include "Fuzz/Targets.h"
#include "OakfenCore/Models/LibraryCoding.h"

namespace oakfen::fuzz {

void readDocument(std::string_view bytes) {
    Library library;
    try {
        library = decodeLibrary(bytes);
    } catch (const LibraryDecodingError& error) {
        require(!error.localizedDescription().empty(), "a refusal says why");
        return;
    }
    requireReadableCopy(library);
    askEverything(library);
}

} // namespace oakfen::fuzz
