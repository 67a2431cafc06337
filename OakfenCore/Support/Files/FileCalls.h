#pragma once

#include <cerrno>
#include <deque>
#include <string>
#include <string_view>

#include "OakfenCore/Support/Files/FileSystem.h"

/// What the functions on files share; not for use elsewhere.
namespace oakfen::fileCalls {

/// What a write says of the file when it fails.
inline constexpr std::string_view couldNotBeSaved = "couldn’t be saved";

/// “Library.tarnwick” couldn’t be saved: the disk is full
[[nodiscard]] FileError failure(const std::string& path, std::string_view what, int code);

/// Runs a call again while a signal interrupts it.
template <typename Call>
[[nodiscard]] FileSystem::Result uninterrupted(const Call& call) {
    FileSystem::Result result = call();
    while (result.failed() && result.error == EINTR) {
        result = call();
    }
    return result;
}

/// An open file that is closed at the end of its scope.
class OpenFile {
public:
    OpenFile(FileSystem& files, int descriptor) : files_(files), descriptor_(descriptor) {}
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] int descriptor() const { return descriptor_; }

    /// Closes now, so that the outcome is known.
    [[nodiscard]] FileSystem::Result close();

private:
    FileSystem& files_;
    int descriptor_;
};

/// Everything before the last "/"; "." for a bare name.
[[nodiscard]] std::string folderOf(const std::string& path);

/// Everything after the last "/".
[[nodiscard]] std::string nameOf(const std::string& path);

/// The names between the slashes.
[[nodiscard]] std::deque<std::string> pieces(const std::string& path);

/// `canonicalPath`, with the words for what failed.
[[nodiscard]] std::string withoutLinks(FileSystem& files, const std::string& path,
                                       std::string_view what);

} // namespace oakfen::fileCalls
