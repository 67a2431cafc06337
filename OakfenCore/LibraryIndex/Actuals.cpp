#include "OakfenCore/LibraryIndex/Actuals.h"

#include "OakfenCore/LibraryIndex/PeriodSums.h"

namespace oakfen {

Actuals::Actuals(const LibraryIndex& index, const DateInterval& interval) : index_(index) {
    const auto sums = index.periodSums(interval);
    for (const PeriodSums::CategoryPart& part : sums->categories()) {
        if (!part.categoryID) {
            continue;
        }
        const UUID& id = *part.categoryID;
        const Decimal amount = part.income + part.spending;
        itself_[id] += amount;
        withChildren_[id] += amount;
        if (const UUID root = index.topLevelID(id); root != id) {
            withChildren_[root] += amount;
        }
    }
}

Decimal Actuals::of(const UUID& categoryID, bool includeChildren) const {
    const auto& totals = includeChildren ? withChildren_ : itself_;
    const auto found = totals.find(categoryID);
    const Decimal total = found == totals.end() ? Decimal() : found->second;
    const Category* category = index_.category(categoryID);
    return category != nullptr && category->kind == CategoryKind::expense ? -total : total;
}

} // namespace oakfen
