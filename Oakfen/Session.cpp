#include "Oakfen/Session.h"

#include <string>
#include <utility>
#include <vector>

#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

Session::Session(const SessionServices& services, const DataFileChoice& file)
    : Session(services, std::make_unique<LibraryStore>(file.path, services.store, file.choiceKey)) {
    tellOfVersionsBeside();
}

std::unique_ptr<Session> Session::sample(const SessionServices& services) {
    return std::unique_ptr<Session>(new Session(services, LibraryStore::preview(services.store)));
}

Session::Session(const SessionServices& services, std::unique_ptr<LibraryStore> store)
    : dayChange_(services.store.clock, services.store.scheduler), store_(std::move(store)),
      appState_(services.store.defaults), busyWork_(appState_, services.store.scheduler),
      environment_{.store = *store_,
                   .appState = appState_,
                   .undoManager = *undoManager_,
                   .panels = services.panels,
                   .defaults = services.store.defaults,
                   .clock = services.store.clock,
                   .scheduler = services.store.scheduler,
                   .files = services.store.files,
                   .dayChange = dayChange_,
                   .busyWork = busyWork_,
                   .otherVersion = otherVersion_,
                   .screenHistory = screenHistory_,
                   .screenCommands = screenCommands_,
                   .authenticator = services.authenticator},
      otherVersion_(environment_), screenReturn_(appState_, *store_, *undoManager_),
      screenHistory_(appState_, *store_) {
    store_->setUndoManager(undoManager_);
    dayChanged_ = dayChange_.dayChanged.observe([this] { store_->refreshIndex(); });
    documentChanged_ = store_->libraryChanged.observe([this] {
        if (appState_.notice() && appState_.notice()->isOfLastChange) {
            appState_.dismissNotice();
        }
    });
    missingFileWritten_ = store_->missingFileWritten.observe([this] {
        appState_.showNotice({.text = quoted(fileCalls::nameOf(*store_->filePath())) +
                                      " had gone and was written again."});
    });
    watchForAFreeWindow(services);
}

void Session::watchForAFreeWindow(const SessionServices& services) {
    const auto look = [this, &scheduler = services.store.scheduler] {
        if (appState_.hasWaitingWork()) {
            // Not at once: whoever closed a sheet or unlocked may not have come to an end yet.
            look_ = scheduler.after(0, [this] { appState_.doWhatWaits(); });
        }
    };
    for (Observers<>* freed :
         {&appState_.sheetChanged, &appState_.lockChanged, &store_->libraryChanged,
          &store_->statusChanged, &services.panels.ended}) {
        freeing_.push_back(freed->observe(look));
    }
    freeing_.push_back(services.store.defaults.observe(settings::requireAuthentication, look));
}

void Session::tellOfVersionsBeside() {
    const std::vector<std::string> names = store_->takeVersionsBeside();
    if (names.empty()) {
        return;
    }
    std::string text = "Changes of an earlier session couldn’t be saved, since another program had "
                       "changed the data file. They are kept beside it as ";
    for (std::size_t position = 0; position < names.size(); ++position) {
        text += (position == 0 ? "" : ", ") + quoted(names[position]);
    }
    appState_.setAlertMessage(text + ".");
}

} // namespace oakfen
