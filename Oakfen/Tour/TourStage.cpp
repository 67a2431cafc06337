#include "Oakfen/Tour/TourStage.h"

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <utility>

#include "Oakfen/Widgets/Components/CrossFade.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Register/FindWidget.h"
#include "Oakfen/Widgets/Shell/BusyPill.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

const std::string tourFile = "/tour/Tarnwick/Library.tarnwick";

InMemoryFileSystem& withFile(InMemoryFileSystem& files, const std::string& bytes) {
    if (!bytes.empty()) {
        files.addFile(tourFile, bytes);
    }
    return files;
}

/// Lets layouts, queued work and paint requests settle.
void settle() {
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

} // namespace

TourStage::TourStage(const std::string& bytes)
    : session_({{withFile(files_, bytes), scheduler_, clock_, kept_.defaults, kept_.passwordStore,
                 kept_.legacyKeys},
                panels_,
                authenticator_},
               {tourFile, std::string(LibraryStore::unencryptedKey)}),
      window_(session_.environment(), [] {}) {
    window_.show();
}

void TourStage::show(Library document) {
    store().useNoPassword();
    store().replaceLibrary(std::move(document), std::nullopt);
}

void TourStage::showBusy(const std::string& message) {
    appState().setBusyMessage(message);
    window_.findChild<BusyPill*>()->show();
}

void TourStage::find(const std::string& term) {
    window_.findInAllAccounts();
    const auto* panel = window_.findChild<FindWidget*>();
    panel->searchField()->setText(qt(term));
    panel->table()->selectRow(0);
}

QPixmap TourStage::picture() {
    settle();
    // The picture is of the end of whatever fades.
    qDeleteAll(window_.findChildren<CrossFade*>());
    return window_.grab();
}

} // namespace oakfen
