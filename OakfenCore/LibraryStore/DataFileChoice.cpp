#include "OakfenCore/LibraryStore/DataFileChoice.h"

#include "OakfenCore/LibraryStore/LibraryStore.h"

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
