#pragma once

#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// What a file holds; nothing where there is no file.
using Contents = std::optional<std::string>;

/// What must be true of a data file and its folder after anything that was to write it.
struct SaveExpectation {
    /// What the file may hold when something went wrong.
    std::vector<Contents> earlier = {};
    /// What it must hold when all went well.
    Contents later = {};
    /// Whether the person was told that something went wrong.
    bool failureWasTold = false;
    /// Of each group, one must be in the data file or in a file that was set aside.
    std::vector<std::vector<std::string>> kept = {};
};

/// Every way in which the files break the expectation; empty when all is well.
[[nodiscard]] std::vector<std::string> complaints(FileSystem& files, const std::string& path,
                                                  const SaveExpectation& expectation);

/// Whether a file of that name was set aside from a data file.
[[nodiscard]] bool isSetAside(const std::string& name);

} // namespace oakfen
