#pragma once

#include "Oakfen/Views/TableColumns.h"
#include "OakfenCore/Importers/StatementImporter.h"

namespace oakfen {

/// What the review says of an entry that a line repeats. The payee is the ledger's.
struct RepeatedEntry {
    Date date;
    std::string_view payee;
    Decimal amount;

    friend bool operator==(const RepeatedEntry&, const RepeatedEntry&) = default;
};

/// A line of a statement as the review shows it.
struct ImportReviewRow {
    UUID id;
    /// The statement's line, which stays the same.
    const ImportedTransaction* item = nullptr;
    /// The account's entry that the line repeats, if it repeats one.
    std::optional<RepeatedEntry> duplicate = {};
    /// The path of the category under which the line is filed, if any. The text is the index's.
    std::optional<std::string_view> category = {};
    /// Whether the line names a category that the document doesn't have.
    bool namesUnknownCategory = false;
    bool isIncluded = true;

    /// Whether the import adds the line: it leaves out what the account has, ticked or not.
    [[nodiscard]] bool comesIn() const { return isIncluded && !duplicate; }

    friend bool operator==(const ImportReviewRow&, const ImportReviewRow&) = default;
};

[[nodiscard]] const Columns<ImportReviewRow>& importReviewColumns();

/// Says which entry of the account a line repeats.
[[nodiscard]] std::string duplicateDescription(const RepeatedEntry& duplicate,
                                               const CellContext& context);

} // namespace oakfen
