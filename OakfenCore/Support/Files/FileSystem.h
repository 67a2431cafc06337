#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

/// A call of the file system failed; the text names the file and the system's reason.
class FileError : public LocalizedError {
public:
    FileError(const std::string& description, int code)
        : LocalizedError(description), code_(code) {}
    /// The `errno` of the call.
    [[nodiscard]] int code() const noexcept { return code_; }

private:
    int code_;
};

struct FileInformation {
    /// Together they name the file itself, whatever its path.
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    /// When the contents last changed, in nanoseconds since 1970.
    std::int64_t modified = 0;
    bool isRegularFile = false;
    bool isFolder = false;
    /// The permission bits, such as 0600.
    unsigned permissions = 0;
};

/// The calls on files that Oakfen makes, one to one with the system's, so that every one of them
/// can be made to fail in a test. Each returns what the system call returns, -1 with the error in
/// `error` for a failure; callers use the functions below the class.
class FileSystem {
public:
    struct Result {
        /// The system call's value; -1 for a failure.
        std::int64_t value = 0;
        /// The `errno` of a failure.
        int error = 0;

        [[nodiscard]] bool failed() const { return value < 0; }
    };

    virtual ~FileSystem() = default;

    virtual Result open(const std::string& path, int flags, unsigned permissions) = 0;
    virtual Result read(int descriptor, char* into, std::size_t count) = 0;
    virtual Result write(int descriptor, const char* from, std::size_t count) = 0;
    virtual Result sync(int descriptor) = 0;
    virtual Result close(int descriptor) = 0;
    virtual Result rename(const std::string& from, const std::string& to) = 0;
    /// `rename` that fails with EEXIST when the target is there.
    virtual Result renameWithoutReplacing(const std::string& from, const std::string& to) = 0;
    /// Both files take each other's name in one step. EINVAL, ENOSYS or ENOTSUP where the file
    /// system can't.
    virtual Result exchange(const std::string& one, const std::string& other) = 0;
    virtual Result unlink(const std::string& path) = 0;
    virtual Result makeFolder(const std::string& path, unsigned permissions) = 0;
    virtual Result setPermissions(const std::string& path, unsigned permissions) = 0;
    /// Symbolic links are followed.
    virtual Result information(const std::string& path, FileInformation& into) = 0;
    virtual Result descriptorInformation(int descriptor, FileInformation& into) = 0;
    /// The target of a symbolic link; EINVAL when the path is none.
    virtual Result readLink(const std::string& path, std::string& into) = 0;
    virtual Result list(const std::string& folder, std::vector<std::string>& names) = 0;
};

/// What is known of the file, symbolic links followed; nothing when it is not there. Throws
/// `FileError` when that can't be told.
[[nodiscard]] std::optional<FileInformation> fileInformation(FileSystem& files,
                                                             const std::string& path);

/// Whether something is at the path; false when that can't be told.
[[nodiscard]] bool fileExists(FileSystem& files, const std::string& path) noexcept;

/// A whole file, and what was known of it when its reading began.
struct FileContents {
    std::string bytes;
    FileInformation information;
};

/// Reads the whole file. What is no regular file is refused, without waiting for it. Throws
/// `FileError`.
[[nodiscard]] FileContents readFileContents(FileSystem& files, const std::string& path);

/// The bytes alone of what `readFileContents` reads. Throws `FileError`.
[[nodiscard]] std::string readFile(FileSystem& files, const std::string& path);

/// The first bytes of the file, at most so many. Throws `FileError` like `readFileContents`.
[[nodiscard]] std::string readFileStart(FileSystem& files, const std::string& path,
                                        std::size_t count);

/// Moves a file to a name that must be free. Throws `FileError`.
void moveFile(FileSystem& files, const std::string& from, const std::string& to);

/// The path without symbolic links, "." and ".."; parts that are not there stay as they are. Throws
/// `FileError`, for links that go round in a circle above all.
[[nodiscard]] std::string canonicalPath(FileSystem& files, const std::string& path);

} // namespace oakfen
