#pragma once

#include <string_view>

#include "Oakfen/Views/Register/FoundEntry.h"
#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// What is owed is charged and paid; what is owned is paid out and deposited.
[[nodiscard]] const Columns<RegisterRow>& registerColumns(bool isLiability);

/// Those of a register with the account instead of the balance, which has no meaning among entries
/// of many accounts. What is a charge on one account is a payment from another.
[[nodiscard]] const Columns<FoundEntry>& foundColumns();

} // namespace oakfen
