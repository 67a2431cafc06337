#pragma once

#include <memory>
#include <span>

#include "OakfenCore/Importers/StatementImporter.h"
#include "OakfenCore/Models/Records.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// Whether the ledger already has that line: the same bank id, or the same amount and payee (in any
/// case) at most three whole days apart. The plain rule, which the finder below is tested against.
[[nodiscard]] bool isDuplicate(const ImportedTransaction& item,
                               std::span<const Transaction* const> existing,
                               const Calendar& calendar);

/// Answers `isDuplicate` for many lines against the same entries, through tables. Returns the entry
/// that the line repeats: that of the same bank id, else the nearest in time; null for a new line.
/// The entries must outlive it.
class DuplicateFinder {
public:
    DuplicateFinder(std::span<const Transaction* const> existing, const Calendar& calendar);
    ~DuplicateFinder();
    DuplicateFinder(const DuplicateFinder&) = delete;
    DuplicateFinder& operator=(const DuplicateFinder&) = delete;

    [[nodiscard]] const Transaction* match(const ImportedTransaction& item) const;

private:
    struct Tables;
    std::unique_ptr<const Tables> tables_;
};

} // namespace oakfen
