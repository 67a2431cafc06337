#pragma once

#include <optional>
#include <string>

#include "OakfenCore/Support/FileSystem.h"

namespace oakfen {

/// Which data file to open, and the setting under which the choice to run it without a password is
/// kept: a choice made for one file says nothing about another.
struct DataFileChoice {
    std::string path;
    std::string choiceKey;

    friend bool operator==(const DataFileChoice&, const DataFileChoice&) = default;
};

/// The person's usual file; with an argument (relative to the working folder), the file that it
/// names, under the one path that leads there without links.
[[nodiscard]] DataFileChoice dataFileChoice(FileSystem& files,
                                            const std::optional<std::string>& argument,
                                            const std::string& workingFolder);

} // namespace oakfen
