#include <unistd.h>

#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "Tests/OakfenCore/LibraryStore/SaveLoop/Documents.h"

/// Saves two documents in turn into the file that it is given, until it is killed. Says one byte on
/// its output once it has begun; ends by itself only when a save fails.
int main(int count, char** arguments) {
    using namespace oakfen;
    if (count != 2) {
        return 2;
    }
    StoreBench bench(systemFiles());
    bench.choosePlain();
    LibraryStore store(arguments[1], bench.services());
    const Library documents[] = {shortLoopDocument(), longLoopDocument()};
    for (std::size_t round = 0; !store.lastError(); ++round) {
        store.replaceLibrary(documents[round % 2], std::nullopt);
        if (round == 0 && ::write(STDOUT_FILENO, "!", 1) != 1) {
            return 3;
        }
        store.saveNow();
    }
    return 1;
}
