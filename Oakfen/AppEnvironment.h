#pragma once

#include "Oakfen/AppState.h"
#include "Oakfen/BusyWork.h"
#include "Oakfen/DayChange.h"
#include "Oakfen/Panels.h"
#include "OakfenCore/LibraryStore/LibraryStore.h"
#include "OakfenCore/Platform/Authenticator.h"
#include "OakfenCore/Platform/Clock.h"
#include "OakfenCore/Platform/Scheduler.h"
#include "OakfenCore/Platform/UserDefaults.h"
#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

class OtherVersionFlow;
class ScreenCommands;
class ScreenHistory;

/// What every screen is handed. A bundle of references to objects that live as long as the program.
struct AppEnvironment {
    LibraryStore& store;
    AppState& appState;
    History& undoManager;
    Panels& panels;
    UserDefaults& defaults;
    const Clock& clock;
    Scheduler& scheduler;
    FileSystem& files;
    DayChange& dayChange;
    BusyWork& busyWork;
    OtherVersionFlow& otherVersion;
    ScreenHistory& screenHistory;
    ScreenCommands& screenCommands;
    Authenticator& authenticator;

    /// The code in which every screen shows money.
    [[nodiscard]] const std::string& currencyCode() const { return store.library().currencyCode; }
};

} // namespace oakfen
