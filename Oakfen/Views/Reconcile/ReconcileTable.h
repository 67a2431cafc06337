#pragma once

#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// An entry that the statement may show: what the table shows of it, so that equal rows look the
/// same, whatever else an edit changed. The texts are the ledger's.
struct ReconcileRow {
    UUID id;
    Date date;
    std::string_view payee;
    std::string_view memo;
    Decimal amount;
    bool isChecked = false;

    friend bool operator==(const ReconcileRow&, const ReconcileRow&) = default;
};

[[nodiscard]] const Columns<ReconcileRow>& reconcileColumns();

} // namespace oakfen
