#include <algorithm>

#include "OakfenCore/LibraryIndex/IndexTables.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

namespace {

/// Calls `take` with the category and the amount of each of the entry's lines: of its splits, or of
/// the entry itself. A transfer has none.
template <typename Take>
void forEachLineOf(const Transaction& entry, Take&& take) {
    if (entry.isTransfer()) {
        return;
    }
    if (!entry.isSplit()) {
        take(entry.categoryID, entry.amount);
    }
    for (const Split& split : entry.splits) {
        take(split.categoryID, split.amount);
    }
}

} // namespace

const std::string* LibraryIndex::categoryPath(const UUID& id) const {
    return tables_->categories.path(id);
}

std::string LibraryIndex::categoryName(const std::optional<UUID>& id) const {
    const std::string* path = id ? categoryPath(*id) : nullptr;
    return path ? *path : std::string(uncategorizedName);
}

std::string LibraryIndex::categoryDescription(const Transaction& transaction) const {
    if (transaction.transferAccountID) {
        const Account* other = account(*transaction.transferAccountID);
        return "[" + (other ? other->name : "Deleted Account") + "]";
    }
    if (transaction.isSplit()) {
        return "— Split (" + std::to_string(transaction.splits.size()) + ") —";
    }
    return categoryName(transaction.categoryID);
}

std::vector<const Category*> LibraryIndex::sortedCategories(CategoryKind kind) const {
    return tables_->categories.sorted(kind);
}

std::vector<const Category*> LibraryIndex::children(const UUID& id) const {
    return tables_->categories.children(id);
}

std::vector<const Category*> LibraryIndex::topLevelCategories(CategoryKind kind) const {
    return tables_->categories.topLevel(kind);
}

UUID LibraryIndex::topLevelID(const UUID& id) const {
    return tables_->categories.topLevelID(id);
}

std::vector<CategoryLine> LibraryIndex::categoryLines(const DateInterval& interval) const {
    std::vector<CategoryLine> lines;
    for (const Transaction& entry : library().transactions) {
        if (interval.contains(entry.date)) {
            forEachLineOf(entry, [&](const std::optional<UUID>& categoryID, const Decimal& amount) {
                lines.push_back(
                    {entry.id, entry.accountID, entry.date, entry.payee, categoryID, amount});
            });
        }
    }
    return lines;
}

bool LibraryIndex::isIncomeLine(const CategoryLine& line) const {
    return isIncome(line.categoryID, line.amount);
}

bool LibraryIndex::isIncome(const std::optional<UUID>& categoryID, const Decimal& amount) const {
    const Category* filed = categoryID ? category(*categoryID) : nullptr;
    return filed ? filed->kind == CategoryKind::income : amount.isPositive();
}

bool LibraryIndex::sumsAreExact() const {
    return tables_->sumsAreExact;
}

void LibraryIndex::forEachLine(const DateInterval& interval,
                               const std::function<void(const LedgerLine&)>& take) const {
    const auto takeLinesOf = [&](const Transaction& entry) {
        if (interval.contains(entry.date)) {
            forEachLineOf(entry, [&](const std::optional<UUID>& categoryID, const Decimal& amount) {
                take({entry, categoryID, amount, isIncome(categoryID, amount)});
            });
        }
    };
    if (!sumsAreExact()) {
        for (const Transaction& entry : library().transactions) {
            takeLinesOf(entry);
        }
        return;
    }
    for (const AccountLedger& ledger : tables_->ledgers()) {
        for (const Transaction* entry : ledger.entries(interval)) {
            takeLinesOf(*entry);
        }
    }
}

std::shared_ptr<const PeriodSums> LibraryIndex::periodSums(const DateInterval& interval) const {
    return tables_->periods.sums(interval, [&] { return PeriodSums(*this, interval); });
}

std::optional<DateInterval> LibraryIndex::datesOfEntries() const {
    std::optional<DateInterval> dates;
    for (const AccountLedger& ledger : tables_->ledgers()) {
        if (const auto own = ledger.dates()) {
            dates = dates ? DateInterval{std::min(dates->start, own->start),
                                         std::max(dates->end, own->end)}
                          : own;
        }
    }
    return dates;
}

int LibraryIndex::uncategorizedCount() const {
    return tables_->uncategorizedCount;
}

} // namespace oakfen
