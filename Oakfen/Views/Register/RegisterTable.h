#pragma once

#include <string_view>

#include "Oakfen/Views/Register/FoundEntry.h"
#include "Oakfen/Views/TableColumns.h"

namespace oakfen {

/// The column that a register is sorted by, named by its id.
struct RegisterSort {
    std::string_view column = "date";
    bool ascending = false;

    friend bool operator==(const RegisterSort&, const RegisterSort&) = default;
};

/// What is owed is charged and paid; what is owned is paid out and deposited.
[[nodiscard]] const Columns<RegisterRow>& registerColumns(bool isLiability);

/// Those of a register with the account instead of the balance, which has no meaning among entries
/// of many accounts. What is a charge on one account is a payment from another.
[[nodiscard]] const Columns<FoundEntry>& foundColumns();

/// The order after a click on that column's header: by it, or turned round. The same where the
/// column can't be sorted by.
template <typename Row>
[[nodiscard]] RegisterSort afterClick(const RegisterSort& sort, const Columns<Row>& columns,
                                      std::string_view column) {
    const Column<Row>* found = columnNamed(columns, column);
    if (found == nullptr || !found->head.isSortable) {
        return sort;
    }
    return {.column = found->head.id, .ascending = sort.column != column || !sort.ascending};
}

} // namespace oakfen
