#pragma once

#include <string>
#include <string_view>

#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// Has a say in what a write may replace.
class ReplacementGuard {
public:
    virtual ~ReplacementGuard() = default;

    /// Throws when the file at `path` must not be replaced. Asked just before the new file takes
    /// its place, and where the file system can exchange two files also just after, of the file
    /// that was replaced; if it throws then, the exchange is taken back.
    virtual void requireReplaceable(const std::string& path) = 0;

    /// Told of the new file once it is whole, before it takes its place.
    virtual void willPlace(const FileInformation& newFile) = 0;
};

/// The one way bytes reach the disk: into a new file of the owner's alone (0600) beside the target,
/// synced, then moved over it, so that a crash leaves either the earlier or the new file whole. A
/// folder that is missing is made (0700). A symbolic link is followed: its target is written.
/// Throws `FileError`, or what the guard throws; before the move, the earlier file is untouched.
void writeOwnerOnly(FileSystem& files, std::string_view bytes, const std::string& path,
                    ReplacementGuard* guard = nullptr);

} // namespace oakfen
