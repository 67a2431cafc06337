#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Oakfen/Session.h"
#include "OakfenCore/Testing/FixedClock.h"
#include "OakfenCore/Testing/InMemoryAuthenticator.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "OakfenCore/Testing/ManualScheduler.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen::testing {

/// Panels that note what they were asked and answer at once as the test has told them to.
class RecordingPanels final : public Panels {
public:
    /// The answer of the next file panels; nothing is a dismissal.
    std::optional<std::string> path;
    /// The answer of the next questions.
    bool confirms = true;
    /// The answer of the next choices.
    std::optional<std::size_t> choice;
    /// What `isAsking` says.
    bool asks = false;
    /// While set, answers wait in `pending` until the test calls them.
    bool holdsAnswers = false;

    std::vector<OpenPanelRequest> openRequests;
    std::vector<FolderPanelRequest> folderRequests;
    std::vector<SavePanelRequest> saveRequests;
    std::vector<ConfirmationRequest> confirmations;
    std::vector<ChoiceRequest> choiceRequests;
    std::vector<std::string> shownInFiles;
    std::vector<std::function<void()>> pending;

    void openFile(const OpenPanelRequest& request,
                  std::function<void(std::optional<std::string>)> then) override {
        openRequests.push_back(request);
        answer([this, then = std::move(then)] { then(path); });
    }
    void openFolder(const FolderPanelRequest& request,
                    std::function<void(std::optional<std::string>)> then) override {
        folderRequests.push_back(request);
        answer([this, then = std::move(then)] { then(path); });
    }
    void saveFile(const SavePanelRequest& request,
                  std::function<void(std::optional<std::string>)> then) override {
        saveRequests.push_back(request);
        answer([this, then = std::move(then)] { then(path); });
    }
    void confirm(const ConfirmationRequest& request, std::function<void(bool)> then) override {
        confirmations.push_back(request);
        answer([this, then = std::move(then)] { then(confirms); });
    }
    void choose(const ChoiceRequest& request,
                std::function<void(std::optional<std::size_t>)> then) override {
        choiceRequests.push_back(request);
        answer([this, then = std::move(then)] { then(choice); });
    }

    void showInFiles(const std::string& file) override { shownInFiles.push_back(file); }

    [[nodiscard]] bool isAsking() const override { return asks; }
    /// The dialog that `asks` stood for has gone.
    void endAsking() {
        asks = false;
        ended.notify();
    }

private:
    void answer(std::function<void()> reply) {
        if (holdsAnswers) {
            pending.push_back(std::move(reply));
        } else {
            reply();
        }
    }
};

/// A whole session in memory: no disk, no display, no waiting. The store is open without a password
/// on the given document; the clock stands at noon of March 15th, 2026, in UTC.
class TestEnvironment {
public:
    /// Opens the store on that file of `files` as it is, without making a choice for the person.
    struct Unopened {};
    static constexpr const char* dataFile = "/home/ann/.local/share/Tarnwick/Library.tarnwick";

    explicit TestEnvironment(Library document = Library{.currencyCode = "CAD"})
        : TestEnvironment(Unopened{}) {
        store->useNoPassword();
        store->replaceLibrary(std::move(document), std::nullopt);
    }

    explicit TestEnvironment(Unopened) { openSession(); }

    /// Ends the session and begins the next one on the same files and settings, as the next start
    /// of the program does.
    void openSession() {
        session.reset();
        session = std::make_unique<Session>(
            SessionServices{
                {files, scheduler, clock, kept.defaults, kept.passwordStore, kept.legacyKeys},
                panels,
                authenticator},
            DataFileChoice{dataFile, std::string(LibraryStore::unencryptedKey)});
        environment = &session->environment();
        store = &environment->store;
        appState = &environment->appState;
        busyWork = &environment->busyWork;
        undoManager = &environment->undoManager;
    }

    AppEnvironment& operator*() { return *environment; }
    AppEnvironment* operator->() { return environment; }

    [[nodiscard]] const Library& library() const { return store->library(); }
    [[nodiscard]] const LibraryIndex& index() const { return store->index(); }

    FixedClock clock{day(2026, 3, 15)};
    ManualScheduler scheduler;
    InMemoryFileSystem files;
    KeptInMemory kept;
    InMemoryUserDefaults& defaults = kept.defaults;
    InMemoryAuthenticator authenticator;
    RecordingPanels panels;
    std::unique_ptr<Session> session;

    // Parts of the session.
    AppEnvironment* environment = nullptr;
    LibraryStore* store = nullptr;
    AppState* appState = nullptr;
    BusyWork* busyWork = nullptr;
    History* undoManager = nullptr;
};

} // namespace oakfen::testing
