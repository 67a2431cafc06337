#pragma once

#include <string>

#include "Oakfen/AppEnvironment.h"

/// The flows behind the File menu: each drives a panel, calls into the logic and reports through
/// the application's state.
namespace oakfen::FileActions {

/// Asks for a bank's statement, reads it on a worker and opens the review sheet with its lines.
void importTransactions(AppEnvironment& environment);

/// The same for a file that is known already.
void importStatement(AppEnvironment& environment, const std::string& path);

} // namespace oakfen::FileActions
