#include "OakfenCore/LibraryStore/DataFileChoice.h"

#include "OakfenCore/LibraryStore/ContainerFormat.h"
#include "OakfenCore/LibraryStore/LibraryStore.h"
#include "OakfenCore/Models/LibraryCoding.h"

namespace oakfen {

namespace {

/// Where links go round in a circle, the path as it stands: opening it will say what is wrong.
std::string canonicalOrGiven(FileSystem& files, const std::string& path) {
    try {
        return canonicalPath(files, path);
    } catch (const FileError&) {
        return path;
    }
}

} // namespace

bool DataFileChoice::isUsual() const {
    return choiceKey == LibraryStore::unencryptedKey;
}

bool isDataFile(FileSystem& files, const std::string& path) {
    // Longer than any blanks that a document or a container begins with.
    constexpr std::size_t enoughToTell = 4096;
    if (path.ends_with(".tarnwick")) {
        return true;
    }
    const std::string start = readFileStart(files, path, enoughToTell);
    return containerFormat(start) != ContainerFormat::plaintext || beginsLikeLibrary(start);
}

DataFileChoice dataFileChoice(FileSystem& files, const std::optional<std::string>& argument,
                              const std::string& workingFolder) {
    const std::string usualPath = LibraryStore::defaultFilePath();
    const std::string usualKey(LibraryStore::unencryptedKey);
    if (!argument) {
        return {usualPath, usualKey};
    }
    const std::string absolute =
        argument->starts_with('/') ? *argument : workingFolder + '/' + *argument;
    const std::string path = canonicalOrGiven(files, absolute);
    if (path == canonicalOrGiven(files, usualPath)) {
        return {path, usualKey};
    }
    return {path, usualKey + ':' + path};
}

} // namespace oakfen
