#include "OakfenCore/LibraryStore/LibraryStore.h"

#include <utility>

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/LibraryStore/Opening.h"
#include "OakfenCore/LibraryStore/StoreState.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Platform/UserFolders.h"
#include "OakfenCore/SampleData/SampleData.h"
#include "OakfenCore/Support/Values/FailureText.h"

namespace oakfen {

namespace {

DataFile* pointer(std::optional<DataFile>& file) {
    return file ? &*file : nullptr;
}

} // namespace

LibraryStore::LibraryStore(std::optional<std::string> filePath, LibraryStoreServices services,
                           std::string choiceKey)
    : state_(std::make_shared<State>(*this, std::move(filePath), services, std::move(choiceKey))) {
    LoadOutcome outcome = loadDocument(pointer(state_->file), state_->isPlainByChoice());
    Library document = outcome.library ? *std::move(outcome.library)
                                       : Library{.currencyCode = defaultCurrencyCode()};
    // On the plain value, before anybody sees it: what was entered goes to disk with the next edit,
    // and opening writes nothing.
    processAutoEnter(document, services.clock.now(), services.clock.calendar());
    state_->setLibrary(std::move(document));
    state_->status = {.lastError = std::move(outcome.error),
                      .lastErrorDetails = std::move(outcome.errorDetails),
                      .accessState = std::move(outcome.state),
                      .isNewLibrary = outcome.isNew,
                      .isPasswordSaved = services.passwordStore.exists()};
}

LibraryStore::~LibraryStore() = default;

std::unique_ptr<LibraryStore> LibraryStore::preview(LibraryStoreServices services) {
    auto store = std::make_unique<LibraryStore>(std::nullopt, services);
    store->state_->setLibrary(
        SampleData::make(services.clock.now(), "CAD", services.clock.calendar()));
    store->state_->status.accessState = {.kind = AccessState::Kind::open};
    return store;
}

std::string LibraryStore::defaultFilePath() {
    return userDataFolder() + "/Tarnwick/Library.tarnwick";
}

const Library& LibraryStore::library() const {
    return state_->library();
}

const LibraryIndex& LibraryStore::index() const {
    return *state_->index;
}

std::shared_ptr<const LibraryIndex> LibraryStore::sharedIndex() const {
    return state_->index;
}

const std::optional<std::string>& LibraryStore::lastError() const {
    return state_->status.lastError;
}

const ErrorDetails& LibraryStore::lastErrorDetails() const {
    return state_->status.lastErrorDetails;
}

const AccessState& LibraryStore::accessState() const {
    return state_->status.accessState;
}

bool LibraryStore::isNewLibrary() const {
    return state_->status.isNewLibrary;
}

bool LibraryStore::isPasswordSaved() const {
    return state_->status.isPasswordSaved;
}

bool LibraryStore::usesPassword() const {
    return state_->status.usesPassword;
}

std::optional<std::string> LibraryStore::filePath() const {
    return state_->file ? std::optional(state_->file->path()) : std::nullopt;
}

bool LibraryStore::hasUnsavedChanges() const {
    return state_->hasUnwrittenEdit && state_->isSaved();
}

bool LibraryStore::isChangedElsewhere() const {
    return state_->status.isChangedElsewhere;
}

void LibraryStore::setUndoManager(std::weak_ptr<History> undoManager) {
    state_->undoManager = std::move(undoManager);
    if (const std::shared_ptr<History> history = state_->undoManager.lock()) {
        history->setSwap([state = std::weak_ptr(state_)](Library& document) {
            const std::shared_ptr<State> self = state.lock();
            if (self) {
                self->swapLibrary(document);
            }
            return self != nullptr;
        });
    }
}

void LibraryStore::mutate(const std::string& actionName,
                          const std::function<void(Library&)>& edit) {
    Library after = state_->library();
    edit(after);
    if (after != state_->library()) {
        state_->apply(std::move(after), actionName, History::Kind::edit);
    }
}

void LibraryStore::replaceLibrary(Library library, const std::optional<std::string>& actionName) {
    state_->apply(std::move(library), actionName, History::Kind::replacement);
}

void LibraryStore::refreshIndex() {
    state_->setLibrary(state_->library());
    libraryChanged.notify();
}

void LibraryStore::saveNow() {
    state_->saveWork.cancel();
    if (!state_->isSaved()) {
        return;
    }
    try {
        try {
            state_->write();
        } catch (const DataFileChangedError& changed) {
            // In a session without an edit, the other version alone is worth keeping.
            if (state_->edits > 0) {
                state_->hasUnwrittenEdit = true;
                state_->tellChangedElsewhere(
                    state_->file->writeBeside(encodeLibrary(state_->library()), changed));
            }
        }
    } catch (const std::exception& error) {
        state_->tellSaveFailed(failureText(error));
    }
}

void LibraryStore::retryLoading() {
    if (state_->file) {
        state_->settleFile();
    }
    LoadOutcome outcome = loadDocument(pointer(state_->file), state_->isPlainByChoice());
    State::Status status = state_->status;
    status.setError(std::move(outcome.error), std::move(outcome.errorDetails));
    status.accessState = std::move(outcome.state);
    status.isNewLibrary = outcome.isNew;
    status.usesPassword = false;
    status.isChangedElsewhere = false;
    state_->setLibraryAndStatus(std::move(outcome.library), std::move(status));
}

void LibraryStore::startOver() {
    if (hasUnsavedChanges()) {
        saveNow();
    }
    if (state_->file) {
        state_->settleFile();
        state_->file->setAside();
    }
    State::Status status = state_->status;
    status.accessState = {.kind = AccessState::Kind::needsPassword};
    status.isNewLibrary = true;
    status.usesPassword = false;
    status.isChangedElsewhere = false;
    state_->setLibraryAndStatus(Library{.currencyCode = defaultCurrencyCode()}, std::move(status));
}

void LibraryStore::clearError() {
    State::Status status = state_->status;
    status.setError(std::nullopt);
    state_->setStatus(std::move(status));
}

void LibraryStore::useNoPassword() {
    if (state_->status.accessState.kind != AccessState::Kind::needsPassword) {
        return;
    }
    if (state_->file) {
        state_->saveWork.cancel();
        try {
            state_->write();
        } catch (const DataFileChangedError&) {
            State::Status status = state_->status;
            status.isChangedElsewhere = true;
            state_->setStatus(std::move(status));
            throw;
        }
    }
    // The document is on disk: if the program died before the choice followed, the next start would
    // ask for it again.
    state_->services.defaults.set(state_->choice(), true);
    state_->services.defaults.settle();
    State::Status status = state_->status;
    status.accessState = {.kind = AccessState::Kind::open};
    status.isNewLibrary = false;
    state_->rememberPassword(std::nullopt, status);
    state_->setStatus(std::move(status));
}

std::optional<std::string> LibraryStore::keepThisVersion() {
    state_->settleFile();
    std::optional<std::string> copy = state_->file->keepOtherVersion();
    State::Status status = state_->status;
    status.isChangedElsewhere = false;
    state_->setStatus(std::move(status));
    saveNow();
    return copy;
}

void LibraryStore::openOtherVersion() {
    state_->settleFile();
    const std::optional<DataFile::Version> other = state_->file->otherVersion();
    if (other) {
        Library opened = decodeOtherVersion(other->bytes);
        // What is given up here stays beside the file: undo reaches it until the program ends only.
        state_->file->releaseVersionBeside();
        state_->file->acceptAsOpened(other);
        replaceLibrary(std::move(opened), "Open the Other Version");
    } else {
        // It was taken away meanwhile, so there is nothing but this one.
        state_->file->acceptAsOpened(other);
        state_->scheduleSave();
    }
    State::Status status = state_->status;
    status.isChangedElsewhere = false;
    // A document that has a file is not a new one, whatever it was when this one began.
    status.isNewLibrary = status.isNewLibrary && !other;
    state_->setStatus(std::move(status));
}

std::vector<std::string> LibraryStore::takeVersionsBeside() {
    return state_->file ? state_->file->takeVersionsBeside() : std::vector<std::string>();
}

} // namespace oakfen
