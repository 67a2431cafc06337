#include "OakfenCore/LibraryStore/StoreState.h"

#include <utility>

#include "OakfenCore/LibraryStore/Opening.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Models/NumberCheck.h"

namespace oakfen {

namespace {

/// Long enough for a burst of edits to end in one write.
constexpr double secondsBeforeSaving = 0.4;

} // namespace

LibraryStore::State::State(LibraryStore& store, std::optional<std::string> path,
                           const LibraryStoreServices& theServices, std::string key)
    : owner(store), services(theServices), choiceKey(std::move(key)) {
    if (path) {
        file.emplace(*std::move(path), services.files, services.scheduler, services.clock);
    }
}

bool LibraryStore::State::isSaved() const {
    return file && status.accessState.isOpen() && isPlainByChoice();
}

void LibraryStore::State::setLibrary(Library newLibrary) {
    index = std::make_shared<const LibraryIndex>(std::move(newLibrary), services.clock.now(),
                                                 services.clock.calendar());
}

void LibraryStore::State::apply(Library newLibrary, const std::optional<std::string>& actionName,
                                History::Kind kind) {
    // Once it were in the document, no save could succeed until it had gone.
    if (addsNaN(library(), newLibrary)) {
        Status told = status;
        told.setError((actionName ? "“" + *actionName + "”" : "The change") +
                      " couldn’t be done: an amount in it is too large to keep.");
        setStatus(std::move(told));
        return;
    }
    const Library before = library();
    setLibrary(std::move(newLibrary));
    scheduleSave();
    if (actionName) {
        registerUndo(*actionName, before, kind);
    }
    // Last, so that an observer who edits in its turn files its undo step after this one.
    owner.libraryChanged.notify();
}

void LibraryStore::State::registerUndo(const std::string& actionName, const Library& before,
                                       History::Kind kind) {
    if (const std::shared_ptr<History> history = undoManager.lock()) {
        history->record(actionName, before, library(), kind);
    }
}

void LibraryStore::State::swapLibrary(Library& document) {
    Library current = library();
    setLibrary(document);
    document = std::move(current);
    scheduleSave();
    owner.libraryChanged.notify();
}

void LibraryStore::State::scheduleSave() {
    if (!file) {
        return;
    }
    hasUnwrittenEdit = true;
    ++edits;
    saveWork.cancel();
    saveWork = services.scheduler.after(secondsBeforeSaving, [this] { saveInBackground(); });
}

void LibraryStore::State::saveInBackground() {
    if (!isSaved()) {
        return;
    }
    if (file->isBusy()) {
        mustSaveAgain = true;
        return;
    }
    const auto makeBytes = [snapshot = library()] { return encodeLibrary(snapshot); };
    const auto done = [this, written = edits](const DataFile::Outcome& outcome) {
        if (outcome.isChangedElsewhere) {
            tellChangedElsewhere(*outcome.error);
        } else if (outcome.error) {
            tellSaveFailed(*outcome.error);
        } else if (!status.isChangedElsewhere) {
            wasWritten(outcome, written);
        }
        if (std::exchange(mustSaveAgain, false)) {
            saveInBackground();
        }
    };
    if (status.isChangedElsewhere) {
        file->startWritingBeside(makeBytes, done);
    } else {
        file->startWriting(makeBytes, done);
    }
}

void LibraryStore::State::write() {
    settleFile();
    const DataFile::Outcome outcome = file->write(encodeLibrary(library()));
    wasWritten(outcome, edits);
}

void LibraryStore::State::settleFile() {
    mustSaveAgain = false;
    file->settle();
}

void LibraryStore::State::wasWritten(const DataFile::Outcome& outcome,
                                     unsigned long long editsWritten) {
    if (editsWritten == edits) {
        hasUnwrittenEdit = false;
    }
    file->removeVersionBeside();
    Status now = status;
    now.isChangedElsewhere = false;
    setStatus(std::move(now));
    if (outcome.wasMissing) {
        owner.missingFileWritten.notify();
    }
}

void LibraryStore::State::tellSaveFailed(const std::string& reason) {
    Status told = status;
    told.setError("Couldn’t save: " + reason);
    setStatus(std::move(told));
}

void LibraryStore::State::tellChangedElsewhere(const std::string& reason) {
    if (status.isChangedElsewhere) {
        return;
    }
    Status told = status;
    told.isChangedElsewhere = true;
    told.setError("Couldn’t save: " + reason);
    setStatus(std::move(told));
}

void LibraryStore::State::rememberPassword(const std::optional<std::string>& password,
                                           Status& into) {
    try {
        if (password) {
            services.passwordStore.save(*password);
        } else {
            services.passwordStore.remove();
        }
    } catch (const LocalizedError& error) {
        into.setError(std::string("Your password couldn’t be ") +
                      (password ? "saved in" : "removed from") +
                      " the Keychain: " + error.localizedDescription());
    }
    into.isPasswordSaved = services.passwordStore.exists();
}

void LibraryStore::State::setStatus(Status newStatus) {
    setLibraryAndStatus(std::nullopt, std::move(newStatus));
}

void LibraryStore::State::setLibraryAndStatus(std::optional<Library> newLibrary, Status newStatus) {
    const bool hasLibrary = newLibrary.has_value();
    const bool differs = status != newStatus;
    if (hasLibrary) {
        // The edits of the document that is given up must not be written over the other.
        saveWork.cancel();
        hasUnwrittenEdit = false;
        edits = 0;
        setLibrary(*std::move(newLibrary));
        forgetUndo();
    }
    status = std::move(newStatus);
    if (hasLibrary) {
        owner.libraryChanged.notify();
    }
    if (differs) {
        owner.statusChanged.notify();
    }
}

void LibraryStore::State::forgetUndo() {
    if (const std::shared_ptr<History> history = undoManager.lock()) {
        history->removeAllActions();
    }
}

} // namespace oakfen
