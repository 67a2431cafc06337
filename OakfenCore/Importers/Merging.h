#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "OakfenCore/Importers/StatementImporter.h"
#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// Adds the lines that the account does not have yet as cleared entries, filing each by its
/// category's name or as its payee was filed last. Lines of one call are not compared with each
/// other. Returns how many were added.
std::size_t importTransactions(Library& library, std::span<const ImportedTransaction> items,
                               const UUID& accountID, Date now, const Calendar& calendar);

} // namespace oakfen
