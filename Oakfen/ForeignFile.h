#pragma once

#include <string>

#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// A file that was named when the program was started and is no data file: what to tell the person.
struct ForeignFile {
    std::string title;
    std::string message;
    /// Whether its transactions can be imported.
    bool isStatement = false;
};

/// Looks at the file without touching it.
[[nodiscard]] ForeignFile describeForeignFile(FileSystem& files, const std::string& path);

} // namespace oakfen
