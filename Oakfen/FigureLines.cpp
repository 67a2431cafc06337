#include "Oakfen/FigureLines.h"

#include <algorithm>
#include <unordered_map>
namespace oakfen {

namespace {

/// Whether a figure counts what is filed under a category. Asked of each line, answered once for
/// each category.
class CategoryTest {
public:
    CategoryTest(const FigureLines& figure, const LibraryIndex& index)
        : figure_(figure), index_(index) {}

    bool operator()(const std::optional<UUID>& categoryID) {
        if (!figure_.categories) {
            return true;
        }
        const auto [place, isNew] = answers_.try_emplace(categoryID, false);
        if (isNew) {
            place->second = isWanted(categoryID);
        }
        return place->second;
    }

private:
    [[nodiscard]] bool isNamed(const std::optional<UUID>& categoryID) const {
        return std::ranges::find(*figure_.categories, categoryID) != figure_.categories->end();
    }

    [[nodiscard]] bool isWanted(const std::optional<UUID>& categoryID) const {
        using Reach = FigureLines::Reach;
        if (!categoryID || figure_.reach == Reach::itself) {
            return isNamed(categoryID);
        }
        // Only what the document knows has a root for `actual`; totals also add up the rest.
        const bool hasRoot =
            figure_.reach == Reach::fromRoot || index_.category(*categoryID) != nullptr;
        return (hasRoot && isNamed(index_.topLevelID(*categoryID))) ||
               (figure_.reach == Reach::withChildren && isNamed(categoryID));
    }

    const FigureLines& figure_;
    const LibraryIndex& index_;
    std::unordered_map<std::optional<UUID>, bool> answers_;
};

/// "Groceries"; the whole path, since names repeat.
std::string titleOf(const LibraryIndex& index, const std::optional<UUID>& categoryID) {
    return index.categoryName(categoryID);
}

} // namespace

void forEachLineOf(const FigureLines& figure, const LibraryIndex& index,
                   const std::function<void(const LedgerLine&)>& take) {
    CategoryTest isFiled(figure, index);
    const auto isOnSide = [&](bool isIncome) {
        return figure.side == FigureLines::Side::both ||
               isIncome == (figure.side == FigureLines::Side::income);
    };
    index.forEachLine(figure.interval, [&](const LedgerLine& line) {
        if (isOnSide(line.isIncome) && isFiled(line.categoryID)) {
            take(line);
        }
    });
}

Decimal amountIn(const FigureLines& figure, const LedgerLine& line) {
    return figure.isOfSpending ? -line.amount : line.amount;
}

Decimal sumOf(const FigureLines& figure, const LibraryIndex& index) {
    Decimal sum;
    forEachLineOf(figure, index, [&](const LedgerLine& line) { sum += line.amount; });
    return figure.isOfSpending ? -sum : sum;
}

FigureLines actualLines(const LibraryIndex& index, const UUID& categoryID,
                        const DateInterval& interval, bool includesChildren) {
    const Category* category = index.category(categoryID);
    return {.title = titleOf(index, categoryID),
            .interval = interval,
            .categories = {{categoryID}},
            .reach =
                includesChildren ? FigureLines::Reach::withChildren : FigureLines::Reach::itself,
            .isOfSpending = category != nullptr && category->kind == CategoryKind::expense};
}

FigureLines spendingLines(const LibraryIndex& index, const std::optional<UUID>& rootID,
                          const DateInterval& interval) {
    return {.title = titleOf(index, rootID),
            .interval = interval,
            .side = FigureLines::Side::spending,
            .categories = {{rootID}},
            .reach = FigureLines::Reach::fromRoot};
}

FigureLines cashFlowLines(FigureLines::Side side, Date month, const DateInterval& interval,
                          const Calendar& calendar) {
    // Not narrowed to what the ledger covers, since the next entry may lie beyond that.
    const bool isIncome = side == FigureLines::Side::income;
    return {.title = isIncome ? "Income" : "Spending",
            .interval = {std::max(month, interval.start),
                         std::min(calendar.endOfMonth(month), interval.end)},
            .side = side,
            .isOfSpending = !isIncome};
}

} // namespace oakfen
