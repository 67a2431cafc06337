#pragma once

#include <string_view>
#include <vector>

#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// One line of a choice among what the program knows: a section's header, or one of the things.
struct ChoiceRow {
    std::string_view title;
    /// The number of the enumeration's case.
    int value = 0;
    /// None where empty.
    std::string_view symbolName = {};
    TextTone tone = TextTone::secondary;
    bool isHeader = false;

    friend bool operator==(const ChoiceRow&, const ChoiceRow&) = default;
};

/// The cases of an enumeration by their titles.
template <typename Enumeration>
[[nodiscard]] std::vector<ChoiceRow> choiceRows() {
    std::vector<ChoiceRow> rows;
    for (const Enumeration each : allCases<Enumeration>) {
        rows.push_back({.title = title(each), .value = static_cast<int>(each)});
    }
    return rows;
}

/// The types of accounts under their groups.
[[nodiscard]] std::vector<ChoiceRow> accountTypeRows();

/// The states of an entry with their marks.
[[nodiscard]] std::vector<ChoiceRow> clearedStateRows();

} // namespace oakfen
