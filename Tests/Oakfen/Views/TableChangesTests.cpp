#include "Oakfen/Views/TableChanges.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Oakfen/Views/SavingsTable.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;
using Rows = std::vector<SavingsRow>;
using Run = TableChanges::Run;
using Span = TableChanges::Span;

class TableComparison : public ::testing::Test {
protected:
    TableComparison() {
        for (int number = 0; number < 10; ++number) {
            rows.push_back({.name = std::to_string(number)});
        }
    }

    [[nodiscard]] TableChanges changesTo(const Rows& later) const {
        return changesBetween(*savingsTable(columns, rows), *savingsTable(columns, later));
    }

    Columns<SavingsRow> columns{nameColumn()};
    Rows rows;
};

TEST_F(TableComparison, SaysNothingOfEqualTables) {
    EXPECT_EQ(changesTo(rows), TableChanges());
}

TEST_F(TableComparison, TellsWhichRowsCameAndWentAndChanged) {
    Rows later = rows;
    later[8].name = "other";
    later.erase(later.begin() + 2, later.begin() + 4);
    later.insert(later.begin() + 4, SavingsRow{.name = "new"});
    EXPECT_EQ(changesTo(later),
              (TableChanges{.runs = {{.from = 2, .removed = 2, .to = 2, .inserted = 0},
                                     {.from = 6, .removed = 0, .to = 4, .inserted = 1}},
                            .changed = Span{7, 7}}));
}

TEST_F(TableComparison, TellsOfOneRunWhereAllRowsWentOrCame) {
    EXPECT_EQ(changesTo({}), (TableChanges{.runs = {{.from = 0, .removed = 10}}}));
    rows.clear();
    EXPECT_EQ(changesTo({{.name = "a"}}), (TableChanges{.runs = {{.inserted = 1}}}));
}

TEST_F(TableComparison, CallsItRearrangedWhenARowMoved) {
    Rows later = rows;
    std::ranges::rotate(later, later.begin() + 3);
    EXPECT_EQ(changesTo(later), TableChanges{.isRearranged = true});
}

TEST_F(TableComparison, CallsItRearrangedWhenRowsGoInManyPlaces) {
    Rows earlier;
    for (int number = 0; number < 40; ++number) {
        earlier.push_back({.name = std::to_string(number)});
    }
    Rows later;
    for (std::size_t each = 0; each < earlier.size(); each += 2) {
        later.push_back(earlier[each]);
    }
    rows = earlier;
    EXPECT_TRUE(changesTo(later).isRearranged);
}

TEST_F(TableComparison, TakesAllRowsForChangedWhereOtherColumnsDrawThem) {
    const Columns<SavingsRow> other{nameColumn()};
    EXPECT_EQ(changesBetween(*savingsTable(columns, rows), *savingsTable(other, rows)).changed,
              (Span{0, 9}));
}

/// The later rows, made of the earlier ones by what the changes say and nothing else.
Rows applied(const TableChanges& changes, const Rows& earlier, const Rows& later) {
    Rows result;
    std::size_t from = 0;
    const auto keepUntil = [&](std::size_t end) {
        for (; from < end; ++from) {
            result.push_back(earlier[from]);
        }
    };
    for (const Run& run : changes.runs) {
        keepUntil(run.from);
        from += run.removed;
        EXPECT_EQ(result.size(), run.to);
        for (std::size_t each = 0; each < run.inserted; ++each) {
            result.push_back(later.at(run.to + each));
        }
    }
    keepUntil(earlier.size());
    for (std::size_t row = 0; changes.changed && row < result.size(); ++row) {
        if (row >= changes.changed->first && row <= changes.changed->last) {
            result[row] = later.at(row);
        }
    }
    return result;
}

TEST_F(TableComparison, LeadsFromAnyTableToAnyOther) {
    int toldRowByRow = 0;
    for (std::uint64_t seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        RandomLibrary source(seed);
        Rows later = rows;
        for (std::size_t edits = source.below(5); edits > 0; --edits) {
            const std::size_t place = source.below(later.size() + 1);
            const auto at = later.begin() + static_cast<std::ptrdiff_t>(place);
            if (source.chance(2)) {
                later.insert(at, {.name = "new"});
            } else if (at != later.end() && source.chance(2)) {
                later.erase(at);
            } else if (at != later.end()) {
                at->name += "!";
            }
        }
        // Sometimes a document holds one id twice.
        if (source.chance(10) && later.size() > 2) {
            later[source.below(later.size())].id = later[source.below(later.size())].id;
        }
        const TableChanges changes = changesTo(later);
        if (!changes.isRearranged) {
            ++toldRowByRow;
            EXPECT_EQ(applied(changes, rows, later), later);
        }
        rows = later.empty() ? rows : later;
    }
    EXPECT_GT(toldRowByRow, 300);
}

} // namespace
} // namespace oakfen
