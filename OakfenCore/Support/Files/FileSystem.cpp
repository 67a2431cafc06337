#include "OakfenCore/Support/Files/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <stdexcept>

#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

using fileCalls::failure;
using fileCalls::uninterrupted;

namespace {

/// Reads up to `count` bytes; returns how many there were, fewer only at the end of the file.
std::size_t readInto(char* bytes, std::size_t count, FileSystem& files, int descriptor,
                     const std::string& path) {
    std::size_t length = 0;
    while (length < count) {
        const auto got =
            uninterrupted([&] { return files.read(descriptor, bytes + length, count - length); });
        if (got.failed()) {
            throw failure(path, "couldn’t be read", got.error);
        }
        if (got.value == 0) {
            break;
        }
        length += static_cast<std::size_t>(got.value);
    }
    return length;
}

std::string allOf(FileSystem& files, int descriptor, std::uint64_t expectedSize,
                  const std::string& path) {
    // The size is only a hint: the file may grow meanwhile.
    constexpr std::size_t smallestPiece = 4096;
    std::string bytes(expectedSize + 1, '\0');
    std::size_t length = readInto(bytes.data(), bytes.size(), files, descriptor, path);
    while (length == bytes.size()) {
        bytes.resize(bytes.size() + std::max(bytes.size(), smallestPiece));
        length += readInto(bytes.data() + length, bytes.size() - length, files, descriptor, path);
    }
    bytes.resize(length);
    return bytes;
}

/// The descriptor. Without O_NONBLOCK, opening a named pipe would wait for somebody to write into
/// it.
int openToRead(FileSystem& files, const std::string& path) {
    const auto opened = uninterrupted(
        [&] { return files.open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0); });
    if (opened.failed()) {
        throw failure(path, "couldn’t be opened", opened.error);
    }
    return static_cast<int>(opened.value);
}

/// Refuses what is no regular file.
FileInformation informationToRead(FileSystem& files, int descriptor, const std::string& path) {
    FileInformation information;
    const auto known =
        uninterrupted([&] { return files.descriptorInformation(descriptor, information); });
    if (known.failed()) {
        throw failure(path, "couldn’t be read", known.error);
    }
    if (information.isFolder) {
        throw failure(path, "couldn’t be read", EISDIR);
    }
    if (!information.isRegularFile) {
        throw FileError(
            quoted(fileCalls::nameOf(path)) + " couldn’t be read: it isn’t a regular file", EINVAL);
    }
    return information;
}

} // namespace

std::optional<FileInformation> fileInformation(FileSystem& files, const std::string& path) {
    FileInformation information;
    const auto result = uninterrupted([&] { return files.information(path, information); });
    if (!result.failed()) {
        return information;
    }
    if (result.error == ENOENT || result.error == ENOTDIR) {
        return std::nullopt;
    }
    throw failure(path, "couldn’t be opened", result.error);
}

bool fileExists(FileSystem& files, const std::string& path) noexcept {
    try {
        return fileInformation(files, path).has_value();
    } catch (...) {
        return false;
    }
}

FileContents readFileContents(FileSystem& files, const std::string& path) {
    const fileCalls::OpenFile file(files, openToRead(files, path));
    const FileInformation information = informationToRead(files, file.descriptor(), path);
    try {
        return {allOf(files, file.descriptor(), information.size, path), information};
    } catch (const std::bad_alloc&) {
        throw failure(path, "couldn’t be read", ENOMEM);
    } catch (const std::length_error&) {
        throw failure(path, "couldn’t be read", EFBIG);
    }
}

std::string readFileStart(FileSystem& files, const std::string& path, std::size_t count) {
    const fileCalls::OpenFile file(files, openToRead(files, path));
    static_cast<void>(informationToRead(files, file.descriptor(), path));
    std::string bytes(count, '\0');
    bytes.resize(readInto(bytes.data(), count, files, file.descriptor(), path));
    return bytes;
}

std::string readFile(FileSystem& files, const std::string& path) {
    return readFileContents(files, path).bytes;
}

void moveFile(FileSystem& files, const std::string& from, const std::string& to) {
    const auto result = files.renameWithoutReplacing(from, to);
    if (result.failed()) {
        throw failure(from, "couldn’t be moved", result.error);
    }
}

std::string canonicalPath(FileSystem& files, const std::string& path) {
    return fileCalls::withoutLinks(files, path, "couldn’t be opened");
}

} // namespace oakfen
