#include "Oakfen/Views/Components/Choices.h"

#include <gtest/gtest.h>

namespace oakfen {

TEST(Choices, ListTheCasesAsPeopleSeeThem) {
    const std::vector<ChoiceRow> rows = choiceRows<Frequency>();
    ASSERT_EQ(rows.size(), allCases<Frequency>.size());
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const Frequency frequency = allCases<Frequency>[place];
        EXPECT_EQ(rows[place],
                  (ChoiceRow{.title = title(frequency), .value = static_cast<int>(frequency)}));
    }
}

TEST(Choices, ListEachTypeOfAccountUnderItsGroupWithItsIcon) {
    std::size_t types = 0;
    std::string_view header;
    for (const ChoiceRow& row : accountTypeRows()) {
        if (row.isHeader) {
            header = row.title;
            continue;
        }
        const auto type = static_cast<AccountType>(row.value);
        EXPECT_EQ(header, pickerTitle(group(type)));
        EXPECT_EQ(row.title, title(type));
        EXPECT_EQ(row.symbolName, symbolName(type));
        ++types;
    }
    EXPECT_EQ(types, allCases<AccountType>.size());
}

TEST(Choices, MarkTheStatesOfAnEntryAsTheRegisterDoes) {
    for (const ChoiceRow& row : clearedStateRows()) {
        const ClearedBadge badge = clearedBadge(static_cast<ClearedState>(row.value));
        EXPECT_EQ(row.symbolName, badge.symbolName);
        EXPECT_EQ(row.tone, badge.tone);
    }
}

} // namespace oakfen
