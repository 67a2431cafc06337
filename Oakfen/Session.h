#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/OtherVersionFlow.h"
#include "Oakfen/ScreenCommands.h"
#include "Oakfen/ScreenHistory.h"
#include "Oakfen/ScreenReturn.h"
#include "OakfenCore/LibraryStore/DataFileChoice.h"
#include "OakfenCore/Platform/InMemoryLegacyKeyStore.h"
#include "OakfenCore/Platform/InMemoryPasswordStore.h"
#include "OakfenCore/Platform/InMemoryUserDefaults.h"

namespace oakfen {

/// What a session works with: files, time, settings, keyring, dialogs and the way to authenticate.
/// All must outlive it.
struct SessionServices {
    LibraryStoreServices store;
    Panels& panels;
    Authenticator& authenticator;
};

/// Settings and a keyring that nobody keeps: for looking around without touching a person's own.
struct KeptInMemory {
    InMemoryUserDefaults defaults;
    InMemoryPasswordStore passwordStore;
    InMemoryLegacyKeyStore legacyKeys;
};

/// One open document and all that works on it, wired in one way for the program, its pictures and
/// its tests.
class Session {
public:
    /// Opens the file, and tells of versions that earlier sessions could not save.
    Session(const SessionServices& services, const DataFileChoice& file);
    /// Opens a sample household in memory.
    [[nodiscard]] static std::unique_ptr<Session> sample(const SessionServices& services);

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] AppEnvironment& environment() { return environment_; }

private:
    Session(const SessionServices& services, std::unique_ptr<LibraryStore> store);

    void tellOfVersionsBeside();
    /// Has what waits for a free window done as soon as something that kept it waiting has changed.
    void watchForAFreeWindow(const SessionServices& services);

    DayChange dayChange_;
    std::shared_ptr<History> undoManager_ = std::make_shared<History>();
    std::unique_ptr<LibraryStore> store_;
    AppState appState_;
    BusyWork busyWork_;
    AppEnvironment environment_;
    OtherVersionFlow otherVersion_;
    ScreenReturn screenReturn_;
    ScreenHistory screenHistory_;
    ScreenCommands screenCommands_;
    Subscription dayChanged_;
    Subscription documentChanged_;
    Subscription missingFileWritten_;
    std::vector<Subscription> freeing_;
    ScheduledWork look_;
};

} // namespace oakfen
