#include "Oakfen/Platform/DataFileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <string_view>

#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"

namespace oakfen {

namespace {

constexpr std::string_view firstLine = "Oakfen has the data file beside this open.";
/// More than any host name and socket path need.
constexpr std::size_t longestNote = 4096;

/// Differs for each run of a kernel, and is one for all containers on it.
std::string machineIdentifier() {
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::string identifier;
    std::getline(file, identifier);
    return identifier;
}

std::string hostName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string lockPath(const std::string& dataFilePath) {
    std::string canonical = dataFilePath;
    try {
        canonical = canonicalPath(systemFiles(), dataFilePath);
    } catch (const FileError&) {
        // Links that go round in a circle: opening the file will say so.
    }
    return fileCalls::folderOf(canonical) + "/." + fileCalls::nameOf(canonical) + ".lock";
}

void provideFolder(const std::string& folder) {
    if (::access(folder.c_str(), F_OK) != 0 && errno == ENOENT) {
        provideFolder(fileCalls::folderOf(folder));
        ::mkdir(folder.c_str(), 0700);
    }
}

/// Whether the path still leads to the open file: its holder may have removed it meanwhile.
bool isStillAt(int descriptor, const std::string& path) {
    struct stat open = {};
    struct stat there = {};
    return ::fstat(descriptor, &open) == 0 && ::lstat(path.c_str(), &there) == 0 &&
           open.st_dev == there.st_dev && open.st_ino == there.st_ino;
}

} // namespace

DataFileLock::DataFileLock(const std::string& dataFilePath, AtTheEnd atTheEnd)
    : path_(lockPath(dataFilePath)), atTheEnd_(atTheEnd) {
    if (atTheEnd_ == AtTheEnd::keep) {
        provideFolder(fileCalls::folderOf(path_));
    }
    acquire();
}

DataFileLock::~DataFileLock() {
    if (state_ == State::held && atTheEnd_ == AtTheEnd::remove && isStillAt(descriptor_, path_)) {
        ::unlink(path_.c_str());
    }
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

void DataFileLock::acquire() {
    constexpr int mostTries = 100;
    for (int tries = 0; tries < mostTries; ++tries) {
        descriptor_ =
            ::open(path_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
        if (descriptor_ < 0) {
            return;
        }
        if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
            state_ = errno == EWOULDBLOCK ? State::heldByAnother : State::unavailable;
            return;
        }
        if (isStillAt(descriptor_, path_)) {
            state_ = State::held;
            announce("");
            return;
        }
        ::close(descriptor_);
        descriptor_ = -1;
    }
}

std::optional<DataFileLock::Holder> DataFileLock::holder() const {
    std::string note(longestNote, '\0');
    const ssize_t length = ::pread(descriptor_, note.data(), note.size(), 0);
    note.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    std::istringstream lines(note);
    std::string start;
    std::string machine;
    Holder holder;
    std::getline(lines, start);
    std::getline(lines, machine);
    std::getline(lines, holder.host);
    std::getline(lines, holder.socketPath);
    if (start != firstLine || lines.fail()) {
        return std::nullopt;
    }
    holder.isOnThisMachine = machine == machineIdentifier();
    return holder;
}

void DataFileLock::announce(const std::string& socketPath) {
    if (state_ != State::held) {
        return;
    }
    // In place: a lock belongs to the file itself, so another can't be moved over it.
    std::ostringstream lines;
    lines << firstLine << '\n'
          << machineIdentifier() << '\n'
          << hostName() << '\n'
          << socketPath << '\n';
    const std::string note = lines.str();
    const bool isWritten =
        ::ftruncate(descriptor_, 0) == 0 &&
        ::pwrite(descriptor_, note.data(), note.size(), 0) == static_cast<ssize_t>(note.size());
    // Without it others still see the lock; they can't tell whose it is, and say so.
    static_cast<void>(isWritten);
}

} // namespace oakfen
