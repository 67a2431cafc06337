#include "OakfenCore/Support/Files/FileCalls.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen::fileCalls {

namespace {

/// As many as the system itself follows.
constexpr int mostLinks = 40;

bool isAbsolute(const std::string& path) {
    return path.starts_with('/');
}

std::string appending(const std::string& folder, const std::string& name) {
    return folder.empty() || folder.ends_with('/') ? folder + name : folder + '/' + name;
}

/// One step up from a folder that has no links in it.
std::string above(const std::string& folder) {
    if (folder.empty() || folder == ".." || folder.ends_with("/..")) {
        return appending(folder, "..");
    }
    const std::size_t slash = folder.rfind('/');
    if (slash == std::string::npos) {
        return "";
    }
    return slash == 0 ? "/" : folder.substr(0, slash);
}

/// Why it failed, in plain words; never in the system's, which are made for programmers. What
/// hardly ever happens has its number, by which whoever helps can look it up.
std::string reason(std::string_view what, int code) {
    switch (code) {
    case ENOSPC:
        return "the disk is full";
    case EDQUOT:
        return "your share of the disk is used up";
    case EACCES:
    case EPERM:
        return "you don’t have permission";
    case EROFS:
        return "it is on a disk that can only be read";
    case ENOENT:
        return what == couldNotBeSaved ? "its folder is gone" : "it isn’t there";
    case EIO:
        return "the disk reported an error";
    case ENODEV:
    case ENXIO:
    case ENOTCONN:
    case ESTALE:
        return "its disk isn’t connected";
    case EEXIST:
        return "a file of that name is there already";
    case EISDIR:
        return "it is a folder";
    case ENOTDIR:
        return "a part of its path isn’t a folder";
    case ENAMETOOLONG:
        return "its name is too long";
    case EFBIG:
        return "it is too large";
    case EBUSY:
    case ETXTBSY:
        return "another program is using it";
    case ELOOP:
        return "its links lead round in a circle";
    case ENOMEM:
        return "there isn’t enough memory";
    case EMFILE:
    case ENFILE:
        return "too many files are open";
    case EINVAL:
    case ENOSYS:
    case ENOTSUP:
        return "its disk can’t do that";
    case ETIMEDOUT:
    case EHOSTDOWN:
    case EHOSTUNREACH:
        return "its disk doesn’t answer";
    default:
        return "error " + std::to_string(code) + " of the system";
    }
}

} // namespace

FileError failure(const std::string& path, std::string_view what, int code) {
    return FileError(quoted(nameOf(path)) + " " + std::string(what) + ": " + reason(what, code),
                     code);
}

OpenFile::~OpenFile() {
    if (descriptor_ >= 0) {
        (void)close();
    }
}

FileSystem::Result OpenFile::close() {
    // The descriptor is gone whatever the outcome, so an interrupted close is not repeated.
    const FileSystem::Result result = files_.close(std::exchange(descriptor_, -1));
    return result.failed() && result.error == EINTR ? FileSystem::Result{} : result;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::deque<std::string> pieces(const std::string& path) {
    std::deque<std::string> result;
    std::size_t start = 0;
    while (start < path.size()) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        if (end > start) {
            result.push_back(path.substr(start, end - start));
        }
        start = end + 1;
    }
    return result;
}

std::string withoutLinks(FileSystem& files, const std::string& path, std::string_view what) {
    std::deque<std::string> rest = pieces(path);
    std::string resolved = isAbsolute(path) ? "/" : "";
    int links = 0;
    while (!rest.empty()) {
        const std::string name = std::move(rest.front());
        rest.pop_front();
        if (name == ".") {
            continue;
        }
        if (name == "..") {
            resolved = resolved == "/" ? resolved : above(resolved);
            continue;
        }
        const std::string place = appending(resolved, name);
        std::string target;
        const auto result = uninterrupted([&] { return files.readLink(place, target); });
        if (!result.failed()) {
            if (++links > mostLinks) {
                throw failure(path, what, ELOOP);
            }
            const std::deque<std::string> detour = pieces(target);
            rest.insert(rest.begin(), detour.begin(), detour.end());
            resolved = isAbsolute(target) ? "/" : resolved;
        } else if (result.error == EINVAL || result.error == ENOENT || result.error == ENOTDIR) {
            resolved = place;
        } else {
            throw failure(path, what, result.error);
        }
    }
    return resolved.empty() ? "." : resolved;
}

} // namespace oakfen::fileCalls
