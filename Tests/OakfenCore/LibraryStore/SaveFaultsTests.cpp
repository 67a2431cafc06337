#include <cerrno>
#include <fcntl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/OakfenCore/LibraryStore/FaultSweep.h"

namespace oakfen {
namespace {

using testing::IsEmpty;
using testing::Not;

const Library earlierDocument = documentWithAccounts(2);
const Library laterDocument = documentWithAccounts(3);
const std::string damagedBytes = "{\"accounts\":[";
const std::string earlierDamagedBytes = "damaged before";
const std::string otherBytes = encodeLibrary(documentWithAccounts(5));

/// Fewer would mean that the failures did not reach what they were to reach.
constexpr int fewestFailures = 100;

/// The choice of a plain file; gives whether it failed.
bool failsToChoosePlain(LibraryStore& store) {
    try {
        store.useNoPassword();
        return false;
    } catch (const LocalizedError&) {
        return true;
    }
}

SaveExpectation saveAnEdit(FaultyMachine& machine, const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, encodeLibrary(earlierDocument));
    machine.bench.choosePlain();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    store.mutate("Edit", [](Library& library) { library = laterDocument; });
    startFailing();
    store.saveNow();
    return {.earlier = {encodeLibrary(earlierDocument)},
            .later = encodeLibrary(laterDocument),
            .failureWasTold = store.lastError().has_value()};
}

SaveExpectation openADamagedFile(FaultyMachine& machine,
                                 const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, damagedBytes);
    startFailing();
    const LibraryStore store(FaultyMachine::path, machine.bench.services());
    return {.earlier = {damagedBytes},
            .failureWasTold = store.lastError() ||
                              store.accessState().kind == AccessState::Kind::legacyUnavailable,
            .kept = {{damagedBytes}}};
}

SaveExpectation goOnAfterADamagedFile(FaultyMachine& machine,
                                      const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, damagedBytes);
    startFailing();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    const bool couldBeRead = store.accessState().kind == AccessState::Kind::needsPassword;
    const bool failed = !couldBeRead || failsToChoosePlain(store);
    return {.earlier = {damagedBytes, std::nullopt},
            .later = encodeLibrary(store.library()),
            .failureWasTold = failed,
            .kept = {{damagedBytes}}};
}

/// The name for the damaged file is taken, until a second has passed.
SaveExpectation goOnAfterASecondDamagedFile(FaultyMachine& machine,
                                            const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, damagedBytes);
    machine.disk.addFile(FaultyMachine::pathAside, earlierDamagedBytes);
    startFailing();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    bool failed = store.accessState().kind != AccessState::Kind::needsPassword;
    if (!failed && failsToChoosePlain(store)) {
        machine.bench.clock.advance(1);
        failed = failsToChoosePlain(store);
    }
    return {.earlier = {damagedBytes, std::nullopt},
            .later = encodeLibrary(store.library()),
            .failureWasTold = failed,
            .kept = {{damagedBytes}, {earlierDamagedBytes}}};
}

SaveExpectation startOver(FaultyMachine& machine, const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, encodeLibrary(earlierDocument));
    machine.bench.choosePlain();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    startFailing();
    store.startOver();
    const bool failed = failsToChoosePlain(store);
    return {.earlier = {encodeLibrary(earlierDocument), std::nullopt},
            .later = encodeLibrary(store.library()),
            .failureWasTold = failed,
            .kept = {{encodeLibrary(earlierDocument)}}};
}

SaveExpectation startOverRightAfterAnEdit(FaultyMachine& machine,
                                          const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, encodeLibrary(earlierDocument));
    machine.bench.choosePlain();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    store.mutate("Edit", [](Library& library) { library = laterDocument; });
    startFailing();
    store.startOver();
    std::vector<std::string> kept = {encodeLibrary(laterDocument)};
    if (store.lastError()) {
        kept.push_back(encodeLibrary(earlierDocument));
    }
    const bool failed = failsToChoosePlain(store);
    return {.earlier = {encodeLibrary(earlierDocument), encodeLibrary(laterDocument), std::nullopt},
            .later = encodeLibrary(store.library()),
            .failureWasTold = failed,
            .kept = {kept}};
}

SaveExpectation chooseForANewDocument(FaultyMachine& machine,
                                      const std::function<void()>& startFailing) {
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    store.mutate("Edit", [](Library& library) { library = laterDocument; });
    startFailing();
    const bool failed = failsToChoosePlain(store);
    // Where the folder above the new one may not be read, it can't be synced; the file is written
    // all the same, and the new folder lasts as soon as the system cares to write it down.
    const bool isFolderUnsafe = machine.injectedError == EACCES && machine.hasFailed();
    return {.earlier = {std::nullopt},
            .later = encodeLibrary(laterDocument),
            .failureWasTold = failed || isFolderUnsafe};
}

SaveExpectation chooseForANewDocumentInAnOldFolder(FaultyMachine& machine,
                                                   const std::function<void()>& startFailing) {
    machine.disk.addFolder("/home/user/Tarnwick");
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    startFailing();
    const bool failed = failsToChoosePlain(store);
    return {.earlier = {std::nullopt},
            .later = encodeLibrary(store.library()),
            .failureWasTold = failed};
}

/// The choice fails at the first attempt and succeeds at the second.
SaveExpectation chooseAgainForANewDocument(FaultyMachine& machine,
                                           const std::function<void()>& startFailing) {
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    startFailing();
    const bool isFolderUnsafe = !failsToChoosePlain(store);
    machine.stopFailing();
    const bool failed = !isFolderUnsafe && failsToChoosePlain(store);
    return {.earlier = {std::nullopt},
            .later = encodeLibrary(store.library()),
            .failureWasTold = failed || (isFolderUnsafe && machine.injectedError == EACCES &&
                                         machine.hasFailed())};
}

SaveExpectation chooseForAPlainFile(FaultyMachine& machine,
                                    const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, encodeLibrary(earlierDocument));
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    store.mutate("Edit", [](Library& library) { library = laterDocument; });
    startFailing();
    const bool failed = failsToChoosePlain(store);
    return {.earlier = {encodeLibrary(earlierDocument)},
            .later = encodeLibrary(laterDocument),
            .failureWasTold = failed};
}

/// Another program writes the file while it is open; the edit that follows can't be saved.
void collide(FaultyMachine& machine, LibraryStore& store) {
    machine.disk.addFile(FaultyMachine::path, otherBytes);
    store.mutate("Edit", [](Library& library) { library = laterDocument; });
}

SaveExpectation saveAfterAnotherProgram(FaultyMachine& machine,
                                        const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, encodeLibrary(earlierDocument));
    machine.bench.choosePlain();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    collide(machine, store);
    startFailing();
    store.saveNow();
    SaveExpectation expectation{.earlier = {otherBytes},
                                .failureWasTold = store.lastError().has_value(),
                                .kept = {{otherBytes}}};
    const bool isKept =
        store.lastError().value_or("").find("couldn’t be kept") == std::string::npos;
    if (store.isChangedElsewhere() && isKept) {
        // Told as kept beside the file, so it must be there.
        expectation.kept.push_back({encodeLibrary(laterDocument)});
    }
    return expectation;
}

SaveExpectation keepThisVersion(FaultyMachine& machine, const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, encodeLibrary(earlierDocument));
    machine.bench.choosePlain();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    collide(machine, store);
    store.saveNow();
    store.clearError();
    startFailing();
    bool failed = false;
    try {
        (void)store.keepThisVersion();
        failed = store.lastError().has_value();
    } catch (const LocalizedError&) {
        failed = true;
    }
    return {.earlier = {otherBytes},
            .later = encodeLibrary(laterDocument),
            .failureWasTold = failed,
            .kept = {{otherBytes}, {encodeLibrary(laterDocument)}}};
}

SaveExpectation openOtherVersion(FaultyMachine& machine,
                                 const std::function<void()>& startFailing) {
    machine.disk.addFile(FaultyMachine::path, encodeLibrary(earlierDocument));
    machine.bench.choosePlain();
    LibraryStore store(FaultyMachine::path, machine.bench.services());
    collide(machine, store);
    store.saveNow();
    store.clearError();
    startFailing();
    bool failed = false;
    try {
        store.openOtherVersion();
        store.saveNow();
        failed = store.lastError().has_value();
    } catch (const LocalizedError&) {
        failed = true;
    }
    return {.earlier = {otherBytes},
            .later = otherBytes,
            .failureWasTold = failed,
            .kept = {{otherBytes}, {encodeLibrary(laterDocument)}}};
}

void expectNothingIsLost(const SaveStory& story) {
    const SweepResult result = sweepFaults(story);
    EXPECT_THAT(result.complaints, IsEmpty());
    EXPECT_GT(result.runsWithFailures, fewestFailures);
    EXPECT_GT(result.runs, result.runsWithFailures);
}

TEST(SaveFaults, LoseNothingWhileSavingAnEdit) {
    expectNothingIsLost(saveAnEdit);
}

TEST(SaveFaults, LoseNothingWhileOpeningADamagedFile) {
    expectNothingIsLost(openADamagedFile);
}

TEST(SaveFaults, LoseNoDamagedFileThroughTheDocumentThatFollowsIt) {
    expectNothingIsLost(goOnAfterADamagedFile);
}

TEST(SaveFaults, LoseNoneOfTwoDamagedFiles) {
    expectNothingIsLost(goOnAfterASecondDamagedFile);
}

TEST(SaveFaults, LoseNothingWhileStartingOver) {
    expectNothingIsLost(startOver);
}

TEST(SaveFaults, LoseNoEditThatIsSavedByStartingOver) {
    expectNothingIsLost(startOverRightAfterAnEdit);
}

TEST(SaveFaults, LoseNothingWhileChoosingAPlainFileForANewDocument) {
    expectNothingIsLost(chooseForANewDocument);
}

TEST(SaveFaults, LoseNothingWhileChoosingAPlainFileForANewDocumentInAnOldFolder) {
    expectNothingIsLost(chooseForANewDocumentInAnOldFolder);
}

TEST(SaveFaults, LoseNothingThatASecondAttemptHasWrittenIntoANewFolder) {
    expectNothingIsLost(chooseAgainForANewDocument);
}

TEST(SaveFaults, LoseNothingWhileChoosingAPlainFileForOneThatIsThere) {
    expectNothingIsLost(chooseForAPlainFile);
}

TEST(SaveFaults, LoseNeitherVersionWhenAnotherProgramHasWrittenTheFile) {
    expectNothingIsLost(saveAfterAnotherProgram);
}

TEST(SaveFaults, LoseNeitherVersionWhileKeepingThisOne) {
    expectNothingIsLost(keepThisVersion);
}

TEST(SaveFaults, LoseNeitherVersionWhileOpeningTheOther) {
    expectNothingIsLost(openOtherVersion);
}

/// A file system that can't exchange two names.
class WithPlainRenameOnly final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result exchange(const std::string&, const std::string&) override { return {-1, EINVAL}; }
};

TEST(SaveFaults, LoseNothingWhereTwoFilesCannotBeExchanged) {
    const auto withoutExchange = [](FileSystem& files) -> std::unique_ptr<FileSystem> {
        return std::make_unique<WithPlainRenameOnly>(files);
    };
    const SaveStory stories[] = {saveAnEdit, saveAfterAnotherProgram, keepThisVersion};
    for (const SaveStory& story : stories) {
        EXPECT_THAT(sweepFaults(story, withoutExchange).complaints, IsEmpty());
    }
}

/// A file system on which moving a file may do nothing without a word.
class IgnoringFailedRenames final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result rename(const std::string& from, const std::string& to) override {
        (void)FileSystemFilter::rename(from, to);
        return {};
    }
    Result renameWithoutReplacing(const std::string& from, const std::string& to) override {
        (void)FileSystemFilter::renameWithoutReplacing(from, to);
        return {};
    }
    Result exchange(const std::string& one, const std::string& other) override {
        (void)FileSystemFilter::exchange(one, other);
        return {};
    }
};

TEST(SaveFaults, LoseNothingWhereARenameFailsWithoutSayingSo) {
    const auto ignoring = [](FileSystem& files) -> std::unique_ptr<FileSystem> {
        return std::make_unique<IgnoringFailedRenames>(files);
    };
    EXPECT_THAT(sweepFaults(saveAnEdit, ignoring).complaints, IsEmpty());
    EXPECT_THAT(sweepFaults(chooseForANewDocument, ignoring).complaints, IsEmpty());
}

// The same checks must find fault with a way of saving that lacks one of its steps.

class WithoutSync final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result sync(int) override { return {}; }
};

class WithoutFolderSync final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result open(const std::string& path, int flags, unsigned permissions) override {
        const Result opened = FileSystemFilter::open(path, flags, permissions);
        lastWasFolder_ = (flags & O_DIRECTORY) != 0;
        return opened;
    }
    Result sync(int descriptor) override {
        return lastWasFolder_ ? Result{} : FileSystemFilter::sync(descriptor);
    }

private:
    bool lastWasFolder_ = false;
};

class IgnoringFailedSyncs final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result sync(int descriptor) override {
        (void)FileSystemFilter::sync(descriptor);
        return {};
    }
};

class IgnoringShortWrites final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result write(int descriptor, const char* from, std::size_t count) override {
        const Result written = FileSystemFilter::write(descriptor, from, count);
        return written.failed() ? written : Result{static_cast<std::int64_t>(count), 0};
    }
};

/// Writes over the file itself.
class WritingInPlace final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result open(const std::string& path, int flags, unsigned permissions) override {
        return path.ends_with(".saving")
                   ? FileSystemFilter::open(FaultyMachine::path, O_WRONLY | O_CREAT | O_TRUNC,
                                            permissions)
                   : FileSystemFilter::open(path, flags, permissions);
    }
    Result rename(const std::string&, const std::string&) override { return {}; }
    Result exchange(const std::string&, const std::string&) override { return {}; }
};

/// Gives the file the permissions that a careless program gives.
class ReadableByOthers final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result open(const std::string& path, int flags, unsigned) override {
        return FileSystemFilter::open(path, flags, 0644);
    }
};

class ReplacingWhereItMustNot final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result renameWithoutReplacing(const std::string& from, const std::string& to) override {
        return rename(from, to);
    }
};

/// Never sees that a file is another one.
class BlindToChanges final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result information(const std::string& path, FileInformation& into) override {
        return alike(FileSystemFilter::information(path, into), into);
    }
    Result descriptorInformation(int descriptor, FileInformation& into) override {
        return alike(FileSystemFilter::descriptorInformation(descriptor, into), into);
    }

private:
    static Result alike(Result result, FileInformation& into) {
        into.inode = 0;
        into.modified = 0;
        into.size = 0;
        return result;
    }
};

template <typename Variant>
std::unique_ptr<FileSystem> variant(FileSystem& files) {
    return std::make_unique<Variant>(files);
}

TEST(FaultSweep, FindsAMissingSync) {
    EXPECT_THAT(sweepFaults(saveAnEdit, variant<WithoutSync>).complaints, Not(IsEmpty()));
}

TEST(FaultSweep, FindsAMissingSyncOfTheFolder) {
    EXPECT_THAT(sweepFaults(saveAnEdit, variant<WithoutFolderSync>).complaints, Not(IsEmpty()));
}

TEST(FaultSweep, FindsAFailedSyncThatIsIgnored) {
    EXPECT_THAT(sweepFaults(saveAnEdit, variant<IgnoringFailedSyncs>).complaints, Not(IsEmpty()));
}

TEST(FaultSweep, FindsShortWritesThatAreIgnored) {
    EXPECT_THAT(sweepFaults(saveAnEdit, variant<IgnoringShortWrites>).complaints, Not(IsEmpty()));
}

TEST(FaultSweep, FindsWritingInPlace) {
    EXPECT_THAT(sweepFaults(saveAnEdit, variant<WritingInPlace>).complaints, Not(IsEmpty()));
}

TEST(FaultSweep, FindsAFileThatOthersMayRead) {
    EXPECT_THAT(sweepFaults(chooseForANewDocument, variant<ReadableByOthers>).complaints,
                Not(IsEmpty()));
}

TEST(FaultSweep, FindsADamagedFileThatReplacesAnother) {
    EXPECT_THAT(
        sweepFaults(goOnAfterASecondDamagedFile, variant<ReplacingWhereItMustNot>).complaints,
        Not(IsEmpty()));
}

TEST(FaultSweep, FindsASaveThatDoesNotLookAtTheFileItReplaces) {
    EXPECT_THAT(sweepFaults(saveAfterAnotherProgram, variant<BlindToChanges>).complaints,
                Not(IsEmpty()));
}

} // namespace
} // namespace oakfen
