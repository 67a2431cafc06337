#pragma once

#include <string_view>

#include "Oakfen/Views/TableColumns.h"
#include "OakfenCore/LibraryIndex/RegisterRow.h"

namespace oakfen {

/// The column that a register is sorted by, named by its id.
struct RegisterSort {
    std::string_view column = "date";
    bool ascending = false;

    friend bool operator==(const RegisterSort&, const RegisterSort&) = default;
};

/// What is owed is charged and paid; what is owned is paid out and deposited.
[[nodiscard]] const Columns<RegisterRow>& registerColumns(bool isLiability);

} // namespace oakfen
