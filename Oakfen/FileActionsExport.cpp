#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "Oakfen/FileActions.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Support/Text/Quotation.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen::FileActions {

using fileCalls::nameOf;

namespace {

/// The name with a dash for each character that some file system can't hold, and short enough to
/// take an extension.
std::string fileName(std::string_view name) {
    constexpr std::string_view forbidden = "/\\:*?\"<>|";
    constexpr std::size_t greatestLength = 200;
    std::string result;
    forEachCharacter(trimmingWhitespacesAndNewlines(name), [&](std::string_view character) {
        const auto first = static_cast<unsigned char>(character.front());
        const bool isControl = first < 0x20 || first == 0x7F;
        const bool isForbidden = forbidden.find(character.front()) != std::string_view::npos;
        if (result.size() + character.size() <= greatestLength) {
            result += isControl || isForbidden ? "-" : character;
        }
    });
    // A name that begins with a point is hidden from its owner.
    if (result.starts_with('.')) {
        result.front() = '-';
    }
    return result.empty() ? "Account" : result;
}

/// Keeps an export from being written over the ledger itself.
void checkIsNotTheDataFile(FileSystem& files, const std::string& path,
                           const std::optional<std::string>& dataFile) {
    if (dataFile && canonicalPath(files, path) == canonicalPath(files, *dataFile)) {
        throw LocalizedError(quoted(nameOf(path)) +
                             " is your data file. Choose another name for the export.");
    }
}

std::vector<const Transaction*> pointers(std::span<const Transaction* const> entries) {
    return {entries.begin(), entries.end()};
}

void tellOfExport(AppEnvironment& environment, const std::string& path) {
    environment.appState.showNotice(
        {.text = "Exported to " + quoted(nameOf(path)),
         .actionTitle = "Show in Files",
         .action = [&environment, path] { environment.panels.showInFiles(path); }});
}

} // namespace

void exportCSV(AppEnvironment& environment) {
    const SavePanelRequest request{.title = "Export All Transactions",
                                   .suggestedName = "Oakfen Transactions.csv",
                                   .extension = "csv",
                                   .extensionName = "Comma-Separated Text"};
    save(environment, request,
         [index = environment.store.sharedIndex(), calendar = environment.clock.calendar()] {
             std::vector<const Transaction*> entries;
             for (const Transaction& entry : index->library().transactions) {
                 entries.push_back(&entry);
             }
             return Exporter::transactionsCSV(std::move(entries), *index, calendar);
         });
}

void exportQIF(AppEnvironment& environment) {
    auto index = environment.store.sharedIndex();
    const auto selected = environment.appState.selectedAccountID();
    const Account* account = selected ? index->account(*selected) : nullptr;
    if (account == nullptr) {
        return;
    }
    const SavePanelRequest request{.title = "Export " + quoted(account->name),
                                   .suggestedName = fileName(account->name) + ".qif",
                                   .extension = "qif",
                                   .extensionName = "QIF Files"};
    save(environment, request,
         [index = std::move(index), account, calendar = environment.clock.calendar()] {
             return Exporter::qif(*account, pointers(index->transactions(account->id)), *index,
                                  calendar);
         });
}

void save(AppEnvironment& environment, const SavePanelRequest& request,
          std::function<std::string()> makeText) {
    environment.panels.saveFile(request, [&environment, makeText = std::move(makeText)](
                                             const std::optional<std::string>& path) {
        if (!path) {
            return;
        }
        environment.busyWork.run(
            "Saving " + legible(nameOf(*path)) + "…",
            [&files = environment.files, path = *path, makeText,
             dataFile = environment.store.filePath()] {
                checkIsNotTheDataFile(files, path, dataFile);
                writeOwnerOnly(files, makeText(), path);
            },
            [&environment, path = *path] { tellOfExport(environment, path); });
    });
}

} // namespace oakfen::FileActions
