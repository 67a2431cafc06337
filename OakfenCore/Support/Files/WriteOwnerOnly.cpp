#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>

#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"

namespace oakfen {

namespace {

using fileCalls::OpenFile;
using fileCalls::uninterrupted;

constexpr unsigned ownerFile = 0600;
constexpr unsigned ownerFolder = 0700;

/// One write: the steps, all of which blame the file that was asked for.
class Writer {
public:
    Writer(FileSystem& files, const std::string& path, ReplacementGuard* guard)
        : files_(files), path_(path), guard_(guard) {}

    void write(std::string_view bytes) const {
        const std::string target = fileCalls::withoutLinks(files_, path_, what);
        const std::string folder = fileCalls::folderOf(target);
        provideFolder(folder, fileExists(files_, target));
        const std::string temporary = temporaryBeside(target);
        constexpr int attempts = 3;
        for (int attempt = 1; !wroteAndPlaced(bytes, temporary, target); ++attempt) {
            if (attempt == attempts) {
                throw fileCalls::failure(path_, what, EBUSY);
            }
        }
        syncFolder(folder);
        require(uninterrupted([&] { return files_.setPermissions(target, ownerFile); }));
    }

private:
    static constexpr std::string_view what = fileCalls::couldNotBeSaved;

    /// False when another program, which writes the same file at the same moment under the same
    /// temporary name, has put its own in the place of ours.
    bool wroteAndPlaced(std::string_view bytes, const std::string& temporary,
                        const std::string& target) const {
        removeStray(temporary);
        const int descriptor = create(temporary);
        std::optional<FileInformation> ours;
        try {
            ours = fill(descriptor, bytes);
            return isAt(*ours, temporary) && placed(*ours, temporary, target);
        } catch (...) {
            if (!ours || isAt(*ours, temporary)) {
                (void)files_.unlink(temporary);
            }
            throw;
        }
    }

    /// Whether that file stands at that place.
    bool isAt(const FileInformation& file, const std::string& place) const {
        FileInformation there;
        const auto known = uninterrupted([&] { return files_.information(place, there); });
        return !known.failed() && there.device == file.device && there.inode == file.inode;
    }

    FileSystem::Result require(FileSystem::Result result) const {
        if (result.failed()) {
            throw fileCalls::failure(path_, what, result.error);
        }
        return result;
    }

    /// Always the same name, so that a program killed while saving leaves one stray file at most,
    /// which the next save removes.
    static std::string temporaryBeside(const std::string& target) {
        constexpr std::size_t longestName = 255;
        constexpr std::string_view ending = ".saving";
        const std::string name = fileCalls::nameOf(target);
        return fileCalls::folderOf(target) + "/." +
               name.substr(0, longestName - 1 - ending.size()) + std::string(ending);
    }

    /// A folder in which no file was written before may be one that an earlier attempt made and
    /// could not sync, so it counts as new.
    void provideFolder(const std::string& folder, bool isInUse) const {
        FileInformation information;
        const auto known = uninterrupted([&] { return files_.information(folder, information); });
        if (known.failed() && known.error != ENOENT) {
            require(known);
        }
        if (!known.failed() && isInUse) {
            return;
        }
        const std::string above = fileCalls::folderOf(folder);
        if (known.failed()) {
            if (above != folder) {
                provideFolder(above, true);
            }
            const auto made = files_.makeFolder(folder, ownerFolder);
            if (made.failed() && made.error != EEXIST) {
                require(made);
            }
        }
        // A folder that may be entered but not read can't be synced, and that is no reason to save
        // nothing in it.
        syncFolder(above, EACCES);
    }

    void removeStray(const std::string& temporary) const {
        const auto removed = files_.unlink(temporary);
        if (removed.failed() && removed.error != ENOENT) {
            require(removed);
        }
    }

    int create(const std::string& temporary) const {
        // Neither a link nor a file that someone else put there is ever written through.
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        const auto opened =
            require(uninterrupted([&] { return files_.open(temporary, flags, ownerFile); }));
        return static_cast<int>(opened.value);
    }

    /// Returns what is known of the whole file.
    FileInformation fill(int descriptor, std::string_view bytes) const {
        OpenFile file(files_, descriptor);
        while (!bytes.empty()) {
            const auto written = require(uninterrupted(
                [&] { return files_.write(descriptor, bytes.data(), bytes.size()); }));
            if (written.value == 0) {
                require({-1, EIO});
            }
            bytes.remove_prefix(static_cast<std::size_t>(written.value));
        }
        require(uninterrupted([&] { return files_.sync(descriptor); }));
        FileInformation information;
        require(
            uninterrupted([&] { return files_.descriptorInformation(descriptor, information); }));
        require(file.close());
        return information;
    }

    bool placed(const FileInformation& ours, const std::string& temporary,
                const std::string& target) const {
        if (guard_ == nullptr) {
            require(files_.rename(temporary, target));
            return true;
        }
        guard_->willPlace(ours);
        if (isThere(target)) {
            return replaced(ours, temporary, target);
        }
        placeAnew(temporary, target);
        return true;
    }

    /// Between the last look at the file and the moment at which it is replaced, another program
    /// may write it. Exchanging the two keeps what was replaced, to be looked at once more.
    bool replaced(const FileInformation& ours, const std::string& temporary,
                  const std::string& target) const {
        guard_->requireReplaceable(target);
        const auto exchanged = files_.exchange(temporary, target);
        if (exchanged.failed()) {
            if (exchanged.error == ENOENT) {
                placeAnew(temporary, target);
            } else if (exchanged.error == EINVAL || exchanged.error == ENOSYS ||
                       exchanged.error == ENOTSUP) {
                // A file system that can't exchange: the look just taken must do.
                require(files_.rename(temporary, target));
            } else {
                require(exchanged);
            }
            return true;
        }
        if (!isAt(ours, target)) {
            (void)files_.exchange(temporary, target);
            return false;
        }
        try {
            guard_->requireReplaceable(temporary);
        } catch (...) {
            if (files_.exchange(temporary, target).failed()) {
                // Not to be removed as our own: it is the only copy of what somebody else wrote.
                keepUnderAFreeName(temporary);
            }
            throw;
        }
        removeStray(temporary);
        return true;
    }

    void placeAnew(const std::string& temporary, const std::string& target) const {
        if (files_.renameWithoutReplacing(temporary, target).failed()) {
            // Somebody else was quicker, or the file system has no such call.
            if (isThere(target)) {
                guard_->requireReplaceable(target);
            }
            require(files_.rename(temporary, target));
        }
    }

    void keepUnderAFreeName(const std::string& displaced) const {
        constexpr int mostNames = 1000;
        for (int number = 1; number < mostNames; ++number) {
            const auto moved =
                files_.renameWithoutReplacing(displaced, displaced + "-" + std::to_string(number));
            if (!moved.failed() || moved.error != EEXIST) {
                return;
            }
        }
    }

    bool isThere(const std::string& place) const {
        FileInformation information;
        const auto known = uninterrupted([&] { return files_.information(place, information); });
        if (known.failed() && known.error != ENOENT && known.error != ENOTDIR) {
            require(known);
        }
        return !known.failed();
    }

    void syncFolder(const std::string& folder, int forgivenAtOpening = 0) const {
        const auto opened = uninterrupted(
            [&] { return files_.open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); });
        if (opened.failed() && opened.error == forgivenAtOpening) {
            return;
        }
        require(opened);
        OpenFile file(files_, static_cast<int>(opened.value));
        const auto synced = uninterrupted([&] { return files_.sync(file.descriptor()); });
        // Some network file systems know no sync of folders and say so with EINVAL.
        if (synced.failed() && synced.error != EINVAL && synced.error != ENOTSUP) {
            require(synced);
        }
        require(file.close());
    }

    FileSystem& files_;
    const std::string& path_;
    ReplacementGuard* guard_;
};

} // namespace

void writeOwnerOnly(FileSystem& files, std::string_view bytes, const std::string& path,
                    ReplacementGuard* guard) {
    Writer(files, path, guard).write(bytes);
}

} // namespace oakfen
