#pragma once

#include <string>

#include "OakfenCore/LibraryIndex/RegisterRow.h"
#include "OakfenCore/Support/Calendar.h"

namespace oakfen {

/// A row of a register as one line of tab-separated text for a spreadsheet, in all its columns:
/// days as 2026-03-05, amounts as plain digits, the state as a word.
[[nodiscard]] std::string copiedLine(const RegisterRow& row, const Calendar& calendar);

} // namespace oakfen
