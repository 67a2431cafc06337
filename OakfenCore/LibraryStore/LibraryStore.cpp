#include "OakfenCore/LibraryStore/LibraryStore.h"

#include <utility>

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/LibraryStore/Opening.h"
#include "OakfenCore/LibraryStore/StoreState.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Platform/UserFolders.h"
#include "OakfenCore/SampleData/SampleData.h"

namespace oakfen {

LibraryStore::LibraryStore(std::optional<std::string> filePath, LibraryStoreServices services,
                           std::string choiceKey)
    : state_(std::make_shared<State>(*this, std::move(filePath), services, std::move(choiceKey))) {
    LoadOutcome outcome = loadDocument(state_->filePath, services, state_->isPlainByChoice());
    Library document =
        outcome.library ? *std::move(outcome.library) : emptyDocument(defaultCurrencyCode());
    // On the plain value, before anybody sees it: what was entered goes to disk with the next edit,
    // and opening writes nothing.
    processAutoEnter(document, services.clock.now(), services.clock.calendar());
    state_->setLibrary(std::move(document));
    state_->mustSetAsideFirst = outcome.leavesDamagedFile;
    state_->status = {.lastError = std::move(outcome.error),
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
    return state_->library;
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

const std::optional<std::string>& LibraryStore::filePath() const {
    return state_->filePath;
}

bool LibraryStore::hasUnsavedChanges() const {
    return state_->hasUnwrittenEdit && state_->isSaved();
}

void LibraryStore::setUndoManager(std::weak_ptr<UndoManager> undoManager) {
    state_->undoManager = std::move(undoManager);
}

void LibraryStore::mutate(const std::string& actionName,
                          const std::function<void(Library&)>& edit) {
    Library after = state_->library;
    edit(after);
    if (after != state_->library) {
        state_->apply(std::move(after), actionName);
    }
}

void LibraryStore::replaceLibrary(Library library, const std::optional<std::string>& actionName) {
    state_->apply(std::move(library), actionName);
}

void LibraryStore::refreshIndex() {
    state_->setLibrary(state_->library);
    libraryChanged.notify();
}

void LibraryStore::saveNow() {
    state_->saveWork.cancel();
    if (!state_->isSaved()) {
        return;
    }
    try {
        state_->write();
    } catch (const std::exception& error) {
        state_->tellSaveFailed(error.what());
    }
}

void LibraryStore::retryLoading() {
    state_->mustSaveAgain = false;
    state_->writer.settle();
    LoadOutcome outcome =
        loadDocument(state_->filePath, state_->services, state_->isPlainByChoice());
    state_->mustSetAsideFirst = outcome.leavesDamagedFile;
    State::Status status = state_->status;
    status.lastError = std::move(outcome.error);
    status.accessState = std::move(outcome.state);
    status.isNewLibrary = outcome.isNew;
    status.usesPassword = false;
    state_->setLibraryAndStatus(std::move(outcome.library), std::move(status));
}

void LibraryStore::startOver() {
    if (hasUnsavedChanges()) {
        saveNow();
    }
    if (state_->filePath) {
        state_->setFileAside();
    }
    State::Status status = state_->status;
    status.accessState = {.kind = AccessState::Kind::needsPassword};
    status.isNewLibrary = true;
    status.usesPassword = false;
    state_->setLibraryAndStatus(emptyDocument(defaultCurrencyCode()), std::move(status));
}

void LibraryStore::clearError() {
    State::Status status = state_->status;
    status.lastError.reset();
    state_->setStatus(std::move(status));
}

void LibraryStore::useNoPassword() {
    if (state_->status.accessState.kind != AccessState::Kind::needsPassword) {
        return;
    }
    if (state_->filePath) {
        state_->saveWork.cancel();
        state_->write();
    }
    state_->services.defaults.setBoolean(state_->choiceKey, true);
    State::Status status = state_->status;
    status.accessState = {.kind = AccessState::Kind::open};
    status.isNewLibrary = false;
    state_->rememberPassword(std::nullopt, status);
    state_->setStatus(std::move(status));
}

} // namespace oakfen
