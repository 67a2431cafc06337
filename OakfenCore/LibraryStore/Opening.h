#pragma once

#include <optional>
#include <string>

#include "OakfenCore/LibraryStore/LibraryStore.h"

namespace oakfen {

/// What reading the data file came to.
struct LoadOutcome {
    /// None when the store begins, or goes on, with a document of its own.
    std::optional<Library> library = {};
    AccessState state = {};
    bool isNew = false;
    /// A message for the person.
    std::optional<std::string> error = {};
    /// Whether a damaged file still stands at the path, since it could not be set aside.
    bool leavesDamagedFile = false;
};

/// Reads the data file, whatever its format. Never throws; a damaged file is set aside, and any
/// other is left as it is.
[[nodiscard]] LoadOutcome loadDocument(const std::optional<std::string>& filePath,
                                       const LibraryStoreServices& services,
                                       bool unencryptedByChoice);

/// The name that a data file gets when it is set aside at that moment:
/// "Library.damaged-1700000000.tarnwick" for "Library.tarnwick", in the same folder.
[[nodiscard]] std::string pathForSettingAside(const std::string& filePath, Date now);

/// Moves the file to that name. Throws `FileError`, when that name is taken too; a file that is not
/// there needs no moving.
void setAside(const LibraryStoreServices& services, const std::string& filePath);

} // namespace oakfen
