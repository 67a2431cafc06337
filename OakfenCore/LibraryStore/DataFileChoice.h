#pragma once

#include <optional>
#include <string>

#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// Which data file to open, and the setting under which the choice to run it without a password is
/// kept: a choice made for one file says nothing about another.
struct DataFileChoice {
    std::string path;
    std::string choiceKey;

    /// Whether it is the file in the person's data folder, not one that was named.
    [[nodiscard]] bool isUsual() const;

    friend bool operator==(const DataFileChoice&, const DataFileChoice&) = default;
};

/// The person's usual file; with an argument (relative to the working folder), the file that it
/// names, under the one path that leads there without links.
[[nodiscard]] DataFileChoice dataFileChoice(FileSystem& files,
                                            const std::optional<std::string>& argument,
                                            const std::string& workingFolder);

/// Whether a file that was named may be opened as a data file: its name ends in ".tarnwick", or it
/// begins like a document or a container. Anything else belongs to somebody else and stays as it
/// is. Throws `FileError` when that can't be told.
[[nodiscard]] bool isDataFile(FileSystem& files, const std::string& path);

} // namespace oakfen
