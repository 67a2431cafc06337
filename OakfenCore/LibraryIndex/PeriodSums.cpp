#include "OakfenCore/LibraryIndex/PeriodSums.h"

#include <algorithm>

namespace oakfen {

PeriodSums::PeriodSums(const LibraryIndex& index, const DateInterval& interval)
    : isMerged_(index.sumsAreExact()) {
    index.forEachLine(interval, [this](const LedgerLine& line) {
        CategoryPart& category = part(line.categoryID);
        if (line.isIncome) {
            category.income += line.amount;
            return;
        }
        category.spending += line.amount;
        part(line.entry.payee).spending += line.amount;
    });
}

PeriodSums::CategoryPart& PeriodSums::part(const std::optional<UUID>& categoryID) {
    if (isMerged_) {
        const auto [found, isNew] = positions_.try_emplace(categoryID, categories_.size());
        if (!isNew) {
            return categories_[found->second];
        }
    }
    return categories_.emplace_back(CategoryPart{.categoryID = categoryID});
}

PeriodSums::PayeePart& PeriodSums::part(std::string_view payee) {
    if (isMerged_) {
        const auto [found, isNew] = payeePositions_.try_emplace(payee, payees_.size());
        if (!isNew) {
            return payees_[found->second];
        }
    }
    return payees_.emplace_back(PayeePart{.payee = payee});
}

Decimal PeriodSums::amount(const UUID& categoryID) const {
    if (isMerged_) {
        const auto found = positions_.find(categoryID);
        return found == positions_.end()
                   ? Decimal()
                   : categories_[found->second].income + categories_[found->second].spending;
    }
    Decimal total;
    for (const CategoryPart& each : categories_) {
        if (each.categoryID == categoryID) {
            total += each.income + each.spending; // one of which is zero
        }
    }
    return total;
}

std::shared_ptr<PeriodMemory::Period> PeriodMemory::find(const DateInterval& interval) {
    const std::scoped_lock lock(mutex_);
    const auto found = std::find_if(periods_.begin(), periods_.end(), [&](const auto& period) {
        return period->interval == interval;
    });
    if (found != periods_.end()) {
        return *found;
    }
    if (periods_.size() == mostPeriods) {
        periods_.pop_front();
    }
    return periods_.emplace_back(std::make_shared<Period>(interval));
}

} // namespace oakfen
