#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/LibraryStore/History.h"
#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Platform/Clock.h"
#include "OakfenCore/Platform/LegacyKeyStore.h"
#include "OakfenCore/Platform/PasswordStore.h"
#include "OakfenCore/Platform/Scheduler.h"
#include "OakfenCore/Platform/UserDefaults.h"
#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

/// What the access gate shows.
struct AccessState {
    enum class Kind { legacyUnavailable, open, locked, needsPassword };

    Kind kind = Kind::needsPassword;
    /// For `legacyUnavailable`: the text to show, and whether a recovery passphrase can help.
    std::string reason = {};
    bool recoverable = false;

    [[nodiscard]] bool isOpen() const { return kind == Kind::open; }

    friend bool operator==(const AccessState&, const AccessState&) = default;
};

/// What is known of the store's last error beside its text.
struct ErrorDetails {
    /// The name under which a damaged file is kept in its folder.
    std::optional<std::string> keptName = {};
    /// What is wrong where in a damaged file, for somebody who wants to mend it; else empty.
    std::string place = {};

    friend bool operator==(const ErrorDetails&, const ErrorDetails&) = default;
};

/// What the store works with; all must outlive it.
struct LibraryStoreServices {
    FileSystem& files;
    Scheduler& scheduler;
    const Clock& clock;
    UserDefaults& defaults;
    PasswordStore& passwordStore;
    LegacyKeyStore& legacyKeys;
};

/// The one owner of the open document. Everybody else reads `library` and `index`; every change
/// goes through `mutate`, which brings undo, a new index and a save 0.4 seconds after the last
/// change. Lives on the main thread.
class LibraryStore {
public:
    /// Under this key a person's choice to run without a password is kept.
    static constexpr std::string_view unencryptedKey = settings::dataFileUnencrypted.key;

    /// Opens the file, whatever its format, and enters the reminders that fell due meanwhile; never
    /// throws. Without a path the document is in memory only. `choiceKey` differs from
    /// `unencryptedKey` where another file than the usual one is open.
    LibraryStore(std::optional<std::string> filePath, LibraryStoreServices services,
                 std::string choiceKey = std::string(unencryptedKey));
    ~LibraryStore();
    LibraryStore(const LibraryStore&) = delete;
    LibraryStore& operator=(const LibraryStore&) = delete;

    /// An open document in memory with a sample household in it, for looking around.
    [[nodiscard]] static std::unique_ptr<LibraryStore> preview(LibraryStoreServices services);

    /// "Library.tarnwick" in the person's data folder.
    [[nodiscard]] static std::string defaultFilePath();

    [[nodiscard]] const Library& library() const;
    [[nodiscard]] const LibraryIndex& index() const;
    /// The index for a worker, which keeps it alive.
    [[nodiscard]] std::shared_ptr<const LibraryIndex> sharedIndex() const;
    [[nodiscard]] const std::optional<std::string>& lastError() const;
    [[nodiscard]] const ErrorDetails& lastErrorDetails() const;
    [[nodiscard]] const AccessState& accessState() const;
    /// True until a first choice about a password was made on a document that has no file.
    [[nodiscard]] bool isNewLibrary() const;
    [[nodiscard]] bool isPasswordSaved() const;
    [[nodiscard]] bool usesPassword() const;
    [[nodiscard]] std::optional<std::string> filePath() const;
    /// Whether an edit has not reached the disk yet, although it should.
    [[nodiscard]] bool hasUnsavedChanges() const;
    /// Whether another program has changed the data file. Until somebody has decided which version
    /// to keep, edits go on in memory, and are kept beside the file.
    [[nodiscard]] bool isChangedElsewhere() const;

    /// Held weakly; steps are taken on this document from then on.
    void setUndoManager(std::weak_ptr<History> undoManager);

    /// The single entry for edits: runs the edit on a copy. When that differs, the document and the
    /// index are replaced, an undo step with that name is registered and a save is scheduled. An
    /// edit that stores an amount that is not a number is refused: then `lastError` says so, and
    /// nothing else has changed.
    void mutate(const std::string& actionName, const std::function<void(Library&)>& edit);

    /// Swaps the whole document; can be undone only when a name is given, and then for as long as
    /// the program runs. Refused like an edit.
    void replaceLibrary(Library library, const std::optional<std::string>& actionName);

    /// Builds the index of the same document again, for the present moment: which entries are
    /// current depends on the day.
    void refreshIndex();

    /// Writes at once if the document is open; a failure is told in `lastError`.
    void saveNow();

    /// Loads again from the file.
    void retryLoading();
    /// Sets the file aside and begins an empty document.
    void startOver();
    void clearError();
    /// Chooses a plain file. Throws a `LocalizedError` when it can't be written; then nothing has
    /// changed.
    void useNoPassword();

    /// Decides for this version: keeps the other one beside the data file and saves. Returns the
    /// name of the copy; nothing when there was no other file any more. Throws a `LocalizedError`
    /// when the other version can't be kept; then nothing has changed.
    std::optional<std::string> keepThisVersion();
    /// Decides for the other version: opens it, in one undo step. Throws a `LocalizedError` when it
    /// can't be opened; then nothing has changed.
    void openOtherVersion();
    /// The names of the versions that earlier programs kept beside the data file since they could
    /// not save them, each told once.
    [[nodiscard]] std::vector<std::string> takeVersionsBeside();

    /// Told after `library` and `index` changed, or `index` alone.
    Observers<> libraryChanged;
    /// Told after `lastError`, `accessState`, `isNewLibrary` or a password field changed.
    Observers<> statusChanged;
    /// Told after the data file was written although it had gone.
    Observers<> missingFileWritten;

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace oakfen
