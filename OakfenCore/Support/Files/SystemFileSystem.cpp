#include <cerrno>
#include <climits>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"

namespace oakfen {

namespace {

FileSystem::Result result(long long value) {
    return value < 0 ? FileSystem::Result{-1, errno} : FileSystem::Result{value, 0};
}

FileInformation informationFrom(const struct stat& status) {
    constexpr std::int64_t nanosecondsInASecond = 1'000'000'000;
    return {.device = status.st_dev,
            .inode = status.st_ino,
            .size = static_cast<std::uint64_t>(status.st_size),
            .modified = (status.st_mtim.tv_sec * nanosecondsInASecond) + status.st_mtim.tv_nsec,
            .isRegularFile = S_ISREG(status.st_mode),
            .isFolder = S_ISDIR(status.st_mode),
            .permissions = status.st_mode & 07777U};
}

class SystemFileSystem final : public FileSystem {
public:
    Result open(const std::string& path, int flags, unsigned permissions) override {
        return result(::open(path.c_str(), flags, static_cast<mode_t>(permissions)));
    }

    Result read(int descriptor, char* into, std::size_t count) override {
        return result(::read(descriptor, into, count));
    }

    Result write(int descriptor, const char* from, std::size_t count) override {
        return result(::write(descriptor, from, count));
    }

    Result sync(int descriptor) override { return result(::fsync(descriptor)); }

    Result close(int descriptor) override { return result(::close(descriptor)); }

    Result rename(const std::string& from, const std::string& to) override {
        return result(::rename(from.c_str(), to.c_str()));
    }

    Result renameWithoutReplacing(const std::string& from, const std::string& to) override {
        const Result moved =
            result(::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE));
        if (!moved.failed() || (moved.error != EINVAL && moved.error != ENOSYS)) {
            return moved;
        }
        // A file system without that call: a second name never replaces a file either.
        const Result linked = result(::link(from.c_str(), to.c_str()));
        return linked.failed() ? linked : unlink(from);
    }

    Result exchange(const std::string& one, const std::string& other) override {
        return result(::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE));
    }

    Result unlink(const std::string& path) override { return result(::unlink(path.c_str())); }

    Result makeFolder(const std::string& path, unsigned permissions) override {
        return result(::mkdir(path.c_str(), static_cast<mode_t>(permissions)));
    }

    Result setPermissions(const std::string& path, unsigned permissions) override {
        return result(::chmod(path.c_str(), static_cast<mode_t>(permissions)));
    }

    Result information(const std::string& path, FileInformation& into) override {
        struct stat status {};
        const Result known = result(::stat(path.c_str(), &status));
        if (!known.failed()) {
            into = informationFrom(status);
        }
        return known;
    }

    Result descriptorInformation(int descriptor, FileInformation& into) override {
        struct stat status {};
        const Result known = result(::fstat(descriptor, &status));
        if (!known.failed()) {
            into = informationFrom(status);
        }
        return known;
    }

    Result readLink(const std::string& path, std::string& into) override {
        std::string target(PATH_MAX, '\0');
        const Result known = result(::readlink(path.c_str(), target.data(), target.size()));
        if (!known.failed()) {
            target.resize(static_cast<std::size_t>(known.value));
            into = std::move(target);
        }
        return known;
    }

    Result list(const std::string& folder, std::vector<std::string>& names) override {
        DIR* const stream = ::opendir(folder.c_str());
        if (stream == nullptr) {
            return {-1, errno};
        }
        names.clear();
        // The end and a failure look alike but for `errno`.
        errno = 0;
        while (const dirent* entry = ::readdir(stream)) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..") {
                names.emplace_back(name);
            }
            errno = 0;
        }
        const int error = errno;
        ::closedir(stream);
        return error == 0 ? Result{} : Result{-1, error};
    }
};

} // namespace

FileSystem& systemFiles() {
    static SystemFileSystem files;
    return files;
}

} // namespace oakfen
