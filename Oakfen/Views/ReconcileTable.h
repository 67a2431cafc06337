#pragma once

#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// An entry that the statement may show.
struct ReconcileRow {
    UUID id;
    const Transaction* entry = nullptr;
    bool isChecked = false;

    friend bool operator==(const ReconcileRow&, const ReconcileRow&) = default;
};

[[nodiscard]] const Columns<ReconcileRow>& reconcileColumns();

} // namespace oakfen
