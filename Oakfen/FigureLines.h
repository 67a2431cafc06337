#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

/// A figure that a screen shows, told by the lines of the ledger that make it up. It means the same
/// whatever becomes of the document, so that a list of the lines can follow each edit.
struct FigureLines {
    /// Which lines count, beside the categories.
    enum class Side {
        both,
        income,  ///< those that `isIncomeLine` takes for income
        spending ///< the others
    };
    /// What a category stands for.
    enum class Reach {
        itself,
        withChildren, ///< and what has it as its root, as a figure of `actual` with children
        fromRoot      ///< all that is added up under it as the root, as totals that are rolled up
    };

    /// What the figure is: "Groceries".
    std::string title;
    /// Its kind and period: "Actual · November 2026".
    std::string detail;
    DateInterval interval;
    Side side = Side::both;
    /// What the lines are filed under, nothing for those that have no category; any where absent.
    std::optional<std::vector<std::optional<UUID>>> categories = {};
    Reach reach = Reach::itself;
    /// The figure is positive for what was spent, and so are the amounts of its lines.
    bool isOfSpending = true;

    friend bool operator==(const FigureLines&, const FigureLines&) = default;
};

/// Calls `take` with each line that makes up the figure, by account.
void forEachLineOf(const FigureLines& figure, const LibraryIndex& index,
                   const std::function<void(const LedgerLine&)>& take);

/// The amount of a line as the figure counts it.
[[nodiscard]] Decimal amountIn(const FigureLines& figure, const LedgerLine& line);

/// What the lines add up to, not rounded.
[[nodiscard]] Decimal sumOf(const FigureLines& figure, const LibraryIndex& index);

// The figures of the screens.
/// What `actual` tells of a category.
[[nodiscard]] FigureLines actualLines(const LibraryIndex& index, const UUID& categoryID,
                                      const DateInterval& interval, bool includesChildren);
/// A total of `spendingByCategory`, rolled up; nothing for what has no category.
[[nodiscard]] FigureLines spendingLines(const LibraryIndex& index,
                                        const std::optional<UUID>& rootID,
                                        const DateInterval& interval);
/// The income or the spending of a month of `cashFlow` over the interval.
[[nodiscard]] FigureLines cashFlowLines(FigureLines::Side side, Date month,
                                        const DateInterval& interval, const Calendar& calendar);

} // namespace oakfen
