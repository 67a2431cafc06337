#pragma once

#include <optional>
#include <string>

namespace oakfen {

/// Sees to it that one program at a time works on a data file: a lock on a file beside it, which
/// the kernel drops with the program. The place follows from the data file alone, not from the
/// environment of a start, and is the same on every computer that shares the folder.
class DataFileLock {
public:
    /// Who holds the lock, as it wrote into the lock's file.
    struct Holder {
        /// The computer's name, for the person.
        std::string host;
        /// Whether it runs on this computer, under the same kernel.
        bool isOnThisMachine = false;
        /// Where it listens for other starts; empty while it doesn't.
        std::string socketPath;
    };
    enum class State { held, heldByAnother, unavailable };
    /// What becomes of the lock's file when the program ends: it stays beside the person's usual
    /// data file, and goes from folders that are not ours.
    enum class AtTheEnd { keep, remove };

    /// Takes the lock if it is free. A folder that is missing is made (0700) for the usual data
    /// file only.
    DataFileLock(const std::string& dataFilePath, AtTheEnd atTheEnd);
    ~DataFileLock();
    DataFileLock(const DataFileLock&) = delete;
    DataFileLock& operator=(const DataFileLock&) = delete;

    /// `unavailable` where no lock is to be had: in a folder that may not be written, on a file
    /// system without locks.
    [[nodiscard]] State state() const { return state_; }
    /// Nothing while the holder has not written it yet.
    [[nodiscard]] std::optional<Holder> holder() const;
    /// Tells other starts where this program listens.
    void announce(const std::string& socketPath);

private:
    void acquire();

    std::string path_;
    AtTheEnd atTheEnd_;
    int descriptor_ = -1;
    State state_ = State::unavailable;
};

} // namespace oakfen
