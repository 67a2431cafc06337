#include "Oakfen/FileActions.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "Oakfen/Cover.h"
#include "OakfenCore/Importers/StatementImporter.h"
#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen::FileActions {

using fileCalls::nameOf;

namespace {

std::string fileExtension(const std::string& path) {
    const std::string name = nameOf(path);
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? std::string() : name.substr(point + 1);
}

ImportFormat formatOf(const std::string& path) {
    if (const auto format = statementFormat(path)) {
        return *format;
    }
    throw ImportError(ImportError::Kind::unsupportedFormat);
}

/// Whether a sheet can open without putting another one away, taking the keys that are meant for a
/// question, or showing the ledger to somebody who finds the window locked.
bool isMainScreenFree(AppEnvironment& environment) {
    return !isObscured(environment) && !environment.appState.sheet() &&
           !environment.panels.isAsking();
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

/// The account that was on the screen when the file was chosen, if there still is one.
UUID targetAccount(const LibraryIndex& index, const std::optional<UUID>& selected) {
    if (selected && index.account(*selected) != nullptr) {
        return *selected;
    }
    const auto open = index.openAccounts();
    return open.empty() ? UUID{} : open.front()->id;
}

void review(AppEnvironment& environment, const std::string& path,
            const std::optional<UUID>& selected, std::vector<ImportedTransaction> items) {
    auto session = std::make_shared<ImportSession>(
        ImportSession{.id = UUID::random(),
                      .fileName = nameOf(path),
                      .items = std::move(items),
                      .accountID = targetAccount(environment.store.index(), selected)});
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
    std::optional<ImportFormat> format;
    try {
        format = formatOf(path);
        checkReadable(environment.files, path);
    } catch (const ImportError& error) {
        environment.appState.setAlertMessage(error.localizedDescription());
        return;
    }
    auto items = std::make_shared<std::vector<ImportedTransaction>>();
    environment.busyWork.run(
        "Reading " + legible(nameOf(path)) + "…",
        [&files = environment.files, path, format = *format,
         calendar = environment.clock.calendar(),
         items] { *items = StatementImporter::parse(contents(files, path), format, calendar); },
        [&environment, path, items, selected = environment.appState.selectedAccountID()] {
            // The person may have gone on meanwhile, and begun to edit.
            environment.appState.whenFree([&environment] { return isMainScreenFree(environment); },
                                          [&environment, path, items, selected] {
                                              review(environment, path, selected,
                                                     std::move(*items));
                                          });
        });
}

void importStatementWhenReady(AppEnvironment& environment, const std::string& path) {
    const auto isReady = [&environment] {
        return isMainScreenFree(environment) && !environment.store.index().openAccounts().empty();
    };
    const bool needsAccount = environment.store.index().openAccounts().empty();
    if (needsAccount) {
        environment.appState.showNotice(
            {.text = quoted(nameOf(path)) + " is imported as soon as there is an open account.",
             .stays = true});
    }
    environment.appState.whenFree(isReady, [&environment, path, needsAccount] {
        if (needsAccount) {
            environment.appState.dismissNotice();
        }
        importStatement(environment, path);
    });
}

std::optional<ImportFormat> statementFormat(const std::string& path) {
    return importFormat(fileExtension(path));
}

bool canTakeDroppedFiles(AppEnvironment& environment) {
    return isMainScreenFree(environment) && !environment.busyWork.isBusy() &&
           !environment.store.index().openAccounts().empty();
}

void takeDroppedFiles(AppEnvironment& environment, const std::vector<std::string>& paths) {
    if (!canTakeDroppedFiles(environment)) {
        return;
    }
    if (paths.size() == 1) {
        importStatement(environment, paths.front());
    } else {
        environment.appState.setAlertMessage(
            ImportError(ImportError::Kind::unsupportedFormat).localizedDescription());
    }
}

} // namespace oakfen::FileActions
