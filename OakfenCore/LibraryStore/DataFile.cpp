#include "OakfenCore/LibraryStore/DataFile.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>
#include <utility>

#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

using fileCalls::folderOf;
using fileCalls::nameOf;

namespace {

constexpr std::string_view extension = ".tarnwick";
const std::string damagedKind = "damaged";
const std::string otherKind = "other";
const std::string unsavedKind = "unsaved";

bool isSameFile(const FileInformation& one, const FileInformation& other) {
    return one.device == other.device && one.inode == other.inode && one.size == other.size &&
           one.modified == other.modified;
}

/// The path without its last extension. A dot that begins the name begins no extension.
std::string withoutExtension(const std::string& path) {
    const std::size_t nameStart = path.size() - nameOf(path).size();
    const std::size_t dot = path.rfind('.');
    return dot != std::string::npos && dot > nameStart ? path.substr(0, dot) : path;
}

/// Cut so that a name of a file has room for what is added to it.
std::string shortened(const std::string& stem, std::size_t added) {
    constexpr std::size_t longestName = 255;
    std::size_t length = nameOf(stem).size();
    const std::string name = nameOf(stem);
    const auto isContinuation = [&](std::size_t place) {
        return place < name.size() && (static_cast<unsigned char>(name[place]) & 0xC0U) == 0x80U;
    };
    while (length + added > longestName || isContinuation(length)) {
        --length;
    }
    return stem.substr(0, stem.size() - name.size()) + name.substr(0, length);
}

/// How the names of copies of that kind begin: all but the moment.
std::string nameStart(const std::string& path, const std::string& kind) {
    const std::string name = nameOf(oakfen::pathBeside(path, kind, Date()));
    return name.substr(0, name.rfind('-') + 1);
}

/// A write of a copy beside the data file that was cut off; later copies have other names, so none
/// of their writes removes it.
bool isStrayOfACopy(const std::string& name, const std::string& path) {
    const bool isOfACopy = name.starts_with("." + nameStart(path, otherKind)) ||
                           name.starts_with("." + nameStart(path, unsavedKind));
    return isOfACopy && name.ends_with(std::string(extension) + ".saving");
}

/// Lets a write only make a file, never replace one.
class NewFileGuard final : public ReplacementGuard {
public:
    void requireReplaceable(const std::string& path) override {
        throw fileCalls::failure(path, fileCalls::couldNotBeSaved, EEXIST);
    }
    void willPlace(const FileInformation& /*newFile*/) override {}
};

} // namespace

DataFileChangedError::DataFileChangedError(const std::string& path)
    : LocalizedError(quoted(nameOf(path)) + " was changed by another program.") {}

/// Lets a write replace what is known only, and knows the new file before it is in place, so that a
/// write that fails halfway isn't taken for another program's.
class DataFile::Guard final : public ReplacementGuard {
public:
    Guard(DataFile& file, const ContentHash& hash) : file_(file), hash_(hash) {}

    void requireReplaceable(const std::string& path) override { file_.requireKnown(path); }
    void willPlace(const FileInformation& newFile) override {
        file_.known_.push_back({newFile, hash_});
    }

private:
    DataFile& file_;
    ContentHash hash_;
};

DataFile::DataFile(std::string path, FileSystem& files, Scheduler& scheduler, const Clock& clock)
    : path_(std::move(path)), files_(files), clock_(clock), writer_(scheduler) {}

std::optional<std::string> DataFile::read() {
    settle();
    mustSetAsideFirst_ = false;
    std::optional<Version> version;
    accept(version);
    version = otherVersion();
    accept(version);
    return version ? std::optional(std::move(version->bytes)) : std::nullopt;
}

std::optional<DataFile::Version> DataFile::otherVersion() const {
    // A file of which nothing can be told is not taken for a missing one: the new document that a
    // missing file begins would later replace it.
    if (!fileInformation(files_, path_)) {
        return std::nullopt;
    }
    FileContents contents = readFileContents(files_, path_);
    return Version{std::move(contents.bytes), contents.information};
}

void DataFile::accept(const std::optional<Version>& version) {
    known_.clear();
    openedOther_.reset();
    wasThere_ = version.has_value();
    if (version) {
        known_.push_back({version->information, contentHash(version->bytes)});
    }
}

void DataFile::requireKnown(const std::string& place) {
    std::optional<FileInformation> information;
    try {
        information = fileInformation(files_, place);
    } catch (const FileError& error) {
        throw fileCalls::failure(path_, fileCalls::couldNotBeSaved, error.code());
    }
    if (!information || std::ranges::any_of(known_, [&](const Stamp& stamp) {
            return isSameFile(stamp.information, *information);
        })) {
        return;
    }
    std::optional<FileContents> found;
    try {
        found = readFileContents(files_, place);
    } catch (const FileError&) {
        // Another file that can't even be read: a folder, or somebody else's.
        throw DataFileChangedError(path_);
    }
    // Another file, or another time. A tool that copies, moves or syncs does that too, so what
    // counts is what the file holds.
    const ContentHash hash = contentHash(found->bytes);
    const auto same =
        std::ranges::find_if(known_, [&](const Stamp& stamp) { return stamp.hash == hash; });
    if (same == known_.end()) {
        throw DataFileChangedError(path_);
    }
    same->information = found->information;
}

DataFile::Outcome DataFile::put(const std::string& bytes) {
    if (mustSetAsideFirst_) {
        moveAside();
    }
    const ContentHash hash = contentHash(bytes);
    if (openedOther_ && openedOther_ != hash) {
        // Undo has brought this version back, or edits go on: what the other program wrote stays.
        requireKnown(path_);
        static_cast<void>(copyOtherVersion(freePathBeside(otherKind)));
        openedOther_.reset();
    }
    Guard guard(*this, hash);
    const bool wasMissing = wasThere_ && !fileExists(files_, path_);
    writeOwnerOnly(files_, bytes, path_, &guard);
    known_ = {known_.back()};
    wasThere_ = true;
    return {.wasMissing = wasMissing};
}

DataFile::Outcome DataFile::write(const std::string& bytes) {
    settle();
    return put(bytes);
}

void DataFile::startWriting(std::function<std::string()> makeBytes,
                            std::function<void(const Outcome&)> done) {
    start(
        [this, makeBytes = std::move(makeBytes)] {
            const std::string bytes = makeBytes();
            try {
                return put(bytes);
            } catch (const DataFileChangedError& changed) {
                return Outcome{.error = keepBeside(bytes, changed), .isChangedElsewhere = true};
            }
        },
        std::move(done));
}

void DataFile::startWritingBeside(std::function<std::string()> makeBytes,
                                  std::function<void(const Outcome&)> done) {
    start(
        [this, makeBytes = std::move(makeBytes)] {
            putBeside(makeBytes());
            return Outcome{};
        },
        std::move(done));
}

void DataFile::start(std::function<Outcome()> write, std::function<void(const Outcome&)> done) {
    const auto outcome = std::make_shared<Outcome>();
    writer_.start([outcome, write = std::move(write)] { *outcome = write(); },
                  [outcome, done = std::move(done)](const std::optional<std::string>& error) {
                      if (error) {
                          outcome->error = error;
                      }
                      done(*outcome);
                  });
}

std::optional<std::string> DataFile::setAside() {
    settle();
    try {
        return moveAside();
    } catch (const FileError&) {
        mustSetAsideFirst_ = true;
        return std::nullopt;
    }
}

std::optional<std::string> DataFile::moveAside() {
    const std::string aside = oakfen::pathBeside(path_, damagedKind, clock_.now());
    std::optional<std::string> newName;
    try {
        moveFile(files_, path_, aside);
        newName = fileCalls::nameOf(aside);
    } catch (const FileError& error) {
        // A file that is not there needs no moving.
        if (error.code() != ENOENT) {
            throw;
        }
    }
    mustSetAsideFirst_ = false;
    wasThere_ = false;
    known_.clear();
    return newName;
}

std::string DataFile::writeBeside(const std::string& bytes, const DataFileChangedError& changed) {
    settle();
    return keepBeside(bytes, changed);
}

std::string DataFile::keepBeside(const std::string& bytes, const DataFileChangedError& changed) {
    // Should the program end before anybody has decided, this version is not lost.
    std::string text = changed.localizedDescription();
    try {
        putBeside(bytes);
    } catch (const FileError& error) {
        text += " This version couldn’t be kept beside it: " + error.localizedDescription() + ".";
    }
    return text;
}

void DataFile::putBeside(const std::string& bytes) {
    if (pathBeside_) {
        writeOwnerOnly(files_, bytes, *pathBeside_);
        return;
    }
    constexpr int mostNames = 100;
    for (int tries = 1;; ++tries) {
        const std::string path = freePathBeside(unsavedKind);
        NewFileGuard guard;
        try {
            writeOwnerOnly(files_, bytes, path, &guard);
            pathBeside_ = path;
            return;
        } catch (const FileError& error) {
            // Another program was quicker in taking that name.
            if (error.code() != EEXIST || tries == mostNames) {
                throw;
            }
        }
    }
}

std::optional<std::string> DataFile::keepOtherVersion() {
    settle();
    const std::string copy = freePathBeside(otherKind);
    if (isThereButUnreadable()) {
        moveFile(files_, path_, copy);
        accept(std::nullopt);
        return nameOf(copy);
    }
    const std::optional<Version> other = copyOtherVersion(copy);
    accept(other);
    return other ? std::optional(nameOf(copy)) : std::nullopt;
}

/// What can't be read can still be moved.
bool DataFile::isThereButUnreadable() const {
    try {
        static_cast<void>(otherVersion());
        return false;
    } catch (const FileError&) {
        return true;
    }
}

std::optional<DataFile::Version> DataFile::copyOtherVersion(const std::string& path) {
    std::optional<Version> other = otherVersion();
    if (other) {
        // A copy, not a move: there is no moment at which the data file isn't there.
        NewFileGuard guard;
        writeOwnerOnly(files_, other->bytes, path, &guard);
    }
    return other;
}

void DataFile::acceptAsOpened(const std::optional<Version>& version) {
    accept(version);
    if (version) {
        openedOther_ = known_.front().hash;
    }
}

void DataFile::removeVersionBeside() noexcept {
    if (pathBeside_) {
        // What can't be removed is a copy too many, and no loss.
        (void)files_.unlink(*pathBeside_);
        pathBeside_.reset();
    }
}

void DataFile::releaseVersionBeside() noexcept {
    if (!pathBeside_) {
        return;
    }
    try {
        moveFile(files_, *pathBeside_, freePathBeside(otherKind));
    } catch (...) {
        // Then the next start tells of it once more.
    }
    pathBeside_.reset();
}

std::vector<std::string> DataFile::takeVersionsBeside() {
    const std::string folder = folderOf(path_);
    const std::string start = nameStart(path_, unsavedKind);
    std::vector<std::string> names;
    (void)files_.list(folder, names);
    std::ranges::sort(names);
    std::vector<std::string> told;
    for (const std::string& name : names) {
        const std::string from = folder + "/" + name;
        if (isStrayOfACopy(name, path_)) {
            (void)files_.unlink(from);
        }
        if (!name.starts_with(start) || !name.ends_with(extension) || from == pathBeside_) {
            continue;
        }
        try {
            const std::string to = freePathBeside(otherKind);
            moveFile(files_, from, to);
            told.push_back(nameOf(to));
        } catch (const FileError&) {
            told.push_back(name);
        }
    }
    return told;
}

std::string DataFile::freePathBeside(const std::string& kind) const {
    Date moment = clock_.now();
    std::string path = oakfen::pathBeside(path_, kind, moment);
    while (fileExists(files_, path)) {
        moment = moment.adding(1);
        path = oakfen::pathBeside(path_, kind, moment);
    }
    return path;
}

std::string pathBeside(const std::string& filePath, const std::string& kind, Date now) {
    const auto seconds = static_cast<long long>(now.secondsSince1970());
    const std::string ending = "." + kind + "-" + std::to_string(seconds) + std::string(extension);
    return shortened(withoutExtension(filePath), ending.size()) + ending;
}

} // namespace oakfen
