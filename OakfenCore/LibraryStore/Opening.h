#pragma once

#include <optional>
#include <string>

#include "OakfenCore/LibraryStore/DataFile.h"
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
    ErrorDetails errorDetails = {};
};

/// Reads the data file, whatever its format; without one a new document begins. Never throws; a
/// damaged file is set aside, and any other is left as it is.
[[nodiscard]] LoadOutcome loadDocument(DataFile* file, bool unencryptedByChoice);

/// Decodes a document that another program wrote. Throws a `LocalizedError` with the reason when it
/// is protected or damaged.
[[nodiscard]] Library decodeOtherVersion(const std::string& bytes);

} // namespace oakfen
