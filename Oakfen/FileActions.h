#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "OakfenCore/Importers/StatementImporter.h"

/// The flows behind the File menu: each drives a panel, calls into the logic and reports through
/// the application's state.
namespace oakfen::FileActions {

/// Asks for a bank's statement, reads it on a worker and opens the review sheet with its lines.
void importTransactions(AppEnvironment& environment);

/// The same for a file that is known already. The sheet waits until no other one is open and the
/// window is not locked.
void importStatement(AppEnvironment& environment, const std::string& path);

/// The same for a file that was named when the program was started: waits for an open document with
/// an account, and says so.
void importStatementWhenReady(AppEnvironment& environment, const std::string& path);

/// The format of a statement by its file's name; nothing for other files.
[[nodiscard]] std::optional<ImportFormat> statementFormat(const std::string& path);

/// Whether files may be dropped onto the main screen: while statements can be imported and nothing
/// else is going on.
[[nodiscard]] bool canTakeDroppedFiles(AppEnvironment& environment);

/// Imports a statement that was dropped; says what can be imported when it is another kind of file
/// or more than one.
void takeDroppedFiles(AppEnvironment& environment, const std::vector<std::string>& paths);

/// Offers all transactions as comma-separated text.
void exportCSV(AppEnvironment& environment);

/// Offers the transactions of the selected account as QIF.
void exportQIF(AppEnvironment& environment);

/// Asks where to save a text, makes it on a worker and writes it there; a failure becomes an alert.
/// `makeText` must not touch what lives on the main thread.
void save(AppEnvironment& environment, const SavePanelRequest& request,
          std::function<std::string()> makeText);

} // namespace oakfen::FileActions
