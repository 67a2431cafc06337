// A document in a store with undo and a disk in memory, edited as the bytes say. Beside the store
// stands the plainest model of undo: two stacks of documents.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Fuzz/LedgerEdits.h"
#include "Fuzz/LibraryRules.h"
#include "Fuzz/Targets.h"
#include "OakfenCore/LibraryStore/LibraryStore.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Platform/InMemoryLegacyKeyStore.h"
#include "OakfenCore/Platform/InMemoryPasswordStore.h"
#include "OakfenCore/Platform/InMemoryUserDefaults.h"
#include "OakfenCore/Testing/FixedClock.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "OakfenCore/Testing/ManualScheduler.h"

namespace oakfen::fuzz {

namespace {

constexpr const char* path = "/home/ann/Library.tarnwick";

class LedgerSession {
public:
    LedgerSession() {
        files_.addFolder("/home/ann");
        files_.addFile(path, encodeLibrary(Library{.currencyCode = "CAD"}));
        defaults_.set(settings::dataFileUnencrypted, true);
        store_ = std::make_unique<LibraryStore>(
            path, LibraryStoreServices{files_, scheduler_, clock_, defaults_, passwords_, keys_});
        store_->setUndoManager(undo_);
        require(store_->accessState().isOpen(), "a plain document opens");
    }

    void step(ByteReader& bytes) {
        switch (bytes.below(16)) {
        case 0:
            takeBack(undoable_, redoable_, [this] { undo_->undo(); });
            break;
        case 1:
            takeBack(redoable_, undoable_, [this] { undo_->redo(); });
            break;
        case 2:
            save();
            break;
        default:
            edit(bytes);
        }
    }

    void finish() {
        requireReadableCopy(store_->library());
        askEverything(store_->library());
        while (!undoable_.empty()) {
            takeBack(undoable_, redoable_, [this] { undo_->undo(); });
        }
        require(!undo_->canUndo(), "all edits can be taken back, and nothing else");
        while (!redoable_.empty()) {
            takeBack(redoable_, undoable_, [this] { undo_->redo(); });
        }
        require(!undo_->canRedo(), "all that was taken back can be done again");
        save();
    }

private:
    void edit(ByteReader& bytes) {
        const Library before = store_->library();
        store_->mutate("Edit", [&](Library& library) { applyEdit(library, bytes); });
        if (store_->library() != before) {
            undoable_.push_back(before);
            redoable_.clear();
        }
        requireSound(store_->library());
        requireCurrent(store_->library());
    }

    template <typename Action>
    void takeBack(std::vector<Library>& from, std::vector<Library>& to, Action action) {
        const Library expected = from.empty() ? store_->library() : from.back();
        if (!from.empty()) {
            to.push_back(store_->library());
            from.pop_back();
        }
        action();
        requireCurrent(expected);
    }

    /// The store holds that document, and its index and its undo manager know.
    void requireCurrent(const Library& expected) {
        require(store_->library() == expected, "undo and redo restore an equal document");
        require(store_->index().library() == expected, "the index follows the document");
        require(undo_->canUndo() != undoable_.empty(), "there is a step to undo for each edit");
        require(undo_->canRedo() != redoable_.empty(), "there is a step to redo for each undo");
        requireBalanced(store_->index());
    }

    void save() {
        store_->saveNow();
        require(!store_->lastError(), "a save succeeds");
        require(decodeLibrary(files_.contents(path).value()) == store_->library(),
                "the file holds the document");
    }

    InMemoryFileSystem files_;
    ManualScheduler scheduler_;
    FixedClock clock_{Date{796'000'000}};
    InMemoryUserDefaults defaults_;
    InMemoryPasswordStore passwords_;
    InMemoryLegacyKeyStore keys_;
    std::shared_ptr<History> undo_ = std::make_shared<History>();
    std::unique_ptr<LibraryStore> store_;
    std::vector<Library> undoable_;
    std::vector<Library> redoable_;
};

} // namespace

void editLedger(std::string_view bytes) {
    ByteReader reader(bytes);
    LedgerSession session;
    while (!reader.isEmpty()) {
        session.step(reader);
    }
    session.finish();
}

} // namespace oakfen::fuzz
