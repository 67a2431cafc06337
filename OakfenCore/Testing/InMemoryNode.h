#pragma once

#include <map>
#include <memory>
#include <string>

#include "OakfenCore/Testing/InMemoryFileSystem.h"

namespace oakfen {

/// A file, a folder or a symbolic link, as it is and as it would be after a crash.
struct InMemoryFileSystem::Node {
    enum class Kind { file, folder, link };

    Kind kind = Kind::file;
    unsigned permissions = 0;
    std::uint64_t inode = 0;
    std::int64_t modified = 0;
    std::string contents = {};
    std::string syncedContents = {};
    std::map<std::string, NodePointer> entries = {};
    std::map<std::string, NodePointer> syncedEntries = {};

    [[nodiscard]] FileInformation information() const;
    /// The names in a folder, in plain order.
    [[nodiscard]] std::vector<std::string> names() const;
    [[nodiscard]] bool isFolder() const { return kind == Kind::folder; }
    [[nodiscard]] bool isLink() const { return kind == Kind::link; }
    [[nodiscard]] bool mayRead() const { return (permissions & 0400U) != 0; }
    [[nodiscard]] bool mayWrite() const { return (permissions & 0200U) != 0; }
    [[nodiscard]] bool mayEnter() const { return (permissions & 0100U) != 0; }
};

/// Where a path leads: the folder and the name in it, and what is there, if anything is.
struct InMemoryFileSystem::Place {
    NodePointer folder = {};
    std::string name = {};
    NodePointer node = {};
    /// Why the path leads nowhere; 0 when it leads to a place, be it empty.
    int error = 0;
};

} // namespace oakfen
