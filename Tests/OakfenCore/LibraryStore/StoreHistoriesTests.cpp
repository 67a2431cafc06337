#include <cerrno>
#include <cstdlib>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "Tests/OakfenCore/LibraryStore/FaultSweep.h"

namespace oakfen {
namespace {

/// One long random life of a data file: edits, saves, failures, power cuts, restarts. After each
/// step, nothing that was saved and not replaced by a later save may have gone.
class StoreHistory {
public:
    explicit StoreHistory(std::uint64_t seed) : random_(seed) {
        machine_.disk.addFolder(folder());
        if (chance(2)) {
            putFile(encodeLibrary(documentWithAccounts(3)));
        }
        if (chance(2)) {
            machine_.bench.choosePlain();
        }
        open();
    }

    void run(int steps) {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            takeStep();
            check();
            if (testing::Test::HasFailure()) {
                ADD_FAILURE() << "after: " << log_;
            }
        }
    }

    [[nodiscard]] int cleanSaves() const { return cleanSaves_; }
    [[nodiscard]] int toldFailures() const { return toldFailures_; }

private:
    static const std::string& path() { return FaultyMachine::path; }
    static std::string folder() { return path().substr(0, path().rfind('/')); }

    int number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
    bool chance(int outOf) { return number(outOf) == 0; }

    LibraryStore& store() { return *store_; }

    void open() {
        const Contents before = machine_.disk.contents(path());
        store_.reset();
        undo_ = std::make_shared<History>();
        undoable_.clear();
        redoable_.clear();
        store_ = std::make_unique<LibraryStore>(path(), machine_.bench.services());
        store_->setUndoManager(undo_);
        takeStock(before);
    }

    std::string encoded() { return encodeLibrary(store().library()); }

    void takeStep() {
        switch (number(18)) {
        case 0:
        case 1:
        case 2:
            note("edit");
            return edit();
        case 3:
            note("undo");
            return undo();
        case 4:
            note("redo");
            return redo();
        case 5:
        case 6:
            note("wait");
            return passTime(1 + number(3));
        case 7:
        case 8:
        case 9:
            note("save");
            return save();
        case 10:
            note("fail");
            return startFailing();
        case 11:
            note("stop failing");
            return machine_.stopFailing();
        case 12:
            note("retry");
            return retry();
        case 13:
            note("start over");
            return startOver();
        case 14:
            note("choose");
            return choose();
        case 15:
            note("reopen");
            return open();
        case 16:
            note("damage");
            return damage();
        default:
            note("power cut");
            return losePower();
        }
    }

    /// Another program writes the file, on a sound disk.
    void putFile(const std::string& bytes) {
        machine_.stopFailing();
        writeOwnerOnly(machine_.disk, bytes, path());
        allIsWrittenDown();
    }

    void note(const std::string& step) { log_ += (log_.empty() ? "" : ", ") + step; }

    void edit() {
        const Library before = store().library();
        const int count = ++edits_;
        store().mutate("Edit", [count](Library& library) {
            Account account;
            account.id.bytes[0] = static_cast<std::uint8_t>(count);
            account.name = std::string(static_cast<std::size_t>(count % 50), 'x');
            library.accounts.push_back(account);
        });
        undoable_.push_back(before);
        redoable_.clear();
        mayBeWritten(encoded());
    }

    void undo() {
        EXPECT_EQ(undo_->canUndo(), !undoable_.empty());
        swap(undoable_, redoable_, [this] { undo_->undo(); });
    }

    void redo() {
        EXPECT_EQ(undo_->canRedo(), !redoable_.empty());
        swap(redoable_, undoable_, [this] { undo_->redo(); });
    }

    void swap(std::vector<Library>& from, std::vector<Library>& to,
              const std::function<void()>& action) {
        if (from.empty()) {
            return;
        }
        to.push_back(store().library());
        action();
        EXPECT_EQ(store().library(), from.back());
        EXPECT_EQ(store().index().library(), from.back());
        from.pop_back();
        mayBeWritten(encoded());
    }

    void passTime(double seconds) {
        machine_.bench.clock.advance(seconds);
        machine_.bench.scheduler.advance(seconds);
    }

    void save() {
        store().clearError();
        store().saveNow();
        if (store().lastError()) {
            ++toldFailures_;
            EXPECT_TRUE(store().accessState().isOpen());
        } else if (store().accessState().isOpen()) {
            saved();
        }
    }

    void choose() {
        const bool wasAsked = store().accessState().kind == AccessState::Kind::needsPassword;
        try {
            store().useNoPassword();
            if (wasAsked) {
                EXPECT_TRUE(store().accessState().isOpen());
                saved();
            }
        } catch (const LocalizedError&) {
            ++toldFailures_;
            EXPECT_EQ(store().accessState().kind, AccessState::Kind::needsPassword);
        }
    }

    /// The person believes that the document is on the disk, so it must be.
    void saved() {
        ++cleanSaves_;
        ASSERT_TRUE(machine_.disk.contents(path()).has_value());
        EXPECT_EQ(decodeLibrary(*machine_.disk.contents(path())), store().library());
        EXPECT_EQ(machine_.disk.permissions(path()), 0600U);
        EXPECT_FALSE(store().hasUnsavedChanges());
        current_ = machine_.disk.contents(path());
        saved_ = current_;
        mayBeWritten_.clear();
        mayBeWritten(encoded());
        allIsWrittenDown();
    }

    void startFailing() {
        const int errors[] = {EIO, ENOSPC, EDQUOT, EACCES, EROFS, EINTR};
        const int error = errors[number(6)];
        using Repeat = InMemoryFileSystem::Repeat;
        const Repeat lasting = error == EINTR ? Repeat::everyOtherFromThenOn : Repeat::fromThenOn;
        machine_.disk.failCall(1 + number(25), error, chance(2) ? Repeat::once : lasting);
    }

    void retry() {
        const Contents before = machine_.disk.contents(path());
        const Library document = store().library();
        store().retryLoading();
        if (undo_->canUndo() || undo_->canRedo()) {
            EXPECT_EQ(store().library(), document);
        } else {
            undoable_.clear();
            redoable_.clear();
        }
        takeStock(before);
    }

    void startOver() {
        const std::string edited = encoded();
        store().startOver();
        // The last edits are saved first, and set aside with the rest.
        if (filesSetAside().contains(edited)) {
            current_ = edited;
        }
        EXPECT_FALSE(undo_->canUndo());
        EXPECT_TRUE(store().library().accounts.empty());
        undoable_.clear();
        redoable_.clear();
        if (const Contents stayed = machine_.disk.contents(path())) {
            aside_.insert(*stayed);
        }
        mayBeWritten(encoded());
    }

    void damage() {
        putFile("damaged " + std::to_string(++edits_));
        open();
    }

    void losePower() {
        machine_.disk.crash({.keepsNames = chance(2), .keptBytes = chance(2) ? 0U : 20U});
        // What a save that told of a failure had written may be gone again.
        const Contents now = machine_.disk.contents(path());
        const std::set<std::string> aside = filesSetAside();
        for (const std::string& bytes : aside_) {
            EXPECT_TRUE(!lasting_.contains(bytes) || aside.contains(bytes) || now == bytes)
                << "lost in a power cut: " << bytes;
        }
        EXPECT_TRUE(!now || known_.contains(*now)) << "torn: " << *now;
        if (saved_ && lasting_.contains(*saved_) && !isLaterSave(now)) {
            EXPECT_TRUE(now == saved_ || aside.contains(*saved_) || aside.contains(*current_))
                << "lost in a power cut: " << *saved_;
        }
        allIsWrittenDown();
        open();
    }

    /// After a sync of the folder, or a power cut: what is there stays there.
    void allIsWrittenDown() {
        lasting_ = filesSetAside();
        if (const Contents there = machine_.disk.contents(path())) {
            lasting_.insert(*there);
        }
    }

    /// What is in the data file as it is opened, and what was set aside, is what the next steps
    /// must keep; a file that was not loaded must not be written over either.
    void takeStock(const Contents& before) {
        current_ = machine_.disk.contents(path());
        saved_ = current_;
        aside_ = filesSetAside();
        const bool isLoaded = !store().isNewLibrary() &&
                              store().accessState().kind != AccessState::Kind::legacyUnavailable;
        if (before && !isLoaded) {
            aside_.insert(*before);
        }
        if (before) {
            known_.insert(*before);
        }
        mayBeWritten_.clear();
        mayBeWritten(encoded());
    }

    void mayBeWritten(const std::string& bytes) {
        mayBeWritten_.insert(bytes);
        known_.insert(bytes);
    }

    [[nodiscard]] bool isLaterSave(const Contents& contents) const {
        return contents && mayBeWritten_.contains(*contents);
    }

    /// Gives what they hold.
    std::set<std::string> filesSetAside() {
        std::set<std::string> result;
        for (const std::string& name : machine_.disk.names(folder())) {
            if (isSetAside(name)) {
                result.insert(*machine_.disk.contents(folder() + "/" + name));
            } else {
                EXPECT_TRUE(name == "Library.tarnwick" || name == ".Library.tarnwick.saving")
                    << name;
            }
        }
        return result;
    }

    void check() {
        EXPECT_EQ(machine_.disk.openDescriptors(), 0U);
        EXPECT_EQ(store().index().library(), store().library());
        const Contents now = machine_.disk.contents(path());
        const std::set<std::string> aside = filesSetAside();
        for (const std::string& bytes : aside_) {
            EXPECT_TRUE(aside.contains(bytes) || now == bytes) << "no longer set aside: " << bytes;
        }
        EXPECT_TRUE(!now || now == current_ || isLaterSave(now) || aside_.contains(*now)) << *now;
        if (current_ && !isLaterSave(now)) {
            EXPECT_TRUE(now == current_ || aside.contains(*current_)) << "lost: " << *current_;
        }
        aside_.insert(aside.begin(), aside.end());
        if (isLaterSave(now)) {
            current_ = now;
        }
    }

    std::mt19937_64 random_;
    FaultyMachine machine_{unchangedFiles};
    std::shared_ptr<History> undo_;
    std::unique_ptr<LibraryStore> store_;
    std::string log_;
    int edits_ = 0;
    int cleanSaves_ = 0;
    int toldFailures_ = 0;

    std::vector<Library> undoable_;
    std::vector<Library> redoable_;
    /// What the last save that went well, or the last start, left in the data file.
    Contents saved_;
    /// That, or what a save since then put in its place though it told of a failure.
    Contents current_;
    /// The documents that a save since then may have written.
    std::set<std::string> mayBeWritten_;
    /// What must stay in a file set aside, or come back from there to its own place.
    std::set<std::string> aside_;
    /// What a power cut can't take away.
    std::set<std::string> lasting_;
    /// All that was ever a whole file.
    std::set<std::string> known_;
};

TEST(StoreHistories, LoseNothingThatWasSavedAndUndoAndRedoExactly) {
    const char* const isLong = std::getenv("OAKFEN_LONG_TESTS");
    const int histories = isLong != nullptr && std::string(isLong) == "1" ? 20'000 : 400;
    int cleanSaves = 0;
    int toldFailures = 0;
    for (int seed = 0; seed < histories && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        StoreHistory history(static_cast<std::uint64_t>(seed));
        history.run(60);
        cleanSaves += history.cleanSaves();
        toldFailures += history.toldFailures();
    }
    EXPECT_GT(cleanSaves, histories);
    EXPECT_GT(toldFailures, histories / 4);
}

} // namespace
} // namespace oakfen
