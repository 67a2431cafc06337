#pragma once

#include "OakfenCore/LibraryStore/DataFile.h"
#include "OakfenCore/LibraryStore/LibraryStore.h"

namespace oakfen {

/// What the store holds, and the steps that its operations share.
struct LibraryStore::State {
    /// What `statusChanged` tells of.
    struct Status {
        std::optional<std::string> lastError = {};
        ErrorDetails lastErrorDetails = {};
        AccessState accessState = {};
        bool isNewLibrary = false;
        bool isPasswordSaved = false;
        bool usesPassword = false;
        /// Another program's version stands in the data file until somebody has decided.
        bool isChangedElsewhere = false;

        /// The details of the last error go with it.
        void setError(std::optional<std::string> text, ErrorDetails details = {}) {
            lastError = std::move(text);
            lastErrorDetails = std::move(details);
        }

        friend bool operator==(const Status&, const Status&) = default;
    };

    State(LibraryStore& store, std::optional<std::string> path,
          const LibraryStoreServices& theServices, std::string key);

    /// The choice to run this file without a password.
    [[nodiscard]] Setting<bool> choice() const {
        return {choiceKey, settings::dataFileUnencrypted.fallback};
    }
    [[nodiscard]] bool isPlainByChoice() const { return services.defaults.get(choice()); }

    /// Whether the document may be written, and in which protection is settled.
    [[nodiscard]] bool isSaved() const;

    [[nodiscard]] const Library& library() const { return index->library(); }
    /// Document and index in one; tells nobody.
    void setLibrary(Library newLibrary);

    /// Replaces the document after an edit: index, save, undo step, notice. Refuses one with an
    /// amount that is not a number, and says so.
    void apply(Library newLibrary, const std::optional<std::string>& actionName,
               History::Kind kind);

    /// The step that leads back from the document to the one before, where somebody keeps steps.
    void registerUndo(const std::string& actionName, const Library& before, History::Kind kind);

    /// Puts a document of the history in the place of this one, and this one in its place.
    void swapLibrary(Library& document);

    void scheduleSave();

    /// Writes the document as it is now on a worker; once more afterwards if one is under way.
    void saveInBackground();

    /// The document onto the disk, at once. Throws `DataFileChangedError` or another
    /// `LocalizedError`.
    void write();

    /// Lets nothing that was about to be written follow.
    void settleFile();

    /// Puts the failure of a save into words for the person.
    void tellSaveFailed(const std::string& reason);

    /// Says so once, and from then on keeps this version beside the file instead.
    void tellChangedElsewhere(const std::string& reason);

    /// The document is in the file.
    void wasWritten(const DataFile::Outcome& outcome, unsigned long long editsWritten);

    /// Keeps the password in the password store, or with none removes it there. A failure is only
    /// a message.
    void rememberPassword(const std::optional<std::string>& password, Status& into);

    /// Stores the status and tells when it differs.
    void setStatus(Status newStatus);

    /// Stores both and then tells, so that nobody sees one without the other.
    void setLibraryAndStatus(std::optional<Library> newLibrary, Status newStatus);

    void forgetUndo();

    LibraryStore& owner;
    const LibraryStoreServices services;
    /// None for a document in memory only.
    std::optional<DataFile> file;
    const std::string choiceKey;

    /// Holds the document too, so that the two can't differ.
    std::shared_ptr<const LibraryIndex> index;
    Status status;
    std::weak_ptr<History> undoManager;
    /// Goes with the state, and the work with it.
    ScheduledWork saveWork;
    bool mustSaveAgain = false;
    /// Counts edits of the document that was opened, so that a write can tell whether it was of the
    /// newest one.
    unsigned long long edits = 0;
    bool hasUnwrittenEdit = false;
};

} // namespace oakfen
