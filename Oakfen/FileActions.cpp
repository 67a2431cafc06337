#include "Oakfen/FileActions.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "OakfenCore/Importers/StatementImporter.h"

namespace oakfen::FileActions {

namespace {

std::string lastComponent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string fileExtension(const std::string& path) {
    const std::string name = lastComponent(path);
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? std::string() : name.substr(point + 1);
}

ImportFormat formatOf(const std::string& path) {
    if (const auto format = importFormat(fileExtension(path))) {
        return *format;
    }
    throw ImportError(ImportError::Kind::unsupportedFormat);
}

/// Refuses before a byte is read what could never be taken in: a folder, a pipe, a huge file.
void checkReadable(FileSystem& files, const std::string& path) {
    std::optional<FileInformation> information;
    try {
        information = fileInformation(files, path);
    } catch (const FileError&) {
        throw ImportError(ImportError::Kind::unreadable);
    }
    if (!information || !information->isRegularFile) {
        throw ImportError(ImportError::Kind::unreadable);
    }
    if (information->size > StatementImporter::maxBytes) {
        throw ImportError(ImportError::Kind::fileTooLarge);
    }
}

std::string contents(FileSystem& files, const std::string& path) {
    try {
        return readFile(files, path);
    } catch (const FileError&) {
        throw ImportError(ImportError::Kind::unreadable);
    }
}

/// What the worker leaves for the main thread.
struct Reading {
    std::vector<ImportedTransaction> items;
    std::optional<std::string> failure;
};

UUID targetAccount(const AppEnvironment& environment) {
    const LibraryIndex& index = environment.store.index();
    const auto selected = environment.appState.selectedAccountID();
    if (selected && index.account(*selected) != nullptr) {
        return *selected;
    }
    const auto open = index.openAccounts();
    return open.empty() ? UUID{} : open.front()->id;
}

void finish(AppEnvironment& environment, const std::string& path, Reading& reading) {
    environment.appState.setBusyMessage(std::nullopt);
    if (reading.failure) {
        environment.appState.setAlertMessage(std::move(reading.failure));
        return;
    }
    auto session =
        std::make_shared<ImportSession>(ImportSession{.id = UUID::random(),
                                                      .fileName = lastComponent(path),
                                                      .items = std::move(reading.items),
                                                      .accountID = targetAccount(environment)});
    environment.appState.setSheet(ActiveSheet{ActiveSheet::ImportReview{std::move(session)}});
}

} // namespace

void importTransactions(AppEnvironment& environment) {
    const OpenPanelRequest request{
        .title = "Import Transactions",
        .message = "Choose a CSV, QIF, OFX or QFX statement downloaded from your bank.",
        .extensions = {"csv", "txt", "qif", "ofx", "qfx", "qbo"},
        .extensionsName = "Statements"};
    environment.panels.openFile(request, [&environment](const std::optional<std::string>& path) {
        if (path) {
            importStatement(environment, *path);
        }
    });
}

void importStatement(AppEnvironment& environment, const std::string& path) {
    // Statements are read one at a time: two would compete for the one sheet.
    if (environment.appState.busyMessage()) {
        return;
    }
    std::optional<ImportFormat> format;
    try {
        format = formatOf(path);
        checkReadable(environment.files, path);
    } catch (const LocalizedError& error) {
        environment.appState.setAlertMessage(error.localizedDescription());
        return;
    }
    environment.appState.setBusyMessage("Reading " + lastComponent(path) + "…");

    auto reading = std::make_shared<Reading>();
    // The work goes on for as long as its handle is held: until its result is taken.
    auto handle = std::make_shared<ScheduledWork>();
    *handle = environment.scheduler.background(
        [&files = environment.files, path, format = *format,
         calendar = environment.clock.calendar(), reading] {
            try {
                reading->items = StatementImporter::parse(contents(files, path), format, calendar);
            } catch (const std::exception& error) {
                reading->failure = error.what();
            }
        },
        [&environment, path, reading, handle] {
            finish(environment, path, *reading);
            handle->cancel();
        });
}

} // namespace oakfen::FileActions
