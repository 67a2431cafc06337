#include "Oakfen/Views/Components/Choices.h"

namespace oakfen {

std::vector<ChoiceRow> accountTypeRows() {
    std::vector<ChoiceRow> rows;
    for (const AccountGroup each : allCases<AccountGroup>) {
        rows.push_back({.title = pickerTitle(each), .isHeader = true});
        for (ChoiceRow row : choiceRows<AccountType>()) {
            const auto type = static_cast<AccountType>(row.value);
            if (group(type) == each) {
                row.symbolName = symbolName(type);
                rows.push_back(row);
            }
        }
    }
    return rows;
}

std::vector<ChoiceRow> clearedStateRows() {
    std::vector<ChoiceRow> rows = choiceRows<ClearedState>();
    for (ChoiceRow& row : rows) {
        const ClearedBadge badge = clearedBadge(static_cast<ClearedState>(row.value));
        row.symbolName = badge.symbolName;
        row.tone = badge.tone;
    }
    return rows;
}

} // namespace oakfen
