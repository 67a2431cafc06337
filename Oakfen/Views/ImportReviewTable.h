#pragma once

#include "Oakfen/Views/TableColumns.h"
#include "OakfenCore/Importers/StatementImporter.h"

namespace oakfen {

/// A line of a statement as the review shows it.
struct ImportReviewRow {
    UUID id;
    const ImportedTransaction* item = nullptr;
    /// The account's entry that the line repeats, or null.
    const Transaction* duplicate = nullptr;
    bool isIncluded = true;

    friend bool operator==(const ImportReviewRow&, const ImportReviewRow&) = default;
};

[[nodiscard]] const Columns<ImportReviewRow>& importReviewColumns();

/// Says which entry of the account a line repeats.
[[nodiscard]] std::string duplicateDescription(const Transaction& duplicate,
                                               const CellContext& context);

} // namespace oakfen
