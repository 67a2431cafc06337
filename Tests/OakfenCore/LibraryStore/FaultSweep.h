#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "Tests/OakfenCore/LibraryStore/SaveOracle.h"
#include "Tests/OakfenCore/LibraryStore/StoreBench.h"
#include "Tests/OakfenCore/Support/Files/FileSystemFilter.h"

namespace oakfen {

/// Takes less of a write than it was given, from the named write on.
class ShortWritingFiles final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;

    /// The write of that number, counted from 1, takes a part only; and all later ones, if asked.
    void shortenWrite(int number, bool andAllLater);
    void stopShortening() { writesUntilShort_ = 0; }
    [[nodiscard]] bool hasShortened() const { return hasShortened_; }

    Result write(int descriptor, const char* from, std::size_t count) override;

private:
    int writesUntilShort_ = 0;
    bool andAllLater_ = false;
    bool hasShortened_ = false;
};

/// A file system put between the store and the disk, to take a step of saving away.
using FileSystemVariant = std::function<std::unique_ptr<FileSystem>(FileSystem&)>;

/// One computer with a disk that can be made to fail, for one run.
struct FaultyMachine {
    static inline const std::string path = "/home/user/Tarnwick/Library.tarnwick";
    static inline const std::string pathAside =
        "/home/user/Tarnwick/Library.damaged-1700000000.tarnwick";

    explicit FaultyMachine(const FileSystemVariant& variant)
        : files(variant(shortWriting)), bench(*files) {}

    [[nodiscard]] bool hasFailed() const { return disk.hasFailed() || shortWriting.hasShortened(); }
    void stopFailing() {
        disk.stopFailing();
        shortWriting.stopShortening();
    }

    InMemoryFileSystem disk;
    ShortWritingFiles shortWriting{disk};
    std::unique_ptr<FileSystem> files;
    StoreBench bench;
    /// The `errno` of the failures; 0 for another kind.
    int injectedError = 0;
};

/// What a person does, and what must be true of the files after it. Calls `startFailing` once, when
/// everything is prepared.
using SaveStory =
    std::function<SaveExpectation(FaultyMachine&, const std::function<void()>& startFailing)>;

struct SweepResult {
    int runs = 0;
    int runsWithFailures = 0;
    /// Of each run that went wrong, what was injected and what was found.
    std::vector<std::string> complaints = {};
};

/// Nothing put in between.
[[nodiscard]] std::unique_ptr<FileSystem> unchangedFiles(FileSystem& files);

/// Plays the story again and again: with every kind of failure, at the first call, the second and
/// so on until none fails any more; once and lastingly; without and with a power cut after it.
/// After each, checks the files, then opens and saves on a sound disk and checks again.
[[nodiscard]] SweepResult sweepFaults(const SaveStory& story,
                                      const FileSystemVariant& variant = unchangedFiles);

} // namespace oakfen
