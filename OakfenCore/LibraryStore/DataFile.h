#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/Platform/BackgroundWriter.h"
#include "OakfenCore/Platform/Clock.h"
#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Values/ContentHash.h"

namespace oakfen {

/// Since the data file was last read or written, another program has put other bytes there.
class DataFileChangedError : public LocalizedError {
public:
    explicit DataFileChangedError(const std::string& path);
};

/// The file that the document lives in, and the only code that knows its path. It remembers what it
/// last read or wrote, and never replaces anything else: what another program wrote stays until
/// somebody has decided. One write at a time; whoever touches the file at once settles the worker
/// first.
class DataFile {
public:
    /// How a write ended.
    struct Outcome {
        /// The text of what went wrong; nothing when all went well.
        std::optional<std::string> error = {};
        /// It went wrong because another program has changed the file.
        bool isChangedElsewhere = false;
        /// The file had gone, though it was there before.
        bool wasMissing = false;
    };

    /// What stood in the file at a moment, not yet taken for known.
    struct Version {
        std::string bytes;
        FileInformation information;
    };

    /// All must outlive it.
    DataFile(std::string path, FileSystem& files, Scheduler& scheduler, const Clock& clock);

    [[nodiscard]] const std::string& path() const { return path_; }

    /// Reads the whole file, which from then on is what may be replaced; nothing where there is no
    /// file. Throws `FileError`.
    [[nodiscard]] std::optional<std::string> read();

    /// Writes at once. Throws `DataFileChangedError` where another program has changed the file,
    /// and `FileError`; then the file is as it was.
    Outcome write(const std::string& bytes);

    /// Makes the bytes and writes them on a worker, then tells the main thread. Where another
    /// program has changed the file, the bytes go beside it instead. Only while not busy.
    void startWriting(std::function<std::string()> makeBytes,
                      std::function<void(const Outcome&)> done);
    /// The same, beside the file only.
    void startWritingBeside(std::function<std::string()> makeBytes,
                            std::function<void(const Outcome&)> done);
    [[nodiscard]] bool isBusy() const { return writer_.isBusy(); }
    /// Withdraws a write that has not begun, and waits for one that has.
    void settle() { writer_.settle(); }

    /// Moves the file aside as a damaged one, whatever it holds. Where that fails, the next write
    /// does it first, and fails if it still can't. Returns its new name; nothing where it has none.
    /// Never throws.
    std::optional<std::string> setAside();

    // While another program's version stands in the file.

    /// Keeps this version beside the file, under one name until it is saved or given up. Returns
    /// the text for the person: of the change, and of why this version couldn't be kept.
    [[nodiscard]] std::string writeBeside(const std::string& bytes,
                                          const DataFileChangedError& changed);
    /// What the other program wrote; nothing when it has taken the file away. Throws `FileError`.
    [[nodiscard]] std::optional<Version> otherVersion() const;
    /// From now on that version may be replaced: it is the one that is open. The first write that
    /// does keeps a copy beside the file.
    void acceptAsOpened(const std::optional<Version>& version);
    /// Keeps the other version beside the file, after which it may be replaced. Returns the name of
    /// the copy; nothing when there was no file any more. Throws `FileError`; then nothing has
    /// changed.
    std::optional<std::string> keepOtherVersion();
    /// This version is in the data file now; the copy beside it goes.
    void removeVersionBeside() noexcept;
    /// This version was given up; the copy beside the file stays, and no start tells of it.
    void releaseVersionBeside() noexcept;

    /// The names of the versions that an earlier program had to keep beside the file, each told
    /// once: from then on they are called like other versions. Removes what writes of copies left
    /// behind that were cut off.
    [[nodiscard]] std::vector<std::string> takeVersionsBeside();

private:
    /// What was read or written: the file itself, and what it holds.
    struct Stamp {
        FileInformation information;
        ContentHash hash;
    };
    class Guard;

    // On whatever thread writes.
    void requireKnown(const std::string& place);
    Outcome put(const std::string& bytes);
    void putBeside(const std::string& bytes);
    std::string keepBeside(const std::string& bytes, const DataFileChangedError& changed);
    std::optional<Version> copyOtherVersion(const std::string& path);
    std::optional<std::string> moveAside();

    void accept(const std::optional<Version>& version);
    [[nodiscard]] bool isThereButUnreadable() const;
    void start(std::function<Outcome()> write, std::function<void(const Outcome&)> done);
    [[nodiscard]] std::string freePathBeside(const std::string& kind) const;

    const std::string path_;
    FileSystem& files_;
    const Clock& clock_;
    /// The last file that was read or written, and what failed writes may have put in its place;
    /// empty where no file was.
    std::vector<Stamp> known_;
    bool wasThere_ = false;
    /// The hash of another program's version that was opened and has no copy yet.
    std::optional<ContentHash> openedOther_;
    bool mustSetAsideFirst_ = false;
    std::optional<std::string> pathBeside_;
    /// Last, so that a write under way ends before what it uses.
    BackgroundWriter writer_;
};

/// The path beside a file under which it is kept at that moment, with the kind of copy in its name:
/// "Library.damaged-1700000000.tarnwick" for "Library.tarnwick".
[[nodiscard]] std::string pathBeside(const std::string& filePath, const std::string& kind,
                                     Date now);

} // namespace oakfen
